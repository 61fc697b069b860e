#pragma once

#include <QObject>
#include <QSignalBlocker>
#include <QString>

class QWidget;

/// Runs `call(*object)` with the object's signals blocked for exactly that call: how widgets follow a record
/// without being taken for a user's edit.
template <class Object, class Call>
void quietly(Object* object, Call&& call)
{
    const QSignalBlocker blocker(object);
    call(*object);
}

/// Moves a window, shown or not, to the middle of the screen that `reference` is on.
void centreOnScreen(QWidget& window, const QWidget& reference);

/// True for a control that does something. The others of the form are shown, but stay disabled.
bool isWired(const QString& controlName);

/// Enables or disables a control; one that is not wired stays disabled.
void enableControl(QWidget* control, bool enabled);

/// Disables all controls below `form` that are not wired, with the labels that belong to them.
void disableUnwiredControls(QWidget* form);
