#pragma once

#include "hvdicom/SGroupElemInfo.h"
#include "hvdicom/hvdicom_global.h"
#include "hvutils/tag_estatus.h"

#include <QMap>
#include <QString>
#include <memory>

class CILImage;

// Reader of DICOM files, made for those that this workstation writes. One object reads one file. The readers
// answer after loadEntireDicomInfo(); an attribute that the file does not have gives 0 or an empty text.
class HVDICOM_EXPORT CDicomReader
{
public:
    CDicomReader();
    virtual ~CDicomReader();

    // True for a file in DICOM format, with or without a header of its own, whatever is in it; `path` in the
    // file system's encoding. Pipes and devices are none.
    static bool isDicom(char const* path);

    // Opens a file. 0 on success; 65 when there is no such file or it cannot be read, 11 when it is not
    // DICOM.
    tag_estatus initDicomImporter(QString path);

    // Reads all attributes; pixels stay in the file. 0 on success.
    tag_estatus loadEntireDicomInfo();

    // Reads a frame of a grey picture, counted from 0, into an image of 8, 16 or 32 unsigned bits (the
    // smallest that hold getDepth()) with fresh statistics. 0 on success. Samples are the stored values, made
    // unsigned: signed ones are moved up by half their range, those of MONOCHROME1 are turned over. An image
    // of the same size and type is filled in place.
    tag_estatus readPixelInfo(CILImage* image, unsigned long long frame);

    unsigned long getTotalFrames() const;  // 0 for a file without pixels
    unsigned long getNumberofRows() const;
    unsigned long getNumberofColumns() const;
    int getDepth() const;  // bits of a sample in use

    // Distance of rows and of columns, of slices (their thickness where no distance is told), and the slices'
    // thickness, in mm. False unless both distances are there.
    bool getPixelSpacing(double& row, double& column) const;
    double getSliceSpacing() const;
    double getSliceThickness() const;

    // Position of the slice along its axis; position of its first pixel in space. In mm. False unless all
    // three are there.
    double getSlicePosition() const;
    bool getSliceLocation(double& x, double& y, double& z) const;

    QString getPatientPosition() const;
    QString getModalityName() const;
    QString getPhotometricInterpretation() const;
    QString getImplementationVersionName() const;

    // All attributes, by group and element.
    QMap<QString, SGroupElemInfo> getGroupElementInfo() const;

protected:
    class Private;
    std::unique_ptr<Private> d;

private:
    Q_DISABLE_COPY(CDicomReader)
};
