#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>

class QWidget;

namespace viz_test {

/// Answers modal windows from a script, so that no test waits for a person.
///
/// Answers are used in the order in which they were given, one for each modal window that opens. A window
/// without an answer fails the test and is closed. An answer that is never asked for fails the test as well.
///
///     ModalWatcher watcher;
///     watcher.expect([](QWidget* w) { qobject_cast<QDialog*>(w)->accept(); });
///     widget.doSomethingThatAsks();
class ModalWatcher : public QObject
{
public:
    using Answer = std::function<void(QWidget* window)>;

    explicit ModalWatcher(QObject* parent = nullptr);
    ~ModalWatcher() override;

    /// The next modal window gets this answer. The answer must close the window (accept, reject, click) at
    /// once or later; it is called once.
    void expect(Answer answer);

    /// The next modal window must be a message box or dialog with a button of this text; it is clicked.
    void expectButton(const QString& buttonText);

    /// Titles of the windows that were answered, in order.
    const QStringList& answeredTitles() const { return m_titles; }

private:
    void look();

    QTimer m_timer;
    std::deque<Answer> m_answers;
    QStringList m_titles;
    QList<QWidget*> m_seen;
};

}  // namespace viz_test
