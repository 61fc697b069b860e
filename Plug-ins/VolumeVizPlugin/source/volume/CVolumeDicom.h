#pragma once

#include "hvdicom/CDicomReader.h"
#include "hvdicom/SGroupElemInfo.h"
#include "volume/logic/FrameWriter.h"
#include "volume/logic/LoadSize.h"
#include "volume/logic/SliceAxis.h"
#include "volume/logic/SliceOrder.h"
#include "volume/logic/SourceRange.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class CHVDcmImage;
class CHVVolumeVizPalette;
class CILImage;
class DcmFileFormat;
class HeapRoom;
class LoadProgress;

/// Reads DICOM files into one block of 8-bit voxels: a series of files of one frame each, or one file of many
/// frames. Files that this workstation wrote are read by its own reader, all others by DCMTK. Used for one
/// load; the values are undefined until that has returned true.
class CVolumeDicom
{
public:
    /// One file of a series.
    struct ImageDesc
    {
        ImageDesc();
        virtual ~ImageDesc();
        ImageDesc(const ImageDesc&) = delete;
        ImageDesc& operator=(const ImageDesc&) = delete;

        DcmFileFormat* m_file;    ///< the parsed file, owned
        float m_position = 0.0F;  ///< distance along the series from its first file, in mm
    };

    /// @param owner  parent of the dialog, may be null
    explicit CVolumeDicom(CHVVolumeVizPalette* owner);
    virtual ~CVolumeDicom();
    CVolumeDicom(const CVolumeDicom&) = delete;
    CVolumeDicom& operator=(const CVolumeDicom&) = delete;

    /// Loads the files, under a progress dialog that the user can close to stop.
    /// @param files        paths, at least one. The first decides on size and kind; others that are no DICOM,
    ///                     not grey or of another size are left out.
    /// @param first, last  frames of a file of many, from 0; 0xFFFFFFFF for either means all
    /// @param makerData    takes the whole range of 8 or 16 bits for the range of the values
    /// @return false with one entry in the log, and no message box, when there is no volume
    bool loadVolumeFiles(QStringList files, unsigned first, unsigned last, bool makerData);

    // The hand-over to C3DVolumeData::loadVolume takes, in this order: getVoxels, getLoadColumns,
    // getLoadRows, getFrames, getMaxValue, getMinValue, getExtent.

    /// Voxel (x, y, z) stands at x + y * getLoadColumns() + z * getLoadColumns() * getLoadRows(). Which
    /// direction of a slice each of the three is depends on the plane of the slices: see viz::sliceLayout.
    /// The block belongs to the reader.
    unsigned char* getVoxels() const { return m_voxels; }

    unsigned int getColumns() const { return m_columns; }  ///< pixels of a row in the files
    unsigned int getRows() const { return m_rows; }        ///< rows of a frame in the files
    unsigned int getLoadColumns() const { return m_loadColumns; }
    unsigned int getLoadRows() const { return m_loadRows; }
    unsigned int getFrames() const { return m_frames; }

    /// Three extents in mm, in the order of the volume's axes. That of the slices is not finite for a single
    /// file of one frame, and 0 where all slices come to lie in one place.
    float* getExtent() { return m_extent; }
    std::size_t getSliceDirection() const
    {
        return m_sliceDirection;
    }  ///< place of the slices in getExtent()
    unsigned int getSliceCount() const { return m_sliceCount; }

    float getRowSpacing() const { return m_pixelSpacing[0]; }     ///< distance of rows, in mm
    float getColumnSpacing() const { return m_pixelSpacing[1]; }  ///< distance of columns, in mm
    float getSliceSpacing() const { return m_sliceSpacing; }      ///< in mm; not finite for one slice
    /// The distance of slices that the file itself tells, else their thickness, else the distance of rows:
    /// for a volume of one slice. In mm.
    float getNominalSliceSpacing() const;

    float getValueScale() const { return m_valueScale; }              ///< voxel steps for each source step
    float getResolutionFactor() const { return m_resolutionFactor; }  ///< loaded part of the source size
    int getMinValue() const { return m_minValue; }  ///< source value of voxel 0, 32 bits of any sign
    int getMaxValue() const { return m_maxValue; }  ///< source value of voxel 255, 32 bits of any sign

    /// Unit vector from the first slice to the next, in patient coordinates.
    const viz::SlicePoint& getDirection() const { return m_direction; }
    bool isMultiFrame() const { return m_multiFrame; }
    bool isFeetFirst() const { return m_feetFirst; }

