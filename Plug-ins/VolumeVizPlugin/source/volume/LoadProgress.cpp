#include "volume/LoadProgress.h"

#include <QCoreApplication>

LoadProgress::LoadProgress(const QString& title)
    : m_dialog(nullptr, nullptr, true, {})
{
    // Where no other window is shown, its closing must not end the application.
    m_dialog.setAttribute(Qt::WA_QuitOnClose, false);
    m_dialog.initDialog();
    m_dialog.setWindowTitle(title);
    m_dialog.setModal(true);
    m_dialog.show();
}

LoadProgress::~LoadProgress()
{
    m_dialog.close();
}

void LoadProgress::setTitle(const QString& title)
{
    m_dialog.setWindowTitle(title);
}

bool LoadProgress::next(const QString& label, unsigned done, unsigned all)
{
    if (!m_dialog.isVisible()) return false;
    m_dialog.setActivityText(label);
    m_dialog.setProgress(static_cast<int>(100.0 * done / all));
    QCoreApplication::processEvents();
    return true;
}
