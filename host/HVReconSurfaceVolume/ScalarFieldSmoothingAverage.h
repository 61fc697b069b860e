#pragma once

#include "HVReconSurfaceVolume/ScalarFieldSmoothingBase.h"

// Each voxel becomes the mean of the cube around it.
class HVRECONSURFACEVOLUME_EXPORT ScalarFieldSmoothingAverage : public ScalarFieldSmoothingBase
{
public:
    explicit ScalarFieldSmoothingAverage(ScalarVolume& volume);
    ~ScalarFieldSmoothingAverage() override;

    bool process(long long kernelSize, bool useGPU) override;
};
