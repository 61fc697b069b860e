#pragma once

#include "hvutils/hvutils_global.h"

#include <QDialog>
#include <memory>

// Dialog that shows how far a long work is. The work runs in the GUI thread and keeps the dialog alive by
// handling events between its steps; the user stops the work by closing the dialog, which the work sees by
// isVisible(). Order of use: initDialog(), setWindowTitle(), setModal(true), show(), then setActivityText()
// and setProgress() for each step. Calls that come faster than the eye can follow cost next to nothing: the
// last one wins.
class HVUTILS_EXPORT CHVSProgressBar : public QDialog
{
    Q_OBJECT

public:
    // `name` is the object name, may be null.
    CHVSProgressBar(QWidget* parent, char const* name, bool modal, QFlags<Qt::WindowType> flags);
    ~CHVSProgressBar() override;

    // Back to 0 percent and no text.
    void initDialog();

    // Percent done; values outside 0 to 100 are brought to the nearer end.
    void setProgress(int percent);

    // What is being done; a text that is too long for the dialog loses its middle.
    void setActivityText(QString text);

private:
    Q_DISABLE_COPY(CHVSProgressBar)
    class Private;
    std::unique_ptr<Private> d;
};
