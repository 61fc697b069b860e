#pragma once

#include "hvdicom/SGroupElemInfo.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

class CHVVolumeVizPalette;
class CILImage;
class LoadProgress;

namespace viz {
struct LoadSize;
struct UnsignedRange;
}  // namespace viz

/// Reads TIFF files, one frame a file or all frames in one file, into one block of 8-bit voxels. Used for one
/// load; the values are undefined until that has returned true.
class CVolumeTiff
{
public:
    /// Stands for all frames, as the first or the last one.
    static constexpr unsigned allFrames = 0xFFFFFFFFU;

    /// @param owner  parent of the dialog, may be null
    explicit CVolumeTiff(CHVVolumeVizPalette* owner);
    virtual ~CVolumeTiff();
    CVolumeTiff(const CVolumeTiff&) = delete;
    CVolumeTiff& operator=(const CVolumeTiff&) = delete;

    /// Loads a stack of files, in the order of the list, or the pages of a single file, under a progress
    /// dialog that the user can close to stop.
    /// @param first, last  pages of a single file, from 0; of no use for a stack
    /// @return false with one entry of its own in the log, and no message box, when there is no volume
    bool loadVolumeFiles(QStringList files, unsigned first, unsigned last);

    // The hand-over to C3DVolumeData::loadVolume takes, in this order: getVoxels, getLoadColumns, getFrames,
    // getLoadRows, getMaxValue, getMinValue, getExtent.

    /// Pixel (x, y) of frame f stands at x + f * W + (H - 1 - y) * W * F, with W = getLoadColumns(), H =
    /// getLoadRows(), F = getFrames(). The block belongs to the reader.
    unsigned char* getVoxels() const { return m_voxels; }

    unsigned int getColumns() const { return m_columns; }  ///< pixels of a row in the file
    unsigned int getRows() const { return m_rows; }        ///< rows of a frame in the file
    unsigned int getLoadColumns() const { return m_loadColumns; }
    unsigned int getLoadRows() const { return m_loadRows; }
    unsigned int getFrames() const { return m_frames; }

    /// Three extents in mm: along the columns, along the rows, along the frames.
    float* getExtent() { return m_extent; }

    float getValueScale() const { return m_valueScale; }              ///< voxel steps for each source step
    float getResolutionFactor() const { return m_resolutionFactor; }  ///< loaded part of the source size
    int getMinValue() const
    {
        return m_minValue;
    }  ///< source value of voxel 0, unsigned 32 bits as they stand
    int getMaxValue() const { return m_maxValue; }  ///< the same of voxel 255

    float getSpacingX() const { return m_spacingX; }          ///< mm; the file's X resolution as it stands
    float getSpacingY() const { return m_spacingY; }          ///< mm; the file's Y resolution as it stands
    float getSliceSpacing() const { return m_sliceSpacing; }  ///< mm
    const float* getDirection() const
    {
        return m_direction;
    }  ///< unit vector from the first to the second frame

    /// Descriptive entries, by name.
    QMap<QString, SGroupElemInfo> getInfo() const { return m_info; }

    /// Files that gave frames, in order.
    QStringList getLoadedFiles() const { return m_loadedFiles; }

private:
    bool loadStack(const QStringList& files);
    bool loadPages(const QString& file, unsigned first, unsigned last);
    bool scanStack(const QStringList& files, LoadProgress& progress, viz::UnsignedRange& range,
                   viz::LoadSize& size, std::vector<bool>& accepted);
    bool fillFromStack(const QStringList& files, LoadProgress& progress, const viz::LoadSize& size,
                       const std::vector<bool>& accepted);
    bool fillFromPages(CILImage& image, unsigned first, LoadProgress& progress, const viz::LoadSize& size);
    void describe(const CILImage& image);
    bool showVolumeInfo(const QString& path, unsigned frames, viz::LoadSize& size);
    bool isOfReferenceSize(const CILImage& image) const;
    bool allocate(viz::UnsignedRange range, const viz::LoadSize& size);
    bool store(CILImage& image, CILImage& working, unsigned frame, const viz::LoadSize& size);
    void addInfo(const QString& name, const QString& value);

    std::uint32_t m_columns = 0;
    std::uint32_t m_rows = 0;
    std::uint32_t m_loadColumns = 0;
    std::uint32_t m_loadRows = 0;
    std::uint32_t m_frames = 0;
    float m_extent[3] = {0.0F, 0.0F, 0.0F};
    float m_valueScale = 1.0F;
    float m_resolutionFactor = 1.0F;
    std::int32_t m_minValue = 0;
    std::int32_t m_maxValue = 0;
    std::uint8_t* m_voxels = nullptr;
    QMap<QString, SGroupElemInfo> m_info;
    CHVVolumeVizPalette* m_owner = nullptr;
    float m_spacingX = 0.0F;
    float m_spacingY = 0.0F;
    float m_sliceSpacing = 0.0F;
    float m_direction[3] = {0.0F, 0.0F, 0.0F};
    std::uint8_t m_multiFrame = 0;
    QStringList m_loadedFiles;
};
