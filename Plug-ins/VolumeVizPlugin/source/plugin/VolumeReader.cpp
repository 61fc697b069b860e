#include "plugin/VolumeReader.h"

#include "hvapi/sequence/CDicomImporter.h"
#include "hvdicom/CDicomReader.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvimage/CILImage.h"
#include "plugin/logic/Manufacturer.h"
#include "plugin/logic/SourceLimits.h"
#include "render/CGLVolume.h"
#include "volume/CVolumeDicom.h"
#include "volume/CVolumeRaw.h"
#include "volume/CVolumeTiff.h"

#include <QFile>
#include <algorithm>

namespace {

unsigned long pattern(int value)
{
    return static_cast<unsigned long>(value);
}

class RawReader : public VolumeReader
{
public:
    explicit RawReader(CHVVolumeVizPalette* palette)
        : m_reader(palette)
    {}

    bool read(const QStringList& files, int, int) override
    {
        m_files = files.mid(0, 1);
        return m_reader.loadVolumeFile(QFile::encodeName(m_files.value(0)).constData());
    }

    // Rows before columns, though columns run fastest: a volume with unequal counts comes out sheared.
    bool giveTo(CGLVolume& node) override
    {
        return node.loadVolume(m_reader.getVoxels(), m_reader.getLoadRows(), m_reader.getLoadColumns(),
                               m_reader.getFrames(), pattern(m_reader.getMaxValue()),
                               pattern(m_reader.getMinValue()), m_reader.getExtent());
    }

    QStringList loadedFiles() const override { return m_files; }

private:
    CVolumeRaw m_reader;
    QStringList m_files;
};

class TiffReader : public VolumeReader
{
public:
    explicit TiffReader(CHVVolumeVizPalette* palette)
        : m_reader(palette)
    {}

    bool read(const QStringList& files, int first, int last) override
    {
        return m_reader.loadVolumeFiles(files, static_cast<unsigned>(first), static_cast<unsigned>(last));
    }

    bool giveTo(CGLVolume& node) override
    {
        return node.loadVolume(m_reader.getVoxels(), m_reader.getLoadColumns(), m_reader.getFrames(),
                               m_reader.getLoadRows(), pattern(m_reader.getMaxValue()),
                               pattern(m_reader.getMinValue()), m_reader.getExtent());
    }

    QStringList loadedFiles() const override { return m_reader.getLoadedFiles(); }

private:
    CVolumeTiff m_reader;
};

class DicomReader : public VolumeReader
{
public:
    explicit DicomReader(CHVVolumeVizPalette* palette)
        : m_reader(palette)
    {}

    bool read(const QStringList& files, int first, int last) override
    {
        // Asked before any file is read, so that the range of the values comes from the files.
        const bool makersOwn = isMakersOwn(m_reader.getManufacturer());
        return m_reader.loadVolumeFiles(files, static_cast<unsigned>(first), static_cast<unsigned>(last),
                                        makersOwn);
    }

    bool giveTo(CGLVolume& node) override
    {
        float extent[3];
        std::copy_n(m_reader.getExtent(), 3, extent);
        float& stack = extent[m_reader.getSliceDirection()];
        stack = stackLength(stack, m_reader.getSliceCount(), m_reader.getNominalSliceSpacing(),
                            m_reader.getRowSpacing());
        return node.loadVolume(m_reader.getVoxels(), m_reader.getLoadColumns(), m_reader.getLoadRows(),
                               m_reader.getFrames(), pattern(m_reader.getMaxValue()),
                               pattern(m_reader.getMinValue()), extent);
    }

    QStringList loadedFiles() const override { return m_reader.getLoadedFiles(); }
    QString manufacturer() const override { return m_reader.getManufacturer(); }

private:
    CVolumeDicom m_reader;
};

bool isTiff(const QString& path)
{
    return CILImage::canInitFromFile(QFile::encodeName(path).constData()) != 0;
}

bool isHostPicture(const QString& path)
{
    CDicomImporter importer;
    return importer.initDicomImporter(path) == eStatusSuccess && importer.isDicom(true);
}

bool isDicom(const QString& path)
{
    const QByteArray encoded = QFile::encodeName(path);
    return CHVDcmImage::isDICOM(encoded.constData()) || CDicomReader::isDicom(encoded.constData());
}

}  // namespace

std::unique_ptr<VolumeReader> VolumeReader::of(FileKind kind, CHVVolumeVizPalette* palette)
{
    switch (kind) {
    case FileKind::Raw:
        return std::make_unique<RawReader>(palette);
    case FileKind::Tiff:
        return std::make_unique<TiffReader>(palette);
    case FileKind::Dicom:
        return std::make_unique<DicomReader>(palette);
    case FileKind::NotAVolume:
    case FileKind::HostPicture:
        break;
    }
    return nullptr;
}

FileKind kindOfFile(const QString& path)
{
    return fileKind(path, {isTiff, isHostPicture, isDicom});
}
