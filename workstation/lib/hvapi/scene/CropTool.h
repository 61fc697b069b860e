#pragma once

#include "lib/hvapi/scene/SceneTool.h"
#include "lib/hvapi/scene/logic/CropBox.h"

#include <optional>

namespace hvscene {

/// The crop box of an object with a handle on each face. What it changes are the crop offsets of the view; it
/// keeps nothing of them.
class CropTool : public ObjectTool
{
public:
    using ObjectTool::ObjectTool;

    bool hover(const ViewProjection& view, Pixel mouse) override;
    bool leave() override;
    bool isOver() const override { return m_over.has_value(); }
    bool press(const ViewProjection& view, Pixel mouse) override;
    void move(const ViewProjection& view, Pixel mouse) override;
    void release() override;
    void cancel() override;
    void paint(OverlayPainter& painter, const ViewProjection& view) override;

private:
    struct Layout;
    Layout layout(const ViewProjection& view) const;
    CropOffsets offsets() const;
    void setOffsets(const CropOffsets& offsets);
    /// True for the face that the mouse has, or would take.
    bool isLit(CropFace face) const;

    std::optional<CropFace> m_over;
    std::optional<CropFace> m_drag;
    CropOffsets m_start{};
    Pixel m_pressed;
    bool m_changed = false;
};

}  // namespace hvscene
