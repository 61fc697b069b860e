#include "hvutils/updateComboWidget.h"

#include <QComboBox>

void updateComboWidget(QComboBox* combo, QString text)
{
    if (!combo) return;
    int const index = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        combo->setCurrentIndex(index);
    else if (combo->isEditable())
        combo->setEditText(text);
}
