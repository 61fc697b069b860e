#include "lib/hvapi/scene/C3DViewPrivate.h"

#include "hvapi/scene/C3DVolumeData.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/scene/SceneTool.h"
#include "lib/hvapi/scene/logic/CropBox.h"
#include "lib/hvutils/HostServices.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double zoomPerWheelStep = 1.15;
constexpr double zoomPerWindowHeight = 6.0;  // dragging over the whole window
constexpr int motionRestMs = 150;

void moveCropBox(C3DSGNode* node, const sCropBoxOffset& offsets)
{
    if (!node) return;
    if (auto* object = qobject_cast<C3DObject*>(node)) {
        sCropBoxOffset copy = offsets;
        object->setCropBoxOffset(copy.m_offset);
    }
    for (QObject* child : node->children())
        moveCropBox(qobject_cast<C3DSGNode*>(child), offsets);
}

}  // namespace

C3DView::Private::Private(C3DView& view)
    : q(view)
{
    motionRest.setSingleShot(true);
    motionRest.setInterval(motionRestMs);
}

C3DView::C3DView(C3DSGManager* manager, QWidget* parent, Qt::WindowFlags flags)
    : QOpenGLWidget(parent, flags)
    , d(std::make_unique<Private>(*this))
{
    QSurfaceFormat surface = QSurfaceFormat::defaultFormat();
    surface.setProfile(QSurfaceFormat::CompatibilityProfile);
    setFormat(surface);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("3D view"));
    connect(&d->motionRest, &QTimer::timeout, this, [this] { d->endFastMode(); });
    d->manager = manager;
    if (!manager) return;
    manager->hostSide().makeRoot();
    manager->hostSide().views.push_back(this);
}

C3DView::~C3DView()
{
    if (d->manager) {
        auto& views = d->manager->hostSide().views;
        views.erase(std::remove(views.begin(), views.end(), this), views.end());
    }
    d->drag = Private::Drag::None;
    d->endFastMode();
    if (!d->sceneCopy.holdsTexture() || !isValid()) return;
    makeCurrent();
    d->sceneCopy.release();
    doneCurrent();
}

void C3DView::setCurrentCameraTool(CameraTool tool)
{
    d->tool = tool;
}

C3DView::CameraTool C3DView::getCurrentCameraTool() const
{
    return d->tool;
}

sCropBoxOffset C3DView::getCroppingBoxOffset()
{
    return d->manager ? d->manager->hostSide().cropOffsets : sCropBoxOffset();
}

void C3DView::setCroppingBoxOffset(Vec3f* const offsets)
{
    if (!offsets || !d->manager) return;
    C3DSGManager::Private& graph = d->manager->hostSide();
    std::copy(offsets, offsets + 8, graph.cropOffsets.m_offset);
    moveCropBox(graph.root, graph.cropOffsets);
    graph.requestRepaint();
}

void C3DView::setCroppingBBox(Vec3f* const corners)
{
    C3DVolumeData* volume = corners && d->manager ? d->manager->hostSide().volumeToCrop() : nullptr;
    if (!volume) return;
    hvscene::CropCorners wanted;
    for (std::size_t k = 0; k < 8; ++k)
        wanted[k] = hvscene::toVec3(corners[k]);
    const hvscene::CropOffsets offsets = hvscene::cropOffsets(hvscene::ownBox(*volume), wanted);
    Vec3f out[8];
    for (std::size_t k = 0; k < 8; ++k)
        out[k].set(offsets[k].x, offsets[k].y, offsets[k].z);
    setCroppingBoxOffset(out);
}

void C3DView::CTHUValueReverseToVoxelsConverter(int hounsfield, float* value, int* voxel, int* calibrationA,
                                                int* calibrationB)
{
    const bool known = d->manager && d->manager->hostSide().calibration;
    const auto calibration = known ? d->manager->hostSide().calibration() : std::nullopt;
    const auto stored = calibration ? hvscene::storedHounsfield(hounsfield, *calibration) : std::nullopt;
    const hvscene::StoredHounsfield out = stored.value_or(hvscene::StoredHounsfield());
    if (value) *value = static_cast<float>(out.value);
    if (voxel) *voxel = out.stored;
    if (calibrationA) *calibrationA = out.air;
    if (calibrationB) *calibrationB = out.water;
}

C3DView::Private& C3DView::hostSide()
{
    return *d;
}

void C3DView::update()
{
    d->sceneAsked = true;
    d->overlayOnly = false;
    QOpenGLWidget::update();
}

void C3DView::initializeGL() {}

void C3DView::paintGL()
{
    d->paint(d->framebufferPixels(), devicePixelRatioF(),
             d->overlayOnly ? Private::Frame::OverlayOnly : Private::Frame::Window);
    d->overlayOnly = d->sceneAsked = false;
    if (!d->fast || d->motionShown) return;
    // The frame may have taken longer than the rest: the next step of the mouse has to be seen first.
    d->motionShown = true;
    d->motionRest.start();
}

void C3DView::renderDecorations() {}

void C3DView::renderOverlay(const QSize&, double) {}

void C3DView::mousePressEvent(QMouseEvent* event)
{
    if (d->drag != Private::Drag::None && !(event->buttons() & d->dragButton)) d->endDrag();
    const Private::Drag drag = d->drag == Private::Drag::None ? d->dragOf(*event) : Private::Drag::None;
    if (drag == Private::Drag::None) {
        event->ignore();
        return;
    }
    d->drag = drag;
    d->dragButton = event->button();
    d->lastPosition = event->pos();
    setMouseTracking(true);  // so that a release which went elsewhere is noticed
}

