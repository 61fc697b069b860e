#pragma once

#include "hvutils/hvutils_global.h"

class QComboBox;
class QString;

// Selects the entry with this text, letter by letter; without one, an editable combo box gets it as its edit
// text and any other stays as it is. A null combo box is ignored.
HVUTILS_EXPORT void updateComboWidget(QComboBox* combo, QString text);
