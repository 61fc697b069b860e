#pragma once

#include "hvdicom/SGroupElemInfo.h"
#include "hvdicom/hvdicom_global.h"

#include <QList>
#include <QMap>
#include <QString>
#include <memory>

class CILImage;

// Pixels and attributes of a DICOM file of any origin. Frames are counted from 1.
//
// Samples are the stored values of the file, made unsigned: signed ones are moved up by half their range, and
// those of MONOCHROME1 are turned over, so that a higher sample is always a brighter one. No rescaling, no
// window.
class HVDICOM_EXPORT CHVDcmImage
{
public:
    CHVDcmImage();
    ~CHVDcmImage();

    // True for a DICOM file that LoadFromDICOMFile accepts; `path` in the file system's encoding.
    static bool isDICOM(char const* path);

    // Opens a file: true when it has integer pixels of at most 32 bits whose size agrees with the data and
    // that can be decoded here, colour included. Frames are decoded when they are asked for. The readers
    // below answer after success; the attributes also when the file was DICOM, but refused.
    bool LoadFromDICOMFile(QString path);

    unsigned long getWidth() const;
    unsigned long getHeight() const;
    int getDepth() const;        // bits that a sample of get_data takes: 8, 16 or 32
    int getActualDepth() const;  // bits of it in use
    unsigned long getFrameCount() const;
    int getBytesPerSample() const;

    // 1 unknown, 2 lowest value white, 3 lowest value black, higher values are colour pictures.
    int getPhotometricInterpretation() const;

    // Samples of a frame of a grey picture, getDepth() bits each, rows from top to bottom; null when there is
    // no such frame or it does not decode. Owned by this object, and valid until the next call.
    void* get_data(unsigned long frame);

    // The same as an image with fresh statistics; false where get_data is null.
    bool getDicomImage(unsigned long frame, CILImage& image);

    // Value of an attribute, group and element as four hexadecimal digits; empty when absent.
    QString getTagValue(QString group, QString element) const;

    // The items of a sequence attribute, each by group and element.
    QList<QMap<QString, SGroupElemInfo>> getHeaderTagSequence(unsigned short group,
                                                              unsigned short element) const;

    // All attributes of the first level, by group and element.
    QMap<QString, SGroupElemInfo> getGroupElementInfo() const;

private:
    Q_DISABLE_COPY(CHVDcmImage)
    class Private;
    std::unique_ptr<Private> d;
};
