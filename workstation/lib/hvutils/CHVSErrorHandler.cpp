#include "hvutils/CHVSErrorHandler.h"

#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVUtilityFns.h"
#include "lib/hvutils/logic/ErrorTexts.h"

void CHVSErrorHandler::errorMessage(QWidget* parent, tag_estatus status, QString detail)
{
    if (status == eStatusSuccess) return;
    QString text = hvutils::errorText(status);
    if (!detail.isEmpty()) text += QStringLiteral("\n\n") + detail;
    CHVSMessageBox::error(parent, CHVUtilityFns::getAppName(), text, CHVSMessageBox::eOk, 0, 0);
}
