#include "hvdicom/CDicomReader.h"

#include "DicomFile.h"
#include "HeaderMemory.h"

#include <dcmtk/dcmdata/dcdeftag.h>

#include <QFile>
#include <utility>

class CDicomReader::Private
{
public:
    QByteArray path;
    std::shared_ptr<hvdicom::PlainHeader const> plain;  // from the opening until the attributes are read
    hvdicom::DicomFile file;

    bool hasPixels() const { return file.isOpen() && file.layout().elementBytes > 0; }
};

CDicomReader::CDicomReader()
    : d(std::make_unique<Private>())
{}

CDicomReader::~CDicomReader() = default;

bool CDicomReader::isDicom(char const* path)
{
    return hvdicom::isDicomFile(path);
}

tag_estatus CDicomReader::initDicomImporter(QString path)
{
    d = std::make_unique<Private>();
    QByteArray const name = QFile::encodeName(path);
    d->plain = hvdicom::plainHeader(name.constData());
    if (!d->plain && !hvdicom::isDicomFile(name.constData()))
        return hvdicom::isReadableFile(name.constData()) ? eStatusUnsupportedFile : eStatusFileNotReadable;
    d->path = name;
    return eStatusSuccess;
}

tag_estatus CDicomReader::loadEntireDicomInfo()
{
    if (d->path.isEmpty()) return eStatusFailed;
    if (d->file.isOpen()) return eStatusSuccess;
    return d->file.open(d->path, std::move(d->plain)) ? eStatusSuccess : eStatusUnsupportedFile;
}

tag_estatus CDicomReader::readPixelInfo(CILImage* image, unsigned long long frame)
{
    return image && d->file.readFrame(frame, *image) ? eStatusSuccess : eStatusFailed;
}

unsigned long CDicomReader::getTotalFrames() const
{
    return d->hasPixels() ? d->file.layout().frames : 0;
}

unsigned long CDicomReader::getNumberofRows() const
{
    return d->file.layout().rows;
}

unsigned long CDicomReader::getNumberofColumns() const
{
    return d->file.layout().columns;
}

int CDicomReader::getDepth() const
{
    return static_cast<int>(d->file.layout().bitsStored);
}

bool CDicomReader::getPixelSpacing(double& row, double& column) const
{
    std::optional<double> const rows = d->file.number(DCM_PixelSpacing, 0);
    std::optional<double> const columns = d->file.number(DCM_PixelSpacing, 1);
    row = rows.value_or(0.0);
    column = columns.value_or(0.0);
    return rows && columns;
}

double CDicomReader::getSliceSpacing() const
{
    std::optional<double> const spacing = d->file.number(DCM_SpacingBetweenSlices);
    return spacing ? *spacing : d->file.number(DCM_SliceThickness).value_or(0.0);
}

double CDicomReader::getSliceThickness() const
{
    return d->file.number(DCM_SliceThickness).value_or(0.0);
}

double CDicomReader::getSlicePosition() const
{
    return d->file.number(DCM_SliceLocation).value_or(0.0);
}

bool CDicomReader::getSliceLocation(double& x, double& y, double& z) const
{
    bool whole = true;
    double* const components[] = {&x, &y, &z};
    for (unsigned long i = 0; i < 3; ++i) {
        std::optional<double> const value = d->file.number(DCM_ImagePositionPatient, i);
        *components[i] = value.value_or(0.0);
        whole = whole && value;
    }
    return whole;
}

QString CDicomReader::getPatientPosition() const
{
    return d->file.string(DCM_PatientPosition);
}

QString CDicomReader::getModalityName() const
{
    return d->file.string(DCM_Modality);
}

QString CDicomReader::getPhotometricInterpretation() const
{
    return d->file.string(DCM_PhotometricInterpretation);
}

QString CDicomReader::getImplementationVersionName() const
{
    return d->file.implementationVersionName();
}

QMap<QString, SGroupElemInfo> CDicomReader::getGroupElementInfo() const
{
    return d->file.elements();
}
