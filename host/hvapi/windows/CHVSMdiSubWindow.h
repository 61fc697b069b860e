#pragma once

#include "hvapi/hvapi_global.h"

#include <QMdiSubWindow>

/// Sub-window of the workspace: the frame around a CHVSChildWindow or around a tool's dialog.
/// windowStateChanged and aboutToActivate are those of QMdiSubWindow.
class HVAPI_EXPORT CHVSMdiSubWindow : public QMdiSubWindow
{
    Q_OBJECT

public:
    explicit CHVSMdiSubWindow(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~CHVSMdiSubWindow() override;

    /// Shows the sub-window with its content, back from minimised or hidden, and makes it the active one.
    void showWindow();
    /// Hides the sub-window; its content stays alive.
    void hideWindow();
};
