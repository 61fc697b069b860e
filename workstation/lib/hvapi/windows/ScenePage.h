#pragma once

#include "hvapi/values/S3DControls.h"

#include <QWidget>

class C3DScene;
class C3DSGManager;
class QAction;

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
    void boundingBoxToggled(bool on);
    void axesToggled(bool on);

private:
    C3DScene* m_scene;
    QAction* m_boundingBox;
    QAction* m_axes;
};
