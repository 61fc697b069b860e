#include "lib/hvapi/windows/WindowRegistry.h"

#include "hvapi/windows/CHVSSequenceWindow.h"

WindowRegistry::WindowRegistry()
{
    qRegisterMetaType<CHVSChildWindow*>();
    qRegisterMetaType<CHVSSequenceWindow*>();
    qRegisterMetaType<S3DControls*>("S3DControls*");
}

WindowRegistry& WindowRegistry::instance()
{
    static WindowRegistry registry;
    return registry;
}

void WindowRegistry::setActive(CHVSChildWindow* window)
{
    if (m_active == window) return;
    m_active = window;
    emit activeChanged(window);
}

void WindowRegistry::enter(CHVSChildWindow* window)
{
    m_windows.append(window);
}

void WindowRegistry::leave(CHVSChildWindow* window)
{
    m_windows.removeOne(window);
    if (m_active == window) setActive(nullptr);
}
