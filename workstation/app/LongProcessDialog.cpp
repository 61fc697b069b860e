#include "LongProcessDialog.h"

#include "lib/hvutils/HostServices.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

LongProcessDialog::LongProcessDialog(QWidget* parent)
    : QProgressDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setObjectName(QStringLiteral("LongProcessDialog"));
    setWindowTitle(QStringLiteral("Please wait"));
    setWindowModality(Qt::ApplicationModal);
    setAutoClose(false);
    setAutoReset(false);
    setMinimumDuration(patience);
    setMinimumWidth(420);
    setProperty("alwaysInteractive", true);
    // the base starts a clock of its own; this one opens when told
    reset();
    // the base made this connection by names, and only by names it is found again
    disconnect(this, SIGNAL(canceled()), this, SLOT(cancel()));
    connect(this, &QProgressDialog::canceled, this, &LongProcessDialog::abortRequested);
}

void LongProcessDialog::show(const HostProcessState& state)
{
    if (state.running == 0) {
        m_sinceStart.invalidate();
        hide();
        return;
    }
    if (!m_sinceStart.isValid()) m_sinceStart.start();
    m_abortable = state.abortable;
    if (state.abortable && !findChild<QPushButton*>()) setCancelButtonText(QStringLiteral("&Abort"));
    if (auto* button = findChild<QPushButton*>()) {
        button->setVisible(state.abortable);
        button->setEnabled(!state.aborted);
    }
    const bool saysAbort = state.aborted && !state.abortText.isEmpty();
    setLabelText(saysAbort ? state.abortText : state.message);
    // a bar without a known end moves to and fro
    findChild<QProgressBar*>()->setRange(0, state.totalSteps);
    findChild<QProgressBar*>()->setValue(qBound(0, state.step, state.totalSteps));

    if (!isVisible() && m_sinceStart.elapsed() >= patience) QProgressDialog::show();
    if (isVisible() && !m_handlingEvents) {
        m_handlingEvents = true;
        QCoreApplication::processEvents();
        m_handlingEvents = false;
    }
}

void LongProcessDialog::reject()
{
    if (m_abortable) emit abortRequested();
}

void LongProcessDialog::closeEvent(QCloseEvent* event)
{
    event->ignore();
    reject();
}
