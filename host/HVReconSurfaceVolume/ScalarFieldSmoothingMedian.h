#pragma once

#include "HVReconSurfaceVolume/ScalarFieldSmoothingBase.h"

// Each voxel becomes the median of the cube around it.
class HVRECONSURFACEVOLUME_EXPORT ScalarFieldSmoothingMedian : public ScalarFieldSmoothingBase
{
public:
    explicit ScalarFieldSmoothingMedian(ScalarVolume& volume);
    ~ScalarFieldSmoothingMedian() override;

    bool process(long long kernelSize, bool useGPU) override;
};
