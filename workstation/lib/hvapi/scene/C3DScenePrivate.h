#pragma once

#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "lib/hvapi/scene/CursorReadout.h"
#include "lib/hvapi/scene/MeasureTool.h"
#include "lib/hvapi/scene/SceneTool.h"
#include "lib/hvapi/scene/SliceHandles.h"

#include <QPoint>
#include <array>
#include <optional>

/// The slices of a scene, and the tools that share its mouse.
struct C3DScene::SceneData
{
    explicit SceneData(C3DScene& scene)
        : q(scene)
        , sliceHandles(scene)
        , measure(scene)
        , readout(scene)
    {}

    /// The tool in use. One whose object has gone ends here.
    hvscene::ObjectTool* currentTool();
    /// Null leaves the tool in use.
    void setTool(std::unique_ptr<hvscene::ObjectTool> next);
    void setMeasuring(bool on);
    /// Follows the mouse as long as something could light up under it.
    void watchMouse();
    /// True when the press went to a tool.
    bool press(QMouseEvent& event);
    void hover(const QPoint& position);
    void endDrag(bool keep);
    void showCursor();

    C3DScene& q;
    std::array<std::unique_ptr<C3DSlice>, 3> slices;
    hvscene::SliceHandles sliceHandles;
    hvscene::MeasureTool measure;
    hvscene::CursorReadout readout;
    bool measuring = false;
    hvscene::SceneTool* drag = nullptr;  ///< has the mouse
    std::optional<QPoint> measurePress;  ///< a click may follow

private:
    std::unique_ptr<hvscene::ObjectTool> m_tool;
};
