#pragma once

#include "hvdicom/SGroupElemInfo.h"

#include <QMap>
#include <QString>

#include <cstdint>

class CHVVolumeVizPalette;
struct RawSource;

/// Reads a file of uncompressed voxels, with or without a text header (.raw, .vox), into one block of 8-bit
/// voxels. What the header does not say is asked for in the volume information dialog. Used for one load; the
/// values are undefined until that has returned true.
class CVolumeRaw
{
public:
    /// @param owner  parent of the dialog, may be null
    explicit CVolumeRaw(CHVVolumeVizPalette* owner);
    virtual ~CVolumeRaw();
    CVolumeRaw(const CVolumeRaw&) = delete;
    CVolumeRaw& operator=(const CVolumeRaw&) = delete;

    /// Loads the file, under a progress dialog that the user can close to stop.
    /// @param path  in the file system's encoding (QFile::encodeName)
    /// @return false with one entry in the log, and no message box, when there is no volume
    bool loadVolumeFile(const char* path);

    // The hand-over to C3DVolumeData::loadVolume takes, in this order: getVoxels, getLoadRows,
    // getLoadColumns, getFrames, getMaxValue, getMinValue, getExtent. Rows stand before columns, though
    // columns run fastest.

    /// Voxel (x, y) of frame f stands at x + y * getLoadColumns() + f * getLoadColumns() * getLoadRows(). The
    /// block belongs to the reader.
    unsigned char* getVoxels() const { return m_voxels; }

    unsigned int getColumns() const { return m_columns; }  ///< pixels of a row in the file
    unsigned int getRows() const { return m_rows; }        ///< rows of a frame in the file
    unsigned int getLoadColumns() const { return m_loadColumns; }
    unsigned int getLoadRows() const { return m_loadRows; }
    unsigned int getFrames() const { return m_frames; }

    /// Three extents in mm: along the columns, along the frames, along the rows.
    float* getExtent() { return m_extent; }

    float getValueScale() const { return m_valueScale; }              ///< voxel steps for each source step
    float getResolutionFactor() const { return m_resolutionFactor; }  ///< loaded part of the source size
    int getMinValue() const { return m_minValue; }                    ///< source value of voxel 0
    int getMaxValue() const { return m_maxValue; }                    ///< source value of voxel 255

    /// Descriptive entries, by name.
    QMap<QString, SGroupElemInfo> getInfo() const { return m_info; }

private:
    bool describe(const char* path, RawSource& source);
    bool readVoxels(const char* path, const RawSource& source);
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
};
