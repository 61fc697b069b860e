#pragma once

#include "hvapi/values/S3DControls.h"

#include <QWidget>

class C3DScene;
class C3DSGManager;
class QAction;
class QKeySequence;

/// The tab "3D View": a tool bar and the scene below it.
class ScenePage : public QWidget
{
    Q_OBJECT

public:
    explicit ScenePage(C3DSGManager* graph, QWidget* parent = nullptr);

    C3DScene* scene() const { return m_scene; }

    /// Brings buttons and scene in step with `controls`.
    void apply(S3DControls const& controls);

signals:
    // By the user only.
    void boundingBoxToggled(bool on);
    void axesToggled(bool on);
    void scaleBarToggled(bool on);
    /// The plane across an axis, 0 to 2 for x to z.
    void sliceToggled(int axis, bool on);
    /// The user asks for measuring, or leaves it by the button. The scene does not measure yet, or still
    /// does.
    void measuringToggled(bool on);

private:
    void showSlice(int axis, bool on);
    void addShortcut(QAction& action, QKeySequence const& keys);

    C3DScene* m_scene;
    QAction* m_boundingBox;
    QAction* m_axes;
    QAction* m_scaleBar;
    QAction* m_slices[3];
    QAction* m_measure;
};
