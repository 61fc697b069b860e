#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/Vec3f.h"
#include "hvapi/values/sCropBoxOffset.h"

#include <QOpenGLWidget>
#include <memory>

class C3DSGManager;

/// A view into a scene graph through a camera.
///
/// The projection is parallel: lengths compare anywhere in the picture. The left button orbits, the middle
/// button, or shift and the left button, pans, the wheel zooms about the mouse, and a double click takes the
/// whole scene into view. While the mouse moves the camera or a tool the host is in its fast rendering mode
/// (`CHVProcess::isFast3DRenderingMode`); a frame of full detail follows when it has rested for 150 ms.
///
/// The view needs a context of the compatibility profile that shares objects with those of all other views.
/// Its depth function is GL_LEQUAL, so that a fragment at the far value still draws on a cleared buffer.
class HVAPI_EXPORT C3DView : public QOpenGLWidget
{
    Q_OBJECT

public:
    /// What the left button does. With `NoCameraTool` it orbits.
    enum CameraTool
    {
        NoCameraTool = 0,
        RotateTool = 1,
        PanTool = 2,
        ZoomTool = 3
    };

    /// A view of `manager`, which may outlive it. Makes the graph's root if it has none.
    C3DView(C3DSGManager* manager, QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~C3DView() override;

    void setCurrentCameraTool(CameraTool tool);
    CameraTool getCurrentCameraTool() const;

    /// The crop box as it was last set; zero offsets are the full box.
    sCropBoxOffset getCroppingBoxOffset();
    /// Eight corner offsets, which go to every volume of the scene at once. Null is ignored.
    void setCroppingBoxOffset(Vec3f* const offsets);
    /// Makes the crop box from eight corners in the volume's own space, in millimetres and in the order of
    /// `sCropBoxOffset`. Null is ignored, and so is a call without a volume in the scene.
    void setCroppingBBox(Vec3f* const corners);

    /// From a value in Hounsfield units to the stored value, by the calibration of the system that took the
    /// volume: the stored value as a real number and as an integer of 16 bits, and the stored values of air
    /// (-1000 HU) and water (0 HU). All four are 0 where there is no calibration. Null pointers are left out.
    void CTHUValueReverseToVoxelsConverter(int hounsfield, float* value, int* voxel, int* calibrationA,
                                           int* calibrationB);

    /// The host's own side of the view.
    struct Private;
    Private& hostSide();

    using QOpenGLWidget::update;

public slots:
    /// Asks for a frame of the scene, as the widget's own slot of that name does; this one can be told from a
    /// change of what only lies over the scene, for which the scene is not drawn again.
    void update();

signals:
    /// The camera has moved: by the mouse, by a preset, or to fit a new scene.
    void cameraChanged();

protected:
    void initializeGL() override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// Draws what the view shows beside the objects of the scene, with the scene's camera set. The base draws
    /// nothing.
    virtual void renderDecorations();
    /// Draws what lies over the scene, into a framebuffer of `pixels` with `scale` pixels a line of the
    /// decorations. The base draws nothing.
    virtual void renderOverlay(const QSize& pixels, double scale);

private:
    Q_DISABLE_COPY(C3DView)
    std::unique_ptr<Private> d;
};
