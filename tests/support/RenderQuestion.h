#pragma once

#include <QMessageBox>
#include <QTimer>

#include <functional>

namespace viz_test {

/// Answers the question whether a volume is drawn in quality though a frame takes too long. On a machine
/// without a graphics card any load may ask it, so that no script can foresee it: the main of the test
/// programs answers No, and tells on stderr. ModalWatcher leaves this one question alone.
class RenderQuestion : public QObject
{
public:
    explicit RenderQuestion(QObject* parent = nullptr);

    static bool is(const QWidget* window);

    /// Another answer, as long as one lives. `meanwhile` runs before the answer is given.
    class Answer
    {
    public:
        explicit Answer(QMessageBox::StandardButton button, std::function<void()> meanwhile = {});
        ~Answer();
        Answer(const Answer&) = delete;
        Answer& operator=(const Answer&) = delete;

        /// How often it was asked for, and what it was asked by last.
        int count() const { return m_count; }
        QString title() const { return m_title; }
        QString text() const { return m_text; }
        QMessageBox::StandardButtons buttons() const { return m_buttons; }
        QMessageBox::StandardButton defaultButton() const { return m_default; }
        QMessageBox::Icon icon() const { return m_icon; }

    private:
        friend class RenderQuestion;
        void give(QMessageBox& box);

        const QMessageBox::StandardButton m_button;
        const std::function<void()> m_meanwhile;
        Answer* const m_former;
        int m_count = 0;
        QString m_title;
        QString m_text;
        QMessageBox::StandardButtons m_buttons;
        QMessageBox::StandardButton m_default = QMessageBox::NoButton;
        QMessageBox::Icon m_icon = QMessageBox::NoIcon;
    };

private:
    void look();

    QTimer m_timer;
};

}  // namespace viz_test
