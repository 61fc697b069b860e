#include "PressScript.h"

#include "hvutils/CHVSLog.h"

#include <QAbstractButton>

#include <utility>

namespace {

bool isCalled(const QAbstractButton& button, const QString& name)
{
    return QString(button.text()).remove(QLatin1Char('&')) == name || button.accessibleName() == name;
}

}  // namespace

PressScript::PressScript(QStringList names)
    : m_names(std::move(names))
{}

bool PressScript::pressIn(QWidget& window)
{
    if (isDone()) return false;
    const QList<QAbstractButton*> buttons = window.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (button->isHidden() || !button->isEnabled() || !isCalled(*button, next())) continue;
        const QString name = m_names.takeFirst();
        getLogObject()->log(QStringLiteral("Pressed as told: %1.").arg(name), QString(), 0, QString(),
                            CHVSLog::eInformation, false);
        button->click();
        return true;
    }
    return false;
}
