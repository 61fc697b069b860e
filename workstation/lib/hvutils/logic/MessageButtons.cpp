#include "lib/hvutils/logic/MessageButtons.h"

#include "hvutils/CHVSMessageBox.h"

#include <algorithm>

namespace hvutils {

namespace {

HostQuestion withoutButtons(HostQuestion::Kind kind, QWidget* parent, QString const& title,
                            QString const& text)
{
    HostQuestion question;
    question.kind = kind;
    question.parent = parent;
    question.title = title;
    question.text = text;
    return question;
}

bool hasButton(HostQuestion const& question, int value)
{
    return std::any_of(question.buttons.begin(), question.buttons.end(),
                       [&](HostQuestion::Button const& button) { return button.value == value; });
}

}  // namespace

HostQuestion questionWithButtons(HostQuestion::Kind kind, QWidget* parent, QString const& title,
                                 QString const& text, int button0, int button1, int button2)
{
    // 512 once marked the escape button; it is no part of the value either.
    constexpr int marks = CHVSMessageBox::eDefault | 512;
    HostQuestion question = withoutButtons(kind, parent, title, text);
    for (int const button : {button0, button1, button2}) {
        int const value = button & ~marks;
        if (value == 0 || hasButton(question, value)) continue;
        question.buttons.append({value, QString()});
        if (button & CHVSMessageBox::eDefault) question.defaultValue = value;
    }
    if (question.buttons.isEmpty()) question.buttons.append({CHVSMessageBox::eOk, QString()});
    question.escapeValue = question.buttons.last().value;
    for (int const value : {CHVSMessageBox::eNo, CHVSMessageBox::eCancel}) {
        if (hasButton(question, value)) question.escapeValue = value;
    }
    return question;
}

HostQuestion questionWithTexts(HostQuestion::Kind kind, QWidget* parent, QString const& title,
                               QString const& text, QString const& button0, QString const& button1,
                               QString const& button2, int defaultButton, int escapeButton)
{
    HostQuestion question = withoutButtons(kind, parent, title, text);
    int number = 0;
    for (QString const& label : {button0, button1, button2}) {
        if (!label.isEmpty()) question.buttons.append({number, label});
        ++number;
    }
    if (question.buttons.isEmpty()) question.buttons.append({0, QStringLiteral("OK")});
    question.defaultValue =
        hasButton(question, defaultButton) ? defaultButton : question.buttons.first().value;
    question.canEscape = hasButton(question, escapeButton) || question.buttons.size() == 1;
    question.escapeValue = hasButton(question, escapeButton) ? escapeButton : question.buttons.last().value;
    return question;
}

}  // namespace hvutils
