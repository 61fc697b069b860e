#include "hvapi/scene/C3DVolumeData.h"

#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/scene/VoxelBlock.h"
#include "lib/hvapi/scene/logic/DefaultColorTable.h"
#include "lib/hvapi/scene/logic/VolumeSize.h"

#include <QString>
#include <cstring>

using hvscene::Vec3;

namespace {

Coord3d toCoord(Vec3 v)
{
    return {v.x, v.y, v.z};
}

/// Values of the source are 32-bit integers: the low 32 bits hold them, negative ones included.
int sourceValue(unsigned long value)
{
    return static_cast<qint32>(static_cast<quint32>(value));
}

}  // namespace

struct C3DVolumeData::Private
{
    hvscene::VoxelBlock voxels;
    int width = 0;
    int height = 0;
    int depth = 0;
    int min = 0;
    int max = 0;
    Vec3 thickness;
    Vec3 boxMin;
    Vec3 boxMax;
    _tagAxis_Orientation orientation;
    QString rawFile;
    unsigned char threshold = hvscene::clearUpTo;

    bool load(const unsigned char* source, const hvscene::VolumeSize& size)
    {
        const std::size_t count = size.voxels();
        // A block of the same size is used again, so that a filter's result does not need the memory twice.
        if (voxels.size() != count) {
            hvscene::VoxelBlock block = hvscene::VoxelBlock::allocate(count);
            if (!block.data()) return false;
            std::memcpy(block.data(), source, count);
            voxels = std::move(block);
        } else {
            std::memmove(voxels.data(), source, count);
        }
        width = size.width;
        height = size.height;
        depth = size.depth;
        thickness = size.thickness();
        boxMin = size.box().min;
        boxMax = size.box().max;
        return true;
    }
};

C3DVolumeData::C3DVolumeData(QString name)
    : C3DObject(name)
    , m_bVolumeColorTableUploaded(false)
    , m_bSliceColorTableLocked(false)
    , d(std::make_unique<Private>())
{
    hvscene::writeDefaultColorTable(m_volumeColorTable);
}

C3DVolumeData::~C3DVolumeData() = default;

bool C3DVolumeData::isValid()
{
    return d->voxels.data() != nullptr;
}

void C3DVolumeData::getBBox(Coord3d& min, Coord3d& max)
{
    min = toCoord(d->boxMin);
    max = toCoord(d->boxMax);
}

void C3DVolumeData::getTransformedBBox(Coord3d& min, Coord3d& max)
{
    C3DObject::getTransformedBBox(min, max);
}

bool C3DVolumeData::loadVolume(unsigned char* voxels, unsigned int a, unsigned int b, unsigned int c,
                               unsigned long maxValue, unsigned long minValue, float* extent)
{
    if (!loadVolumeNotUpdate3DView(voxels, a, b, c, maxValue, minValue, extent, true)) return false;
    hvscene::repaintViewsOf(this);
    return true;
}

bool C3DVolumeData::loadVolumeNotUpdate3DView(unsigned char* voxels, unsigned int a, unsigned int b,
                                              unsigned int c, unsigned long maxValue, unsigned long minValue,
                                              float* extent, bool bNotify)
{
    if (!voxels) return false;
    const auto size = hvscene::volumeSize(a, b, c, extent, hvscene::VoxelBlock::largest());
    if (!size || !d->load(voxels, *size)) return false;
    d->min = sourceValue(minValue);
    d->max = sourceValue(maxValue);
    emit boundingBoxChanged();
    if (bNotify) emit volumeDataChanged();
    return true;
}

void C3DVolumeData::resetRawSize()
{
    d->rawFile.clear();
}

void C3DVolumeData::setRAWVolumeDataFile(QString path)
{
    d->rawFile = path;
}

unsigned char* C3DVolumeData::getVolumeData()
{
    return d->voxels.data();
}

int C3DVolumeData::getWidth() const
{
    return d->width;
}

int C3DVolumeData::getHeight() const
{
    return d->height;
}

int C3DVolumeData::getDepth() const
{
    return d->depth;
}

int C3DVolumeData::getMin() const
{
    return d->min;
}

int C3DVolumeData::getMax() const
{
    return d->max;
}

void C3DVolumeData::freeVoxelData()
{
    d->voxels = hvscene::VoxelBlock();
}

Coord3d C3DVolumeData::getThickness() const
{
    return toCoord(d->thickness);
}

void C3DVolumeData::setThickness(Coord3d thickness)
{
    const Vec3 t{thickness.x, thickness.y, thickness.z};
    const Vec3 half = Vec3{t.x * d->width, t.y * d->height, t.z * d->depth} * 0.5;
    if (!hvscene::isLength(t) || !hvscene::isFinite(half)) return;
    d->thickness = t;
    d->boxMin = half * -1.0;
    d->boxMax = half;
    emit boundingBoxChanged();
    hvscene::repaintViewsOf(this);
}

_tagAxis_Orientation C3DVolumeData::getAxisOrientation() const
{
    return d->orientation;
}

void C3DVolumeData::setAxisOrientation(bool bInvertX, bool bInvertY, bool bInvertZ)
{
    const _tagAxis_Orientation wanted{bInvertX ? -1 : 1, bInvertY ? -1 : 1, bInvertZ ? -1 : 1};
    _tagAxis_Orientation& o = d->orientation;
    if (o.x == wanted.x && o.y == wanted.y && o.z == wanted.z) return;
    o = wanted;
    emit boundingBoxChanged();
    hvscene::repaintViewsOf(this);
}

void C3DVolumeData::setBBox(Coord3d& min, Coord3d& max)
{
    const Vec3 low{min.x, min.y, min.z};
    const Vec3 high{max.x, max.y, max.z};
    const Vec3 lengths = high - low;
    if (!hvscene::isFinite(low) || !hvscene::isFinite(high) || !hvscene::isLength(lengths)) return;
    d->boxMin = low;
    d->boxMax = high;
    if (d->width > 0) d->thickness = {lengths.x / d->width, lengths.y / d->height, lengths.z / d->depth};
    emit boundingBoxChanged();
    hvscene::repaintViewsOf(this);
}

void C3DVolumeData::setVolumeColorTable(unsigned char* table)
{
    if (!table) return;
    std::memmove(m_volumeColorTable, table, sizeof m_volumeColorTable);
    m_bVolumeColorTableUploaded = false;
    hvscene::repaintViewsOf(this);
}

const unsigned char* C3DVolumeData::getVolumeColorTable() const
{
    return m_volumeColorTable;
}

void C3DVolumeData::setVolumeRenderThreshold(unsigned char threshold)
{
    d->threshold = threshold;
}

unsigned char C3DVolumeData::getVolumeRenderThreshold() const
{
    return d->threshold;
}

void C3DVolumeData::notifyCropEquationsChanged(bool)
{
    hvscene::repaintViewsOf(this);
}

void C3DVolumeData::updateSliceColorTable() {}