    /// Descriptive entries, by group and element.
    QMap<QString, SGroupElemInfo> getInfo() const { return m_info; }
    QStringList getLoadedFiles() const { return m_loadedFiles; }
    QString getManufacturer() const { return m_manufacturer; }

private:
    struct Scan;
    struct FrameRange;

    // Common to all paths.
    bool fail(const char* message) const;
    bool isNative(const QString& path) const;
    void setNumberOfFrames(unsigned frames);
    void checkFeetFirst(viz::SliceAxis axis);
    bool showVolumeInfo(const QString& path, unsigned fileCount);
    viz::LoadSize loadSize() const;
    bool prepareBlock(viz::SliceAxis extentAxis, const viz::SourceRange& range);
    bool addFrame(CILImage& image, const viz::LoadSize& size, bool flipped, viz::FrameWriter& writer) const;
    void swapCounts(viz::SliceAxis axis);
    viz::BlockCounts stackCounts() const { return {m_loadColumns, m_loadRows, m_frames}; }

    // Series of files of any origin.
    bool loadSeries(const QStringList& files, unsigned first, unsigned last);
    bool scanSeries(const QStringList& files, LoadProgress& progress, Scan& scan);
    bool takeReference(const QString& path, ImageDesc& image, bool alone, Scan& scan);
    bool setUpDirection(const QString& path, unsigned fileCount, const ImageDesc& image, Scan& scan);
    bool takeLater(ImageDesc& image, Scan& scan, bool& kept);
    void sortSlices();
    bool loadSlices(const QStringList& files, viz::SliceAxis axis, LoadProgress& progress);

    // One file of many frames, of any origin.
    bool loadMultiFrame(const QString& path, unsigned first, unsigned last);
    viz::SliceAxis findFrameAxis(FrameRange& frames);
    bool readFrameSizes();
    bool scanFrames(CHVDcmImage& source, const FrameRange& frames, LoadProgress& progress,
                    viz::SourceRange& range, std::vector<std::uint32_t>& histogram);
    bool loadFrames(CHVDcmImage& source, const FrameRange& frames, viz::SliceAxis axis,
                    LoadProgress& progress);

    // Files of this workstation.
    struct NativeScan;
    bool loadNativeSeries(const QStringList& files, unsigned first, unsigned last);
    bool scanNativeSeries(const QStringList& files, LoadProgress& progress, NativeScan& scan);
    bool takeNativeReference(CDicomReader& reader, NativeScan& scan);
    void readNativeGeometry(CDicomReader& reader);
    bool setUpNativeDirection(const QString& path, unsigned fileCount, CDicomReader& reader,
                              NativeScan& scan);
    bool loadNativeSlices(const QStringList& files, LoadProgress& progress);
    bool loadNativeMultiFrame(const QString& path, unsigned first, unsigned last);
    viz::SliceAxis findNativeFrameAxis(FrameRange& frames);
    bool addNativeFrame(CILImage& image, const viz::LoadSize& size, viz::FrameWriter& writer) const;

    std::uint32_t m_columns = 0;
    std::uint32_t m_rows = 0;
    std::uint32_t m_loadColumns = 0;
    std::uint32_t m_loadRows = 0;
    std::vector<std::unique_ptr<ImageDesc>> m_images;
    float m_pixelSpacing[2] = {0.0F, 0.0F};  // of rows, of columns
    float m_slicePosition = 0.0F;
    float m_sliceSpacing = 0.0F;
    QString m_patientPosition;
    QString m_imageType;
    float m_extent[3] = {0.0F, 0.0F, 0.0F};
    viz::SlicePoint m_direction{};
    float m_valueScale = 1.0F;
    float m_resolutionFactor = 1.0F;
    std::int32_t m_minValue = 0;
    std::int32_t m_maxValue = 0;
    std::uint8_t* m_voxels = nullptr;
    bool m_multiFrame = false;
    std::uint32_t m_frames = 0;
    QString m_manufacturer;
    QMap<QString, SGroupElemInfo> m_info;
    QStringList m_loadedFiles;
    CDicomReader m_reader;
    bool m_genericPath = false;
    CHVVolumeVizPalette* m_owner = nullptr;
    bool m_makerData = false;
    bool m_feetFirst = false;
    std::size_t m_sliceDirection = 2;
    std::uint32_t m_sliceCount = 0;
    std::unique_ptr<HeapRoom> m_room;  // for the parsed files
};
