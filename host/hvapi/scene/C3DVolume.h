#pragma once

#include "hvapi/scene/C3DObject.h"

/// The optical volume of a reconstruction in a scene, and how it is drawn.
class HVAPI_EXPORT C3DVolume : public C3DObject
{
public:
    explicit C3DVolume(QString name);
    ~C3DVolume() override;

    /// Draws only the share of the voxels set by the next operation, for a measurement of the frame time.
    void setPreRenderEvaluationFlag(bool bEvaluate);
    /// 0 to 1.
    void setPreRenderEvaluationVoxelRatio(float ratio);
    /// Compares the voxels with the depth of the other objects, in several passes.
    void setMultiPassRenderWithDepthTest(bool bEnable);
    /// The same, as the user's wish.
    void setUIEnableMultiPassRenderWithDepthTest(bool bEnable);

    /// Voxels below the threshold are not drawn; in units of the reconstruction.
    void setThreshold(float threshold);
    /// The threshold that a fresh reconstruction gets, and the lowest value in the reconstruction.
    float getDefaultThreshold();
    float getAttribMinValue();

private:
    Q_DISABLE_COPY(C3DVolume)
    struct Private;
    std::unique_ptr<Private> d;
};
