// The scene's tools: who gets the mouse, and the operations that take tools up and leave them.

#include "hvapi/scene/C3DScene.h"

#include "hvapi/scene/C3DObject.h"
#include "hvapi/scene/C3DSGManager.h"
#include "lib/hvapi/scene/C3DScenePrivate.h"
#include "lib/hvapi/scene/C3DViewPrivate.h"
#include "lib/hvapi/scene/CropTool.h"
#include "lib/hvapi/scene/TransformTool.h"

#include <QKeyEvent>
#include <QMouseEvent>

using hvscene::CropTool;
using hvscene::ObjectTool;
using hvscene::OverlayPainter;
using hvscene::Pixel;
using hvscene::TransformTool;
using hvscene::ViewProjection;

namespace {

constexpr int clickSlack = 3;  // pixels by which the mouse may move within a click

Pixel toPixel(const QPoint& p)
{
    return {static_cast<double>(p.x()), static_cast<double>(p.y())};
}

C3DObject* objectOf(C3DSGManager* manager, const QString& name)
{
    return manager ? qobject_cast<C3DObject*>(manager->getNode(name)) : nullptr;
}

}  // namespace

C3DToolBase::~C3DToolBase() = default;

ObjectTool* C3DScene::SceneData::currentTool()
{
    if (m_tool && !m_tool->object()) setTool(nullptr);
    return m_tool.get();
}

void C3DScene::SceneData::setTool(std::unique_ptr<ObjectTool> next)
{
    endDrag(true);
    m_tool = std::move(next);
    watchMouse();
    showCursor();
    q.update();
}

void C3DScene::SceneData::setMeasuring(bool on)
{
    if (on == measuring) return;
    measuring = on;
    measurePress.reset();
    measure.clear();
    measure.leave();
    watchMouse();
    showCursor();
    q.update();
    emit q.measuringChanged(on);
}

void C3DScene::SceneData::watchMouse()
{
    bool slicesShown = false;
    for (const auto& slice : slices)
        slicesShown = slicesShown || (slice && slice->isDisplayed());
    q.hostSide().setWatchMouse(m_tool || measuring || slicesShown);
}

bool C3DScene::SceneData::press(QMouseEvent& event)
{
    if (drag) {
        // The release went elsewhere.
        if (!(event.buttons() & Qt::LeftButton) || event.button() == Qt::LeftButton)
            endDrag(true);
        else
            return true;
    }
    if (event.button() != Qt::LeftButton || event.modifiers() != Qt::NoModifier) return false;
    if (q.hostSide().drag != C3DView::Private::Drag::None) return false;
    const ViewProjection view = q.hostSide().projection();
    const Pixel mouse = toPixel(event.pos());
    if (ObjectTool* tool = currentTool(); tool && tool->press(view, mouse)) {
        drag = tool;
    } else if (sliceHandles.press(view, mouse)) {
        drag = &sliceHandles;
    }
    if (drag) {
        showCursor();
        q.update();
        return true;
    }
    if (measuring) measurePress = event.pos();
    return false;
}

void C3DScene::SceneData::hover(const QPoint& position)
{
    const ViewProjection view = q.hostSide().projection();
    const Pixel mouse = toPixel(position);
    ObjectTool* tool = currentTool();
    bool changed = tool && tool->hover(view, mouse);
    const bool taken = tool && tool->isOver();
    changed = (taken ? sliceHandles.leave() : sliceHandles.hover(view, mouse)) || changed;
    if (measuring) {
        const bool free = !taken && !sliceHandles.isOver();
        changed = (free ? measure.hover(view, mouse) : measure.leave()) || changed;
    }
    showCursor();
    if (changed) q.hostSide().updateOverlay();
}

void C3DScene::SceneData::endDrag(bool keep)
{
    if (!drag) return;
    hvscene::SceneTool* ending = drag;
    drag = nullptr;
    q.hostSide().noteEndOfMotion();
    if (keep) {
        ending->release();
    } else {
        ending->cancel();
    }
    showCursor();
    q.update();
}

void C3DScene::SceneData::showCursor()
{
    if (drag) {
        q.setCursor(Qt::ClosedHandCursor);
    } else if ((m_tool && m_tool->isOver()) || sliceHandles.isOver()) {
        q.setCursor(Qt::OpenHandCursor);
    } else if (measuring) {
        q.setCursor(Qt::CrossCursor);
    } else {
        q.unsetCursor();
    }
}

void C3DScene::doMeasureVoxels(bool bMeasure)
{
    if (bMeasure) s->setTool(nullptr);
    s->setMeasuring(bMeasure);
}

bool C3DScene::isMeasuring() const
{
    return s->measuring;
}

