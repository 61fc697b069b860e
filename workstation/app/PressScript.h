#pragma once

#include <QStringList>

class QWidget;

/// Buttons and check boxes to press in place of the user, in order, each named by its text or its accessible
/// name.
class PressScript
{
public:
    PressScript() = default;
    explicit PressScript(QStringList names);

    bool isDone() const { return m_names.isEmpty(); }
    /// The next one to press; empty at the end.
    QString next() const { return m_names.value(0); }

    /// Presses the next one, if `window` has it and it can be pressed now, and logs that. The press may open
    /// a box and wait for its answer, which may be what comes next.
    bool pressIn(QWidget& window);

private:
    QStringList m_names;
};