void C3DView::mouseMoveEvent(QMouseEvent* event)
{
    if (d->drag == Private::Drag::None) {
        event->ignore();
        return;
    }
    if (!(event->buttons() & d->dragButton)) {  // the release went elsewhere
        d->endDrag();
        return;
    }
    const QPoint step = event->pos() - d->lastPosition;
    if (step.isNull()) return;
    d->lastPosition = event->pos();
    const double w = std::max(1, width());
    const double h = std::max(1, height());
    switch (d->drag) {
    case Private::Drag::Orbit: {
        const double perPixel = pi / std::min(w, h);
        d->camera.orbit(step.x() * perPixel, step.y() * perPixel);
        break;
    }
    case Private::Drag::Pan:
        d->camera.pan(step.x() / h, -step.y() / h);
        break;
    case Private::Drag::Zoom:
        d->camera.zoom(std::pow(zoomPerWindowHeight, -step.y() / h), 0.0, 0.0);
        break;
    case Private::Drag::None:
        break;
    }
    d->noteMotion();
    d->cameraMoved();
}

void C3DView::mouseReleaseEvent(QMouseEvent* event)
{
    if (d->drag == Private::Drag::None || event->button() != d->dragButton) {
        event->ignore();
        return;
    }
    d->endDrag();
}

void C3DView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    d->camera.fit();
    d->cameraMoved();
}

void C3DView::wheelEvent(QWheelEvent* event)
{
    const double steps = event->angleDelta().y() / 120.0;
    if (steps == 0.0) {
        event->ignore();
        return;
    }
    const double h = std::max(1, height());
    const QPointF mouse = event->position();
    d->camera.zoom(std::pow(zoomPerWheelStep, steps), (mouse.x() - width() / 2.0) / h,
                   (height() / 2.0 - mouse.y()) / h);
    d->noteMotion();
    d->cameraMoved();
    event->accept();
}

void C3DView::hideEvent(QHideEvent* event)
{
    d->endDrag();
    d->endFastMode();
    QOpenGLWidget::hideEvent(event);
}

// A frame shows neither focus nor activity, and may cost seconds without a graphics card: the base's repaint
// on each of these, an opened menu for instance, is left out.
void C3DView::focusInEvent(QFocusEvent*) {}

void C3DView::focusOutEvent(QFocusEvent*) {}

void C3DView::changeEvent(QEvent* event)
{
    if (event->type() != QEvent::ActivationChange) QOpenGLWidget::changeEvent(event);
}

C3DView::Private::Drag C3DView::Private::dragOf(const QMouseEvent& event) const
{
    if (event.button() == Qt::MiddleButton) return Drag::Pan;
    if (event.button() != Qt::LeftButton) return Drag::None;
    if (event.modifiers() & Qt::ShiftModifier) return Drag::Pan;
    switch (tool) {
    case PanTool:
        return Drag::Pan;
    case ZoomTool:
        return Drag::Zoom;
    case NoCameraTool:
    case RotateTool:
        break;
    }
    return Drag::Orbit;
}

void C3DView::Private::endDrag()
{
    drag = Drag::None;
    dragButton = Qt::NoButton;
    q.setMouseTracking(watchMouse || followMouse);
    noteEndOfMotion();
}

void C3DView::Private::noteMotion()
{
    motionShown = false;
    motionRest.start();
    fast = true;
    // Each time: another view may have come to rest meanwhile, and the mode is the host's.
    HostServices::instance().setFastRenderingMode(true);
}

void C3DView::Private::noteEndOfMotion()
{
    if (fast) motionRest.start();
}

void C3DView::Private::endFastMode()
{
    motionRest.stop();
    if (!fast) return;
    fast = false;
    HostServices::instance().setFastRenderingMode(false);
    q.update();  // the frame of full detail
}

void C3DView::Private::cameraMoved()
{
    emit q.cameraChanged();
    q.update();
}

void C3DView::Private::setWatchMouse(bool watch)
{
    watchMouse = watch;
    if (drag == Drag::None) q.setMouseTracking(watchMouse || followMouse);
}

void C3DView::Private::updateOverlay()
{
    if (!sceneAsked) overlayOnly = true;
    q.QOpenGLWidget::update();
}

hvscene::ViewProjection C3DView::Private::projection() const
{
    return hvscene::ViewProjection(camera, q.width(), q.height());
}

hvscene::Box C3DView::Private::currentSceneBox() const
{
    return manager ? manager->hostSide().sceneBox() : hvscene::Box();
}

void C3DView::Private::takeScene(bool fitAnew)
{
    const hvscene::Box scene = currentSceneBox();
    const bool fit = fitAnew && scene != fittedScene;
    if (scene == knownScene && !fit) return;
    knownScene = scene;
    if (fit) fittedScene = scene;
    camera.setScene(scene, fit);
    emit q.cameraChanged();
}

QSize C3DView::Private::framebufferPixels() const
{
    // The one place where lines of the window become pixels of the framebuffer.
    const double ratio = q.devicePixelRatioF();
    return {std::max(1, static_cast<int>(std::lround(q.width() * ratio))),
            std::max(1, static_cast<int>(std::lround(q.height() * ratio)))};
}
