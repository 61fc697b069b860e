#pragma once

#include "hvutils/hvutils_global.h"

#include <QString>

class QWidget;

// Message boxes. Every operation shows the box modally and returns when it was answered. GUI thread only.
//
// Buttons are integers: 0 none, 1024 OK, 16384 Yes, 65536 No, 131072 No to All, 4194304 Cancel; 256 added to
// one of them makes it the default. The result is the value of the button pressed, without the 256. Closing
// the box without a button answers Cancel if there is one, else No, else the last button. With no button at
// all there is an OK.
class HVUTILS_EXPORT CHVSMessageBox
{
public:
    enum Button : int
    {
        eNoButton = 0,
        eDefault = 256,
        eOk = 1024,
        eYes = 16384,
        eNo = 65536,
        eNoToAll = 131072,
        eCancel = 4194304
    };

    CHVSMessageBox() = delete;

    static int information(QWidget* parent, QString const& title, QString const& text, int button0,
                           int button1, int button2);
    static int warning(QWidget* parent, QString const& title, QString const& text, int button0, int button1,
                       int button2);
    static int error(QWidget* parent, QString const& title, QString const& text, int button0, int button1,
                     int button2);

    // Boxes with own button texts; an empty text stands for no button. The result is the number 0, 1 or 2 of
    // the button pressed; `defaultButton` is the one that Return presses, `escapeButton` the answer when the
    // box is closed without one. -1 stands for none: then the box can only be left by a button, or, with one
    // button, gives 0.
    static int information(QWidget* parent, QString const& title, QString const& text, QString const& button0,
                           QString const& button1, QString const& button2, int defaultButton,
                           int escapeButton);
    static int warning(QWidget* parent, QString const& title, QString const& text, QString const& button0,
                       QString const& button1, QString const& button2, int defaultButton, int escapeButton);

    // Records that the user chose Cancel, so that the application stops what it was about to do.
    static void setCancelClicked(bool clicked);
};
