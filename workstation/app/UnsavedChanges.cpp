#include "UnsavedChanges.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvutils/CHVUtilityFns.h"
#include "lib/hvutils/HostServices.h"

#include <QMessageBox>

UnsavedAnswer askToSave(HostServices& services, QWidget* parent, CHVSSequenceDataset& sequence)
{
    const bool isNew = sequence.getSequenceInfoPath().isEmpty();
    HostQuestion question;
    question.kind = HostQuestion::Warning;
    question.parent = parent;
    question.title = CHVUtilityFns::getAppName();
    question.text = QStringLiteral("Save '%1' before it is closed?\n\n%2")
                        .arg(sequence.getSequenceID(),
                             isNew ? QStringLiteral("It was never saved.")
                                   : QStringLiteral("Its folder names another volume than it has now."));
    question.buttons = {{QMessageBox::Save, {}}, {QMessageBox::Discard, {}}, {QMessageBox::Cancel, {}}};
    question.defaultValue = QMessageBox::Save;
    question.escapeValue = QMessageBox::Cancel;
    switch (services.ask(question)) {
    case QMessageBox::Save:
        return UnsavedAnswer::Save;
    case QMessageBox::Discard:
        return UnsavedAnswer::Discard;
    default:
        return UnsavedAnswer::Cancel;
    }
}
