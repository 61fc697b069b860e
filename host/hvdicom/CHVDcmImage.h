#pragma once

#include "hvdicom/SGroupElemInfo.h"
#include "hvdicom/hvdicom_global.h"

#include <QList>
#include <QMap>
#include <QString>
#include <memory>

class CILImage;

// Pixels and attributes of a DICOM file of any origin. Frames are counted from 1.
class HVDICOM_EXPORT CHVDcmImage
{
public:
    CHVDcmImage();
    ~CHVDcmImage();

    // True for a DICOM file with pixels that LoadFromDICOMFile can decode; `path` in the file system's
    // encoding.
    static bool isDICOM(char const* path);

    // Reads a file, its pixels included. The readers below answer after success.
    bool LoadFromDICOMFile(QString path);

    unsigned long getWidth() const;
    unsigned long getHeight() const;
    int getDepth() const;        // bits that a sample takes in the file
    int getActualDepth() const;  // bits of it in use
    unsigned long getFrameCount() const;
    int getBytesPerSample() const;

    // 1 unknown, 2 lowest value white, 3 lowest value black, higher values are colour pictures.
    int getPhotometricInterpretation() const;

    // Samples of a frame, rows from top to bottom; null when there is no such frame. Owned by this object.
    void* get_data(unsigned long frame);

    // A frame as an image with fresh statistics.
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
