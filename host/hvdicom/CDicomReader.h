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

    // True for a file in DICOM format; `path` in the file system's encoding.
    static bool isDicom(char const* path);

    // Opens a file. 0 on success.
    tag_estatus initDicomImporter(QString path);

    // Reads all attributes. 0 on success.
    tag_estatus loadEntireDicomInfo();

    // Decodes a frame, counted from 0, into an image of 8, 16 or 32 bits with fresh statistics. 0 on success.
    tag_estatus readPixelInfo(CILImage* image, unsigned long long frame);

    unsigned long getTotalFrames() const;
    unsigned long getNumberofRows() const;
    unsigned long getNumberofColumns() const;
    int getDepth() const;  // bits of a sample

    // Distance of rows and of columns, of slices, and the slices' thickness, in mm.
    bool getPixelSpacing(double& row, double& column) const;
    double getSliceSpacing() const;
    double getSliceThickness() const;

    // Position of the slice along its axis; position of its first pixel in space. In mm.
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
