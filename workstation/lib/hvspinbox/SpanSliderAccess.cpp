#include "SpanSliderAccess.h"

#include "hvspinbox/QSpanSlider.h"

#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QVariant>

using hvspinbox::Span;
using hvspinbox::SpanHandle;

namespace {

SpanHandleObject* objectOf(QSpanSlider const& slider, SpanHandle handle)
{
    auto const objects = slider.findChildren<SpanHandleObject*>(QString(), Qt::FindDirectChildrenOnly);
    for (SpanHandleObject* object : objects) {
        if (object->handle == handle) return object;
    }
    return nullptr;
}

// One handle.
class HandleAccess : public QAccessibleObject, public QAccessibleValueInterface
{
public:
    explicit HandleAccess(SpanHandleObject* object)
        : QAccessibleObject(object)
        , m_object(*object)
    {}

    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(&m_object.slider);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(QAccessibleInterface const*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Slider; }

    QRect rect() const override
    {
        QRect const place = m_object.handles.handleRect(m_object.handle);
        return QRect(m_object.slider.mapToGlobal(place.topLeft()), place.size());
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) return currentValue().toString();
        if (kind == QAccessible::Description) return m_object.slider.accessibleDescription();
        if (kind != QAccessible::Name) return {};
        QString const part = m_object.handle == SpanHandle::Lower ? QSpanSlider::tr("Lower value")
                                                                  : QSpanSlider::tr("Upper value");
        QString const whole = m_object.slider.accessibleName();
        return whole.isEmpty() ? part : whole + QStringLiteral(": ") + part;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.focused = m_object.slider.hasFocus() && m_object.handles.activeHandle() == m_object.handle;
        state.disabled = !m_object.slider.isEnabled();
        state.invisible = !m_object.slider.isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleObject::interface_cast(type);
    }

    QVariant currentValue() const override { return m_object.handles.state().value(m_object.handle); }
    void setCurrentValue(QVariant const& value) override
    {
        m_object.handles.moveTo(m_object.handle, value.toInt());
    }
    QVariant maximumValue() const override { return m_object.handles.state().maximum; }
    QVariant minimumValue() const override { return m_object.handles.state().minimum; }
    QVariant minimumStepSize() const override { return m_object.slider.singleStep(); }

private:
    SpanHandleObject& m_object;
};

// The slider: a group of two handles.
class SpanAccess : public QAccessibleWidget
{
public:
    explicit SpanAccess(QSpanSlider* slider)
        : QAccessibleWidget(slider, QAccessible::Grouping)
        , m_slider(*slider)
    {}

    int childCount() const override { return 2; }
    QAccessibleInterface* child(int index) const override
    {
        if (index != 0 && index != 1) return nullptr;
        return QAccessible::queryAccessibleInterface(
            objectOf(m_slider, index == 0 ? SpanHandle::Lower : SpanHandle::Upper));
    }
    int indexOfChild(QAccessibleInterface const* child) const override
    {
        auto const* object = child ? qobject_cast<SpanHandleObject*>(child->object()) : nullptr;
        if (!object || &object->slider != &m_slider) return -1;
        return object->handle == SpanHandle::Lower ? 0 : 1;
    }

private:
    QSpanSlider& m_slider;
};

QAccessibleInterface* makeAccess(QString const&, QObject* object)
{
    if (auto* handle = qobject_cast<SpanHandleObject*>(object)) return new HandleAccess(handle);
    if (auto* slider = qobject_cast<QSpanSlider*>(object)) return new SpanAccess(slider);
    return nullptr;
}

}  // namespace

SpanHandleObject::SpanHandleObject(QSpanSlider& ofSlider, SpanHandles& ofHandles, SpanHandle which)
    : QObject(&ofSlider)
    , slider(ofSlider)
    , handles(ofHandles)
    , handle(which)
{}

void offerAccess(QSpanSlider& slider, SpanHandles& handles)
{
    static bool const isInstalled = (QAccessible::installFactory(makeAccess), true);
    Q_UNUSED(isInstalled)
    new SpanHandleObject(slider, handles, SpanHandle::Lower);
    new SpanHandleObject(slider, handles, SpanHandle::Upper);
}

void tellAccess(QSpanSlider& slider, Span const& before, Span const& now)
{
    if (!QAccessible::isActive()) return;
    for (SpanHandle const handle : {SpanHandle::Lower, SpanHandle::Upper}) {
        if (before.value(handle) == now.value(handle)) continue;
        QAccessibleValueChangeEvent event(objectOf(slider, handle), now.value(handle));
        QAccessible::updateAccessibility(&event);
    }
}

void tellFocus(QSpanSlider& slider, SpanHandle handle)
{
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(objectOf(slider, handle), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}
