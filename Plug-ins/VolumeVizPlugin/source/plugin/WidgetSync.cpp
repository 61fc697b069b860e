#include "plugin/WidgetSync.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>

namespace {

/// The controls that have their slots.
constexpr const char* wiredControls[] = {
    "m_pVolumeInfoDialogButton",
};

bool isControl(const QWidget* widget)
{
    if (!widget->objectName().startsWith(QLatin1String("m_p"))) return false;
    const auto* group = qobject_cast<const QGroupBox*>(widget);
    return (group && group->isCheckable()) || qobject_cast<const QAbstractButton*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSlider*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget);
}

}  // namespace

bool isWired(const QString& controlName)
{
    for (const char* wired : wiredControls)
        if (controlName == QLatin1String(wired)) return true;
    return false;
}

void enableControl(QWidget* control, bool enabled)
{
    control->setEnabled(enabled && isWired(control->objectName()));
}

void disableUnwiredControls(QWidget* form)
{
    const QList<QWidget*> widgets = form->findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        if (isControl(widget) && !isWired(widget->objectName())) widget->setEnabled(false);
}
