#include "hvapi/windows/CHVSMdiSubWindow.h"

#include "hvapi/windows/CHVSChildWindow.h"
#include "lib/hvapi/windows/WindowRegistry.h"

#include <QMdiArea>

CHVSMdiSubWindow::CHVSMdiSubWindow(QWidget* parent, Qt::WindowFlags flags)
    : QMdiSubWindow(parent, flags)
{
    // Only a window of data becomes the active one: a tool's dialog works on the one that was active before.
    connect(this, &QMdiSubWindow::windowStateChanged, this, [this](Qt::WindowStates, Qt::WindowStates now) {
        auto* content = qobject_cast<CHVSChildWindow*>(widget());
        if (content && now.testFlag(Qt::WindowActive)) WindowRegistry::instance().setActive(content);
    });
}

CHVSMdiSubWindow::~CHVSMdiSubWindow() = default;

void CHVSMdiSubWindow::showWindow()
{
    if (widget() && widget()->isHidden()) widget()->show();
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    if (auto* area = mdiArea()) {
        area->setActiveSubWindow(this);
    } else {
        raise();
        activateWindow();
    }
}

void CHVSMdiSubWindow::hideWindow()
{
    hide();
}
