#include "support/ModalWatcher.h"

#include "support/RenderQuestion.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QWidget>

namespace viz_test {

ModalWatcher::ModalWatcher(QObject* parent)
    : QObject(parent)
{
    m_timer.setInterval(5);
    connect(&m_timer, &QTimer::timeout, this, &ModalWatcher::look);
    m_timer.start();
}

ModalWatcher::~ModalWatcher()
{
    if (!m_answers.empty())
        ADD_FAILURE() << m_answers.size() << " modal window(s) expected by the script did not open";
}

void ModalWatcher::expect(Answer answer)
{
    m_answers.push_back(std::move(answer));
}

void ModalWatcher::expectButton(const QString& buttonText)
{
    expect([buttonText](QWidget* window) {
        const auto buttons = window->findChildren<QAbstractButton*>();
        for (QAbstractButton* button : buttons) {
            QString text = button->text();
            if (text.remove(QLatin1Char('&')) == buttonText) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        ADD_FAILURE() << "no button \"" << buttonText.toStdString() << "\" in the window \""
                      << window->windowTitle().toStdString() << "\"";
        window->close();
    });
}

void ModalWatcher::look()
{
    QWidget* window = QApplication::activeModalWidget();
    if (!window || !window->isVisible()) {
        m_seen.clear();
        return;
    }
    if (m_seen.contains(window)) return;
    if (RenderQuestion::is(window)) return;
    // A progress dialog works for itself: it is no question.
    if (window->inherits("CHVSProgressBar") || window->inherits("QProgressDialog")) return;
    m_seen.append(window);
    // The window object may die inside the answer, and its address may come back with the next one.
    connect(window, &QObject::destroyed, this, [this, window] { m_seen.removeAll(window); });
    m_titles.append(window->windowTitle());
    if (m_answers.empty()) {
        ADD_FAILURE() << "unexpected modal window \"" << window->windowTitle().toStdString() << "\" ("
                      << window->metaObject()->className() << ")";
        window->close();
        if (auto* dialog = qobject_cast<QDialog*>(window)) dialog->reject();
        return;
    }
    const Answer answer = std::move(m_answers.front());
    m_answers.pop_front();
    answer(window);
}

}  // namespace viz_test
