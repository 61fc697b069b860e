#include "hvapi/windows/CHVSChildWindow.h"

#include "lib/hvapi/windows/WindowRegistry.h"

CHVSChildWindow::CHVSChildWindow(QWidget* parent)
    : QWidget(parent)
{
    WindowRegistry::instance().enter(this);
}

CHVSChildWindow::~CHVSChildWindow()
{
    WindowRegistry::instance().leave(this);
}

CHVSChildWindow* CHVSChildWindow::getActiveChildWnd()
{
    return WindowRegistry::instance().active();
}

bool CHVSChildWindow::isSequenceWindow()
{
    return false;
}

CHVSDataset* CHVSChildWindow::getActiveDataset()
{
    return nullptr;
}

CHVSSequenceDataset* CHVSChildWindow::getWindowSequence()
{
    return nullptr;
}

C3DSGManager* CHVSChildWindow::getWindow3DSGManager()
{
    return nullptr;
}

void CHVSChildWindow::prepare3DView() {}

void CHVSChildWindow::update3DLayout() {}

tag_estatus CHVSChildWindow::saveSequence()
{
    return eStatusFailed;
}

bool CHVSChildWindow::isClosing()
{
    return false;
}

SWindowControls* CHVSChildWindow::getWindowControls()
{
    return &m_controls;
}

void CHVSChildWindow::apply3DControls(S3DControls* controls)
{
    if (controls) m_controls.m_3DControls = *controls;
}

void CHVSChildWindow::set3DToolsStates() {}
