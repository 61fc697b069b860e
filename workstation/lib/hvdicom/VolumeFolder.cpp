#include "VolumeFolder.h"

#include "hvdicom/CDicomReader.h"
#include "hvdicom/sortDICOMFileListByPosition.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace hvdicom {

QStringList filesOfVolume(QString const& folder)
{
    QDir const dir(folder);
    QStringList files = dir.entryList(QDir::Files, QDir::Name);
    for (QString& file : files)
        file = dir.absoluteFilePath(file);
    bool const isScan = std::any_of(files.cbegin(), files.cend(), [](QString const& file) {
        return CDicomReader::isDicom(QFile::encodeName(file).constData());
    });
    return isScan ? sortDICOMFileListByPosition(files, QString()) : files;
}

}  // namespace hvdicom
