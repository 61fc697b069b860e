#pragma once

#include "HVReconSurfaceVolume/HVReconSurfaceVolume_global.h"

#include <QtCore/qglobal.h>
#include <cstddef>
#include <memory>

// A view of 8-bit voxels that somebody else owns and keeps alive: x fastest, then y, then z, without gaps.
class HVRECONSURFACEVOLUME_EXPORT ScalarVolume
{
public:
    // Sizes in voxels, thicknesses in mm.
    ScalarVolume(unsigned char* data, std::size_t x, std::size_t y, std::size_t z, double dx, double dy,
                 double dz);
    ~ScalarVolume();

    std::size_t getXsize() const;
    std::size_t getYsize() const;
    std::size_t getZsize() const;
    double getXthickness() const;
    double getYthickness() const;
    double getZthickness() const;

    // A voxel; the indices are not checked.
    unsigned char& at(std::size_t x, std::size_t y, std::size_t z);

    // Sets voxels below `low` or above `high` to 0.
    void processThreshold(unsigned char low, unsigned char high);

    // Fills holes. `mode` chooses the direction or directions, `value` the least number of neighbours that
    // close one.
    void closeHolesinVolume(int mode, int value);

private:
    Q_DISABLE_COPY(ScalarVolume)
    class Private;
    std::unique_ptr<Private> d;
};
