#include "support/RenderQuestion.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <cstdio>
#include <utility>

namespace viz_test {

namespace {

RenderQuestion::Answer* current = nullptr;

void press(QMessageBox& box, QMessageBox::StandardButton button)
{
    if (QAbstractButton* wanted = box.button(button)) QTest::mouseClick(wanted, Qt::LeftButton);
}

}  // namespace

RenderQuestion::RenderQuestion(QObject* parent)
    : QObject(parent)
{
    m_timer.setInterval(5);
    connect(&m_timer, &QTimer::timeout, this, &RenderQuestion::look);
    m_timer.start();
}

bool RenderQuestion::is(const QWidget* window)
{
    return qobject_cast<const QMessageBox*>(window) &&
           window->windowTitle() == QLatin1String("Choose 3D Rendering Mode: Performance/Quality");
}

void RenderQuestion::look()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible() || !is(box)) return;
    if (current) {
        current->give(*box);
        return;
    }
    std::fprintf(stderr, "question \"%s\": No\n", qPrintable(box->windowTitle()));
    press(*box, QMessageBox::No);
}

RenderQuestion::Answer::Answer(QMessageBox::StandardButton button, std::function<void()> meanwhile)
    : m_button(button)
    , m_meanwhile(std::move(meanwhile))
    , m_former(std::exchange(current, this))
{}

RenderQuestion::Answer::~Answer()
{
    current = m_former;
}

void RenderQuestion::Answer::give(QMessageBox& box)
{
    ++m_count;
    m_title = box.windowTitle();
    m_text = box.text();
    m_buttons = box.standardButtons();
    m_default = box.standardButton(box.defaultButton());
    m_icon = box.icon();
    const QPointer<QMessageBox> shown(&box);
    if (m_meanwhile) m_meanwhile();
    if (shown) press(*shown, m_button);
}

}  // namespace viz_test
