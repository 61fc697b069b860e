#include "hvspinbox/QSpanSlider.h"

#include "SpanSliderAccess.h"
#include "logic/Span.h"

#include <QAccessible>
#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionSlider>
#include <QTouchEvent>
#include <QWheelEvent>

#include <cstdlib>

using hvspinbox::Span;
using hvspinbox::SpanHandle;

namespace {

constexpr int wheelNotch = 120;  // an eighth of a degree each
constexpr int grooveHeight = 4;

}  // namespace

class QSpanSlider::Private : public SpanHandles
{
public:
    explicit Private(QSpanSlider& slider)
        : q(slider)
    {
        q.setFocusPolicy(Qt::StrongFocus);
        q.setAttribute(Qt::WA_AcceptTouchEvents);
        span.setRange(q.minimum(), q.maximum());
        span.upper = span.maximum;
        offerAccess(q, *this);
    }

    // --- what assistive programs ask for ---

    Span const& state() const override { return span; }
    SpanHandle activeHandle() const override { return active; }
    void moveTo(SpanHandle handle, int value) override
    {
        Span next = span;
        next.push(handle, value);
        apply(next);
    }

    QRect handleRect(SpanHandle handle) const override
    {
        QStyleOptionSlider option = optionFor(span.value(handle));
        return q.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &q);
    }

    // --- values ---

    void apply(Span const& next)
    {
        Span const before = span;
        span = next;
        if (span.lower == before.lower && span.upper == before.upper) return;
        q.update();
        tellAccess(q, before, span);
        if (span.lower != before.lower) emit q.lowerValueChanged(span.lower);
        if (span.upper != before.upper) emit q.upperValueChanged(span.upper);
        emit q.spanChanged(span.lower, span.upper);
    }

    void stepActive(long long steps)
    {
        Span next = span;
        next.step(active, steps);
        apply(next);
    }

    // --- places ---

    QStyleOptionSlider optionFor(int value) const
    {
        QStyleOptionSlider option;
        q.initStyleOption(&option);
        option.sliderPosition = value;
        option.sliderValue = value;
        return option;
    }

    int along(QPoint const& point) const { return q.orientation() == Qt::Horizontal ? point.x() : point.y(); }

    // The value whose handle would have its middle at `place`.
    int valueAt(int place) const
    {
        QStyleOptionSlider option = optionFor(span.minimum);
        QRect const groove =
            q.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, &q);
        QRect const handle =
            q.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &q);
        bool const lies = q.orientation() == Qt::Horizontal;
        int const length = lies ? handle.width() : handle.height();
        int const start = lies ? groove.left() : groove.top();
        int const room = (lies ? groove.width() : groove.height()) - length;
        return QStyle::sliderValueFromPosition(span.minimum, span.maximum, place - start - length / 2, room,
                                               option.upsideDown);
    }

    SpanHandle handleAt(QPoint const& point) const
    {
        // In pixels where the handles lie apart, since a few pixels may be one value.
        int const place = along(point);
        int const lower = std::abs(place - along(handleRect(SpanHandle::Lower).center()));
        int const upper = std::abs(place - along(handleRect(SpanHandle::Upper).center()));
        if (lower != upper) return lower < upper ? SpanHandle::Lower : SpanHandle::Upper;
        return span.nearest(valueAt(place));
    }

    void drag(SpanHandle handle, int place)
    {
        Span next = span;
        next.push(handle, valueAt(place));
        apply(next);
    }

    bool touch(QTouchEvent const& event)
    {
        for (QTouchEvent::TouchPoint const& finger : event.touchPoints()) {
            QPoint const place = finger.pos().toPoint();
            if (finger.state() == Qt::TouchPointPressed) {
                SpanHandle handle = handleAt(place);
                QList<SpanHandle> const held = fingers.values();
                if (held.contains(handle))
                    handle = handle == SpanHandle::Lower ? SpanHandle::Upper : SpanHandle::Lower;
                if (held.contains(handle)) continue;
                fingers.insert(finger.id(), handle);
                active = handle;
            }
            if (fingers.contains(finger.id()) && finger.state() != Qt::TouchPointStationary)
                drag(fingers.value(finger.id()), along(place));
            if (finger.state() == Qt::TouchPointReleased) fingers.remove(finger.id());
        }
        q.setSliderDown(!fingers.isEmpty());
        return true;
    }

    void paintSpan(QPainter& painter) const
    {
        QPoint const from = handleRect(SpanHandle::Lower).center();
        QPoint const to = handleRect(SpanHandle::Upper).center();
        QRect bar = QRect(from, to).normalized();
        bool const lies = q.orientation() == Qt::Horizontal;
        if (lies) {
            bar.setTop(from.y() - grooveHeight / 2);
            bar.setHeight(grooveHeight);
        } else {
            bar.setLeft(from.x() - grooveHeight / 2);
            bar.setWidth(grooveHeight);
        }
        painter.fillRect(bar, q.palette().color(QPalette::Highlight));
    }

    void paintHandle(QPainter& painter, SpanHandle handle) const
    {
        QStyleOptionSlider option = optionFor(span.value(handle));
        option.subControls = QStyle::SC_SliderHandle;
        bool const isActive = handle == active;
        option.activeSubControls =
            isActive && q.isSliderDown() ? QStyle::SC_SliderHandle : QStyle::SubControls(QStyle::SC_None);
        if (!isActive) option.state &= ~(QStyle::State_HasFocus | QStyle::State_Sunken);
        q.style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, &q);
        if (isActive && q.hasFocus()) {
            painter.setPen(QPen(q.palette().color(QPalette::Highlight), 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(handleRect(handle).adjusted(1, 1, -1, -1));
        }
    }

    QSpanSlider& q;
    Span span;
    SpanHandle active = SpanHandle::Lower;
    bool isDragged = false;
    int grip = 0;  // from the middle of the handle to where it was taken
    int wheelRest = 0;
    QHash<int, SpanHandle> fingers;  // by the number of the touch
};

