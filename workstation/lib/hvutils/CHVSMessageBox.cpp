#include "hvutils/CHVSMessageBox.h"

#include "lib/hvutils/HostServices.h"
#include "lib/hvutils/logic/MessageButtons.h"

int CHVSMessageBox::information(QWidget* parent, QString const& title, QString const& text, int button0,
                                int button1, int button2)
{
    return HostServices::instance().ask(hvutils::questionWithButtons(HostQuestion::Information, parent, title,
                                                                     text, button0, button1, button2));
}

int CHVSMessageBox::warning(QWidget* parent, QString const& title, QString const& text, int button0,
                            int button1, int button2)
{
    return HostServices::instance().ask(
        hvutils::questionWithButtons(HostQuestion::Warning, parent, title, text, button0, button1, button2));
}

int CHVSMessageBox::error(QWidget* parent, QString const& title, QString const& text, int button0,
                          int button1, int button2)
{
    return HostServices::instance().ask(
        hvutils::questionWithButtons(HostQuestion::Error, parent, title, text, button0, button1, button2));
}

int CHVSMessageBox::information(QWidget* parent, QString const& title, QString const& text,
                                QString const& button0, QString const& button1, QString const& button2,
                                int defaultButton, int escapeButton)
{
    return HostServices::instance().ask(hvutils::questionWithTexts(HostQuestion::Information, parent, title,
                                                                   text, button0, button1, button2,
                                                                   defaultButton, escapeButton));
}

int CHVSMessageBox::warning(QWidget* parent, QString const& title, QString const& text,
                            QString const& button0, QString const& button1, QString const& button2,
                            int defaultButton, int escapeButton)
{
    return HostServices::instance().ask(hvutils::questionWithTexts(
        HostQuestion::Warning, parent, title, text, button0, button1, button2, defaultButton, escapeButton));
}
