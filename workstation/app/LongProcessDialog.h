#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

struct HostProcessState;

/// Shows how far a long process is, modally; offers the abort where the process does. Short processes come
/// and go without it. It does not close before the process has ended.
class LongProcessDialog : public QProgressDialog
{
    Q_OBJECT

public:
    explicit LongProcessDialog(QWidget* parent);

    /// Brings the dialog in step with `state`. While it is on show, events are handled, so that the work,
    /// which sits in the same thread, need not do so for the dialog's sake.
    void show(const HostProcessState& state);

    /// Milliseconds from the start of a process until the dialog opens.
    static constexpr int patience = 300;

signals:
    void abortRequested();

protected:
    void reject() override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_abortable = false;
    bool m_handlingEvents = false;
    QElapsedTimer m_sinceStart;
};
