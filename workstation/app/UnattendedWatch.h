#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

class PressScript;
class QWidget;

/// Names of the fields of a window that a user could fill in, from top to bottom: enabled, visible input
/// fields and check boxes with a label. Ends and punctuation of labels are cut off; fields under one label
/// count once. Sliders are left out, since they always have a value.
QStringList fillableFields(const QWidget& window);

/// Stands in for the user while nobody is there: closes every modal window as soon as it opens. A plain
/// message box gets its harmless answer; of any other dialog is noted what it wanted to know. What a script
/// wants to press in the window goes before that.
class UnattendedWatch : public QObject
{
    Q_OBJECT

public:
    /// `script`, if not null, lives as long as this.
    explicit UnattendedWatch(PressScript* script = nullptr, QObject* parent = nullptr);

    /// True when a dialog wanted values.
    bool wasAsked() const { return !m_title.isEmpty(); }
    /// `"Volume Information" asks for values that only you have: Width, Height`; empty when nothing was
    /// asked. It speaks of the first dialog.
    QString demand() const;

private:
    void look();
    void answer(QWidget& window);

    QTimer m_timer;
    PressScript* const m_script;
    QString m_title;
    QStringList m_fields;
};
