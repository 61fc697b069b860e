#pragma once

#include "hvapi/scene/C3DView.h"
#include "lib/hvapi/scene/FrameCopy.h"
#include "lib/hvapi/scene/OrientationAxes.h"
#include "lib/hvapi/scene/logic/Camera.h"
#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QTimer>

struct C3DView::Private
{
    explicit Private(C3DView& view);

    hvscene::Box currentSceneBox() const;
    /// Hands a changed box to the camera. With `fitAnew` the picture is fitted to it even after zoom or pan.
    void takeScene(bool fitAnew);

    enum class Frame
    {
        Window,       ///< all of it
        OverlayOnly,  ///< only what lies over the scene has changed since the window's last frame
        Picture       ///< all of it, for elsewhere
    };
    /// Draws the frame into the bound framebuffer of `pixels`; `scale` is the number of pixels of a line of
    /// the decorations. Leaves the GL state as it was.
    void paint(QSize pixels, double scale, Frame frame);
    /// Asks for a frame in which only what lies over the scene has changed.
    void updateOverlay();
    QSize framebufferPixels() const;

    // The mouse.
    enum class Drag
    {
        None,
        Orbit,
        Pan,
        Zoom
    };
    Drag dragOf(const QMouseEvent& event) const;
    void endDrag();
    /// The mouse moves something in the view: frames are drawn in the fast mode until it has rested.
    void noteMotion();
    /// A button was released: the last event of a motion.
    void noteEndOfMotion();
    /// At once, with the frame of full detail.
    void endFastMode();
    void cameraMoved();
    /// The mouse is followed also with no button down.
    void setWatchMouse(bool watch);
    /// As the window shows the scene, in the pixels of mouse events.
    hvscene::ViewProjection projection() const;

    C3DView& q;
    QPointer<C3DSGManager> manager;
    hvscene::Camera camera;
    hvscene::Box knownScene;   ///< what the camera was told last
    hvscene::Box fittedScene;  ///< what updateScene took into view last
    hvscene::OrientationAxes axes;
    CameraTool tool = NoCameraTool;
    Drag drag = Drag::None;
    Qt::MouseButton dragButton = Qt::NoButton;
    bool watchMouse = false;
    bool followMouse = false;  ///< positions are wanted, and nothing lights up
    QPoint lastPosition;
    QTimer motionRest;  ///< runs from each step of a motion on
    bool motionShown = true;
    bool fast = false;
    bool painting = false;
    bool overlayOnly = false;  ///< all that was asked for since the last frame
    bool sceneAsked = false;   ///< a frame of the scene was
    hvscene::FrameCopy sceneCopy;
    bool showBoundingBox = true;
    bool showAxes = true;
    bool showScaleBar = true;

private:
    void setSceneMatrices() const;
    void paintScene();
    void paintOverlay(QSize pixels, double scale);
};
