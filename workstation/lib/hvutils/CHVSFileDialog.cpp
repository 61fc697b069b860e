#include "hvutils/CHVSFileDialog.h"

#include "hvutils/CHVSMessageBox.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

namespace {

/// The name with the extension of the chosen filter, unless it has one of those on offer.
QString withExtension(const QString& path, const QStringList& extensions, int chosen)
{
    if (extensions.contains(QFileInfo(path).suffix(), Qt::CaseInsensitive)) return path;
    if (chosen < 0 || chosen >= extensions.size()) return path;
    return path + (path.endsWith(QLatin1Char('.')) ? QString() : QStringLiteral(".")) + extensions[chosen];
}

bool mayReplace(QWidget* parent, const QString& title, const QString& path)
{
    const QString question =
        QStringLiteral("'%1' exists already. Replace it?").arg(QFileInfo(path).fileName());
    return CHVSMessageBox::warning(parent, title, question, CHVSMessageBox::eYes,
                                   CHVSMessageBox::eNo | CHVSMessageBox::eDefault,
                                   CHVSMessageBox::eNoButton) == CHVSMessageBox::eYes;
}

}  // namespace

tag_estatus CHVSFileDialog::getSaveFileName(QWidget* parent, QString title, QString& path,
                                            QStringList filters, QStringList extensions)
{
    QString proposed = path;
    QString filter = filters.value(0);
    const QPointer<QWidget> owner(parent);
    for (;;) {
        // On the heap: an owner that goes while the user thinks takes the dialog with it.
        const QPointer<QFileDialog> dialog(new QFileDialog(parent, title));
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setFileMode(QFileDialog::AnyFile);
        dialog->setNameFilters(filters);
        dialog->selectNameFilter(filter);
        // The dialog's own question knows nothing of the extension that is added here.
        dialog->setOption(QFileDialog::DontConfirmOverwrite);
        if (QFileInfo(proposed).isDir())
            dialog->setDirectory(proposed);
        else if (!proposed.isEmpty())
            dialog->selectFile(proposed);
        const bool isAccepted = dialog->exec() == QDialog::Accepted;
        if (!dialog) return eStatusFailed;
        filter = dialog->selectedNameFilter();
        proposed = dialog->selectedFiles().value(0);
        delete dialog;
        if (!isAccepted) return eStatusFailed;
        if (proposed.isEmpty()) continue;
        proposed = QFileInfo(withExtension(proposed, extensions, filters.indexOf(filter))).absoluteFilePath();
        if (!QFileInfo::exists(proposed) || mayReplace(parent, title, proposed)) break;
        if (parent && !owner) return eStatusFailed;
    }
    path = proposed;
    return eStatusSuccess;
}