void C3DScene::showTransformTool(bool bShow, QString object)
{
    C3DObject* found = bShow ? objectOf(hostSide().manager, object) : nullptr;
    if (found) {
        s->setMeasuring(false);
        s->setTool(std::make_unique<TransformTool>(*this, *found));
    } else if (!bShow && dynamic_cast<TransformTool*>(s->currentTool())) {
        s->setTool(nullptr);
    }
}

void C3DScene::showCroppingTool(bool bShow, QString object)
{
    C3DObject* found = bShow ? objectOf(hostSide().manager, object) : nullptr;
    if (found) {
        s->setMeasuring(false);
        found->setCropEnabled(true);
        s->setTool(std::make_unique<CropTool>(*this, *found));
    } else if (!bShow && dynamic_cast<CropTool*>(s->currentTool())) {
        s->setTool(nullptr);
    }
}

void C3DScene::updateTransformTool()
{
    if (auto* tool = dynamic_cast<TransformTool*>(s->currentTool())) tool->update();
}

void C3DScene::updateCroppingTool()
{
    if (auto* tool = dynamic_cast<CropTool*>(s->currentTool())) tool->update();
}

C3DToolBase* C3DScene::getCurrentTool()
{
    return s->currentTool();
}

void C3DScene::renderOverlay(const QSize& pixels, double scale)
{
    OverlayPainter painter(pixels, scale);
    const ViewProjection view(hostSide().camera, pixels.width(), pixels.height());
    s->sliceHandles.paint(painter, view);
    if (ObjectTool* tool = s->currentTool()) tool->paint(painter, view);
    if (s->measuring) s->measure.paint(painter, view);
}

void C3DScene::mousePressEvent(QMouseEvent* event)
{
    if (!s->press(*event)) C3DView::mousePressEvent(event);
}

void C3DScene::mouseMoveEvent(QMouseEvent* event)
{
    s->readout.moveTo(event->pos());
    if (s->drag && !(event->buttons() & Qt::LeftButton)) s->endDrag(true);  // the release went elsewhere
    if (s->drag) {
        hostSide().noteMotion();
        s->drag->move(hostSide().projection(), toPixel(event->pos()));
        update();
        return;
    }
    if (s->measurePress && (event->pos() - *s->measurePress).manhattanLength() > clickSlack)
        s->measurePress.reset();
    if (s->measurePress && (event->buttons() & Qt::LeftButton)) return;  // still a click
    if (event->buttons() == Qt::NoButton) s->hover(event->pos());
    C3DView::mouseMoveEvent(event);
}

void C3DScene::mouseReleaseEvent(QMouseEvent* event)
{
    if (s->drag) {
        if (event->button() == Qt::LeftButton) s->endDrag(true);
        return;
    }
    const bool clicked = s->measurePress && event->button() == Qt::LeftButton;
    if (event->button() == Qt::LeftButton) s->measurePress.reset();
    C3DView::mouseReleaseEvent(event);
    if (!clicked || !s->measuring) return;
    const auto distance = s->measure.click(hostSide().projection(), toPixel(event->pos()));
    hostSide().updateOverlay();
    if (distance) emit distanceMeasured(*distance);
}

void C3DScene::mouseDoubleClickEvent(QMouseEvent* event)
{
    // Of two quick clicks with a tool the second is a click like the first.
    if (s->press(*event)) return;
    if (s->measurePress) {
        C3DView::mousePressEvent(event);
    } else {
        C3DView::mouseDoubleClickEvent(event);
    }
}

bool C3DScene::event(QEvent* event)
{
    // While something is to be taken back, Escape belongs to the view and to no shortcut.
    if (event->type() == QEvent::ShortcutOverride && (s->drag || s->measuring) &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return C3DView::event(event);
}

void C3DScene::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && s->drag) {
        s->endDrag(false);
    } else if (event->key() == Qt::Key_Escape && s->measuring) {
        if (s->measure.isHalfDone()) {
            s->measure.clear();
            update();
        } else {
            s->setMeasuring(false);
        }
    } else {
        C3DView::keyPressEvent(event);
    }
}

void C3DScene::leaveEvent(QEvent* event)
{
    bool changed = s->sliceHandles.leave();
    if (ObjectTool* tool = s->currentTool()) changed = tool->leave() || changed;
    changed = s->measure.leave() || changed;
    s->showCursor();
    if (changed) hostSide().updateOverlay();
    s->readout.leave();
    C3DView::leaveEvent(event);
}

void C3DScene::hideEvent(QHideEvent* event)
{
    s->endDrag(true);
    s->measurePress.reset();
    s->readout.leave();
    C3DView::hideEvent(event);
}
