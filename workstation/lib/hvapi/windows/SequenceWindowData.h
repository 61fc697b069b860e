#pragma once

#include "hvapi/windows/CHVSSequenceWindow.h"

#include <QPointer>

class CHVSSequenceDataset;
class QTabWidget;
class ScenePage;
class SequencePage;

struct CHVSSequenceWindow::Private
{
    CHVSSequenceDataset* sequence = nullptr;
    QTabWidget* tabs = nullptr;
    SequencePage* sequencePage = nullptr;
    ScenePage* scenePage = nullptr;
    bool closing = false;

    static Private& of(CHVSSequenceWindow& window) { return *window.d; }
};

/// From now on the window counts as being closed.
inline void setClosing(CHVSSequenceWindow& window)
{
    CHVSSequenceWindow::Private::of(window).closing = true;
}
