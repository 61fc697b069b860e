#pragma once

#include "hvapi/scene/C3DObject.h"
#include "hvapi/scene/CGLProgram.h"
#include "hvapi/values/_tagAxis_Orientation.h"

#include <memory>

/// A volume of 8-bit voxels in a scene: the data, and the settings that every way of drawing it shares.
///
/// Voxels are stored with the width running fastest, then the height, then the depth. The box is in the
/// volume's own space, in millimetres; width, height and depth lie along x, y and z.
///
/// Who shows the values of a volume in a unit of their own tells the views of it by three dynamic properties:
/// "valueUnit", the name of the unit, and "valueAtLowest" and "valueAtHighest", real numbers for which voxels
/// 0 and 255 stand. Without them values are counts from `getMin` to `getMax`.
class HVAPI_EXPORT C3DVolumeData : public C3DObject
{
    Q_OBJECT

public:
    /// A volume without voxels, with an empty box, the axis orientation +1, +1, +1 and the default colour
    /// table: a grey ramp (red, green and blue equal the voxel value), clear up to 60 and opaque from 180,
    /// with the alpha 255 * (3 s^2 - 2 s^3), s = (value - 60) / 120, between them: bone shows, air and soft
    /// tissue do not.
    explicit C3DVolumeData(QString name);
    ~C3DVolumeData() override;

    /// True when there are voxels.
    bool isValid() override;
    void getBBox(Coord3d& min, Coord3d& max) override;
    void getTransformedBBox(Coord3d& min, Coord3d& max) override;

    /// Takes a copy of a * b * c voxels, with a running fastest, and the source values that voxels 255 and 0
    /// stand for. `extent` holds three lengths in millimetres: extent[0] belongs to a, extent[2] to b,
    /// extent[1] to c. a, b and c become width, height and depth, and the box is centred on the origin.
    /// False, with the former volume left as it was, for null pointers, a count of 0, counts or a product
    /// that exceed what an address or a 32-bit signed count can hold, a length that is not finite or not
    /// above 0, and when there is no memory. Emits `boundingBoxChanged` and then `volumeDataChanged`, and
    /// views of the scene repaint.
    bool loadVolume(unsigned char* voxels, unsigned int a, unsigned int b, unsigned int c,
                    unsigned long maxValue, unsigned long minValue, float* extent);
    /// The same, but no view repaints, and `volumeDataChanged` is emitted only when `bNotify` is set.
    bool loadVolumeNotUpdate3DView(unsigned char* voxels, unsigned int a, unsigned int b, unsigned int c,
                                   unsigned long maxValue, unsigned long minValue, float* extent,
                                   bool bNotify);
    /// Forgets the size and the file of the previous raw load; the voxels stay.
    void resetRawSize();
    /// The path of the file that holds the voxels as they were loaded. It can serve as the source of a
    /// reload.
    void setRAWVolumeDataFile(QString path);

    /// The voxels, or null. Valid until the next load or `freeVoxelData`.
    unsigned char* getVolumeData();
    /// Counts in voxels; 0 when no volume was ever loaded. They stay when the voxels are freed.
    int getWidth() const;
    int getHeight() const;
    int getDepth() const;
    /// The source values of voxel 0 and of voxel 255.
    int getMin() const;
    int getMax() const;
    /// Gives the memory of the voxels back. Counts, box and range stay.
    void freeVoxelData();

    /// Length of a voxel along x, y and z in millimetres.
    Coord3d getThickness() const;
    /// Sets it and makes the box anew, centred on the origin; emits `boundingBoxChanged`. Lengths that are
    /// not finite or not above 0 are ignored as a whole.
    void setThickness(Coord3d thickness);
    _tagAxis_Orientation getAxisOrientation() const;
    /// True stands for -1. Emits `boundingBoxChanged` on a change.
    void setAxisOrientation(bool bInvertX, bool bInvertY, bool bInvertZ);
    /// Replaces the box; the thickness follows from it. Coordinates that are not finite, or a max below its
    /// min, are ignored as a whole. Emits `boundingBoxChanged`.
    void setBBox(Coord3d& min, Coord3d& max);

    /// Copies 256 entries of R, G, B, A; the caller keeps the table. Null is ignored.
    void setVolumeColorTable(unsigned char* table);
    /// The 256 entries; valid as long as the volume.
    const unsigned char* getVolumeColorTable() const;
    /// The voxel value from which the volume counts as solid for picking and measuring.
    void setVolumeRenderThreshold(unsigned char threshold);
    unsigned char getVolumeRenderThreshold() const;

    /// A crop tool of the view changed the crop planes; `bModified` tells that the user's work has changed.
    /// The base asks the views to repaint.
    virtual void notifyCropEquationsChanged(bool bModified);
    /// Fills the colour table of the slices. The base has none of its own: its slices use the volume's.
    virtual void updateSliceColorTable();

signals:
    /// The box, the thickness or the axis orientation has changed.
    void boundingBoxChanged();
    /// The voxels have been replaced.
    void volumeDataChanged();

protected:
    CGLProgram m_volumeProgram;
    /// The table below has been sent to its texture.
    bool m_bVolumeColorTableUploaded;
    /// R, G, B, A for each voxel value.
    unsigned char m_volumeColorTable[256 * 4];
    /// Slices keep the colour table that they have.
    bool m_bSliceColorTableLocked;

private:
    Q_DISABLE_COPY(C3DVolumeData)
    struct Private;
    std::unique_ptr<Private> d;
};
