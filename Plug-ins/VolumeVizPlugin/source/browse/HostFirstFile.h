#pragma once

#include "browse/logic/FolderClassification.h"

#include <QByteArray>

/// A file through the readers of the host. Any thread.
class HostFirstFile : public FirstFile
{
public:
    HostFirstFile(const QString& folder, const QString& name);

    bool isPicture() override;
    bool isImportable() override;
    bool isDecodableDicom() override;
    bool isDicom() override;
    bool isBeside(const QString& fileName) override;

    std::optional<DicomFacts> readDicom() override;
    std::optional<DicomImageFacts> readDicomImage() override;
    TiffFacts readTiff() override;

private:
    const QString m_folder;
    const QString m_path;
    const QByteArray m_fileName;  // the path as the file system has it
};
