#pragma once

#include "hvutils/hvutils_global.h"
#include "hvutils/tag_estatus.h"

#include <QString>
#include <QStringList>

class QWidget;

// File dialogs of the workstation.
class HVUTILS_EXPORT CHVSFileDialog
{
public:
    CHVSFileDialog() = delete;

    // Asks for the name of a file to write, modally.
    //   path         in: proposed path or folder; out: the absolute path chosen, with an extension
    //   filters      one text per kind of file, as "Name (*.ext)"
    //   extensions   the extension, without a dot, that belongs to the filter of the same index; added to a
    //                name without one
    // Not 0 when the user cancelled; `path` is then unchanged.
    static tag_estatus getSaveFileName(QWidget* parent, QString title, QString& path, QStringList filters,
                                       QStringList extensions);
};
