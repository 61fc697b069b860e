#pragma once

#include "hvapi/scene/C3DSGNode.h"
#include "slices/QuadricDeleter.h"
#include "slices/logic/ProjectionCamera.h"

#include <QOpenGLWidget>
#include <QPointer>

#include <memory>

class C3DSGManager;
class C3DView;
class CGLVolume;

/// Draws the volume "GLVolume" of a scene graph off screen, under a parallel projection along an axis, into a
/// square picture: the volume pass with all its settings, under the node's transformation.
class C3DObjectFrameBufferExporter : public QOpenGLWidget
{
    Q_OBJECT

public:
    C3DObjectFrameBufferExporter(QWidget* parent, C3DSGManager* manager, const QString& name, C3DView* scene,
                                 Qt::WindowFlags flags = Qt::WindowFlags());
    ~C3DObjectFrameBufferExporter() override;

    /// @param image        out; stays as it was without the node, and for a size that no card can draw
    /// @param axis         1, 2 or 4
    /// @param fieldOfView  centimetres; sets how far away the camera stands, not what it shows
    /// @param size         pixels of each side
    void grabProjection(QImage& image, int axis, float fieldOfView, int size);

    /// False without the node, and for an axis that is none.
    bool setOrientation(int axis);
    void updateProjectionWindow();

    const ProjectionCamera& camera() const { return m_camera; }

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    CGLVolume* node() const;

    std::unique_ptr<GLUquadric, QuadricDeleter> m_quadric;
    int m_height = 1;  ///< of the picture, in pixels
    int m_width = 1;
    QPointer<C3DSGManager> m_manager;
    QPointer<C3DView> m_scene;
    int m_axis = 0;
    ProjectionCamera m_camera;
    SliceBox m_box;
    float m_scale = 1.0F;
    float m_fieldOfView = 0.0F;  ///< millimetres
    int m_size = 0;              ///< pixels per side
    std::unique_ptr<C3DSGNode> m_extraObject;
};
