#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

/// One data set that a browse found: a folder with files of volumetric data. What the first file of the
/// folder tells stands for all of them.
class CVolBrowserInfo
{
public:
    CVolBrowserInfo() = default;
    virtual ~CVolBrowserInfo() = default;
    CVolBrowserInfo(const CVolBrowserInfo&) = default;
    CVolBrowserInfo& operator=(const CVolBrowserInfo&) = default;

    QString m_folder;        ///< full path
    QString m_name;          ///< of the folder; of the sequence where the data belongs to one
    QString m_parentFolder;  ///< absolute path of the folder above
    QString m_type = QStringLiteral("DICOM");  ///< or "TIFF"
    std::int32_t m_fileCount = 1;
    QString m_slices;  ///< number of frames
    QString m_dataType;
    QString m_modality;   ///< DICOM only
    QString m_dimension;  ///< columns x rows of a frame
    QString m_pixelSpacing;
    QString m_sliceSpacing;
    QStringList m_files;            ///< names without the path
    bool m_isCtDataFolder = false;  ///< CT data that is stored inside a sequence
};
