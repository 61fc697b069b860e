#pragma once

#include "HVReconSurfaceVolume/ScalarFieldSmoothingBase.h"

// Each voxel becomes the mean of the cube around it, weighted by a Gaussian bell.
class HVRECONSURFACEVOLUME_EXPORT ScalarFieldSmoothingGaussian : public ScalarFieldSmoothingBase
{
public:
    explicit ScalarFieldSmoothingGaussian(ScalarVolume& volume);
    ~ScalarFieldSmoothingGaussian() override;

    bool process(long long kernelSize, bool useGPU) override;
};
