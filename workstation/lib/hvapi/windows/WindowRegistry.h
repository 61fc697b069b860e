#pragma once

#include "hvapi/hvapi_global.h"

#include <QList>
#include <QObject>
#include <QString>

class CHVSChildWindow;
class CHVSSequenceWindow;

/// All windows of data in the workspace, and which one is active. GUI thread only.
///
/// A CHVSMdiSubWindow reports the activation of its content by itself; the application need not call
/// setActive, and a tool's dialog that takes the focus leaves the active window of data as it is.
class HVAPI_EXPORT WindowRegistry : public QObject
{
    Q_OBJECT

public:
    static WindowRegistry& instance();

    /// Null when there is none. A window that goes stops being active.
    CHVSChildWindow* active() const { return m_active; }
    void setActive(CHVSChildWindow* window);

    /// In order of creation.
    QList<CHVSChildWindow*> windows() const { return m_windows; }

    /// For the windows themselves.
    void enter(CHVSChildWindow* window);
    void leave(CHVSChildWindow* window);

signals:
    /// Another window, or none, is active. A window of the argument is alive, but may be under destruction
    /// when it was the one before.
    void activeChanged(CHVSChildWindow* window);
    /// The visible tab of a sequence window changed, by the user or by prepare3DView.
    void currentTabChanged(CHVSSequenceWindow* window, QString tabName);
    /// Somebody called onSignal3DViewChanged of the window: the application tells the plug-ins.
    void view3DChanged(CHVSSequenceWindow* window, bool bClearAnalysisResults);
    /// What lies under the mouse in the 3D view of a sequence window, in a line of text; empty: nothing.
    void readoutTold(CHVSSequenceWindow* window, QString text);

private:
    WindowRegistry();

    CHVSChildWindow* m_active = nullptr;
    QList<CHVSChildWindow*> m_windows;
};
