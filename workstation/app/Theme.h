#pragma once

#include <QColor>

class QApplication;

/// The program's colours: dark and neutral, so that nothing on screen competes with an image.
namespace Theme {

extern const QColor window;       ///< docks, dialogs, bars
extern const QColor workspace;    ///< behind the sub-windows
extern const QColor field;        ///< lists and text fields
extern const QColor line;         ///< borders
extern const QColor text;         ///< what is read
extern const QColor quietText;    ///< what may be overlooked
extern const QColor accent;       ///< selection, progress
extern const QColor information;  ///< log entries by severity
extern const QColor status;
extern const QColor warning;
extern const QColor error;

/// Gives the application its style, palette and style sheet.
void apply(QApplication& application);

}  // namespace Theme
