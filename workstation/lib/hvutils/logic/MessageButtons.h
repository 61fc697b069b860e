#pragma once

#include "lib/hvutils/HostServices.h"

namespace hvutils {

// The question that three old-style button values ask: 0 is no button, 256 marks the default. Without any
// button there is an OK. Closing the box answers Cancel if there is one, else No, else the last button.
HostQuestion questionWithButtons(HostQuestion::Kind kind, QWidget* parent, QString const& title,
                                 QString const& text, int button0, int button1, int button2);

// The question with own button texts, answered by their numbers 0 to 2; an empty text is no button, and
// without any there is an OK of number 0. -1 as default or escape stands for none; a box of one button can
// always be closed.
HostQuestion questionWithTexts(HostQuestion::Kind kind, QWidget* parent, QString const& title,
                               QString const& text, QString const& button0, QString const& button1,
                               QString const& button2, int defaultButton, int escapeButton);

}  // namespace hvutils
