#pragma once

#include "HVReconSurfaceVolume/HVReconSurfaceVolume_global.h"

#include <QtCore/qglobal.h>

class ScalarVolume;

// Smooths a volume in place.
class HVRECONSURFACEVOLUME_EXPORT ScalarFieldSmoothingBase
{
public:
    // The volume is not owned and outlives the filter.
    explicit ScalarFieldSmoothingBase(ScalarVolume& volume);
    virtual ~ScalarFieldSmoothingBase();

    // Filters with a cube of `kernelSize` voxels a side, an odd number. `useGPU` allows the graphics
    // processor. False when it could not be done; the voxels are then unchanged.
    virtual bool process(long long kernelSize, bool useGPU) = 0;

protected:
    ScalarVolume& m_volume;

private:
    Q_DISABLE_COPY(ScalarFieldSmoothingBase)
};
