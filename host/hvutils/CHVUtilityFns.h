#pragma once

#include "hvutils/hvutils_global.h"

#include <QString>

class QCursor;

// Services of the application that belong to no one object.
class HVUTILS_EXPORT CHVUtilityFns
{
public:
    CHVUtilityFns() = delete;

    // Puts a cursor on top of the application's stack of cursors, and takes the topmost off again. Every
    // setCursor needs its restoreCursor; one too many has no effect. Any thread: calls of another thread than
    // the GUI thread take effect in their order when that thread next handles events.
    static void setCursor(QCursor const& cursor);
    static void restoreCursor();

    // Name of the application, the title of its message boxes.
    static QString getAppName();

    // False keeps the application from being closed until true is set again. Starts as true.
    static void setCanClose(bool canClose);

    // True while the application closes all its windows.
    static bool getCloseAllClicked();

    // Whether the user has answered "No to All" while all windows are being closed.
    static bool getNoToAllClicked();
    static void setNoToAllClicked(bool clicked);

    // True when so much of the machine's memory is in use that no large block should be asked for.
    static bool isMemoryLoadLimit();
};