QSpanSlider::QSpanSlider(QWidget* parent)
    : QSpanSlider(Qt::Vertical, parent)
{}

QSpanSlider::QSpanSlider(Qt::Orientation orientation, QWidget* parent)
    : QSlider(orientation, parent)
    , d(std::make_unique<Private>(*this))
{}

QSpanSlider::~QSpanSlider() = default;

int QSpanSlider::lowerValue() const
{
    return d->span.lower;
}

int QSpanSlider::upperValue() const
{
    return d->span.upper;
}

void QSpanSlider::setLowerValue(int value)
{
    d->moveTo(SpanHandle::Lower, value);
}

void QSpanSlider::setUpperValue(int value)
{
    d->moveTo(SpanHandle::Upper, value);
}

void QSpanSlider::sliderChange(SliderChange change)
{
    if (change == SliderRangeChange) {
        Span next = d->span;
        next.setRange(minimum(), maximum());
        d->apply(next);
    }
    QSlider::sliderChange(change);
}

bool QSpanSlider::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        if (isEnabled()) return d->touch(*static_cast<QTouchEvent*>(event));
        break;
    case QEvent::TouchCancel:
        d->fingers.clear();
        setSliderDown(false);
        return true;
    default:
        break;
    }
    return QSlider::event(event);
}

void QSpanSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // With the handle at the beginning the style fills no part of the groove.
    QStyleOptionSlider groove = d->optionFor(d->span.minimum);
    groove.subControls = QStyle::SC_SliderGroove;
    if (tickPosition() != NoTicks) groove.subControls |= QStyle::SC_SliderTickmarks;
    style()->drawComplexControl(QStyle::CC_Slider, &groove, &painter, this);
    if (isEnabled()) d->paintSpan(painter);
    SpanHandle const other = d->active == SpanHandle::Lower ? SpanHandle::Upper : SpanHandle::Lower;
    d->paintHandle(painter, other);
    d->paintHandle(painter, d->active);
}

void QSpanSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || maximum() == minimum()) {
        event->ignore();
        return;
    }
    event->accept();
    d->active = d->handleAt(event->pos());
    QRect const handle = d->handleRect(d->active);
    bool const isTaken = handle.contains(event->pos());
    d->grip = isTaken ? d->along(event->pos()) - d->along(handle.center()) : 0;
    d->isDragged = true;
    setSliderDown(true);
    if (!isTaken) d->drag(d->active, d->along(event->pos()));
    update();
}

void QSpanSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!d->isDragged) {
        event->ignore();
        return;
    }
    event->accept();
    d->drag(d->active, d->along(event->pos()) - d->grip);
}

void QSpanSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (!d->isDragged || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    event->accept();
    d->isDragged = false;
    setSliderDown(false);
    update();
}

void QSpanSlider::wheelEvent(QWheelEvent* event)
{
    event->accept();
    // Alt turns the wheel on its side on some systems.
    int const turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    d->wheelRest += turned;
    int const notches = d->wheelRest / wheelNotch;
    d->wheelRest -= notches * wheelNotch;
    if (notches == 0) return;
    d->active = d->handleAt(event->position().toPoint());
    bool const byPages = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    d->stepActive(static_cast<long long>(notches) * (byPages ? pageStep() : singleStep()));
    update();
}

void QSpanSlider::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        d->stepActive(-singleStep());
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        d->stepActive(singleStep());
        break;
    case Qt::Key_PageDown:
        d->stepActive(-pageStep());
        break;
    case Qt::Key_PageUp:
        d->stepActive(pageStep());
        break;
    case Qt::Key_Home:
        d->moveTo(d->active, d->span.lowest(d->active));
        break;
    case Qt::Key_End:
        d->moveTo(d->active, d->span.highest(d->active));
        break;
    default:
        event->ignore();
    }
}

void QSpanSlider::focusInEvent(QFocusEvent* event)
{
    if (event->reason() == Qt::TabFocusReason) d->active = SpanHandle::Lower;
    if (event->reason() == Qt::BacktabFocusReason) d->active = SpanHandle::Upper;
    QSlider::focusInEvent(event);
    update();
}

// Tab goes through both handles.
bool QSpanSlider::focusNextPrevChild(bool next)
{
    SpanHandle const first = next ? SpanHandle::Lower : SpanHandle::Upper;
    if (hasFocus() && d->active == first) {
        d->active = next ? SpanHandle::Upper : SpanHandle::Lower;
        tellFocus(*this, d->active);
        update();
        return true;
    }
    return QSlider::focusNextPrevChild(next);
}
