#pragma once

#include <QString>

class QApplication;

/// What must be settled before the first window, in two halves round the application object.
namespace StartUp {

/// Sharing of GL objects between all views, the surface format, the window system, the names of the program.
/// What Qt says from now on is kept for routeQtMessages().
void beforeApplication();

/// Numbers are read and written with a point, whatever the user's language; the program's looks.
void afterApplication(QApplication& application);

/// Sends what Qt and libraries that speak through it have to say into the session's log. Fatal messages still
/// reach the terminal.
void routeQtMessages();
/// Back to the terminal; for the time when the log's services end.
void stopRouting();

/// Reason why no window can be shown, for the user; empty when one can be. To be asked before the application
/// object: Qt ends the program when it finds no display.
QString missingDisplay();

}  // namespace StartUp
