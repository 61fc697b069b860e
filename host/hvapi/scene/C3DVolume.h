#pragma once

#include "hvapi/scene/C3DObject.h"

/// The optical volume of a reconstruction in a scene, and how it is drawn: a shaded box for each voxel, with
/// the colour of its intensity.
class HVAPI_EXPORT C3DVolume : public C3DObject
{
public:
    /// A volume without voxels. Its threshold is 0, and voxels compare with the depth of the other objects.
    explicit C3DVolume(QString name);
    ~C3DVolume() override;

    /// True when there are voxels.
    bool isValid() override;
    /// The box around all voxels, those below the threshold included.
    void getBBox(Coord3d& min, Coord3d& max) override;
    void render(bool dirty, GLenum mode) override;

    /// Draws only the share of the voxels set by the next operation, for a measurement of the frame time.
    void setPreRenderEvaluationFlag(bool bEvaluate);
    /// 0 to 1; a value outside counts as the nearer end, one that is no number is ignored. 1 at first.
    void setPreRenderEvaluationVoxelRatio(float ratio);
    /// Compares the voxels with the depth of the other objects: what lies behind a visible surface, as seen
    /// in the picture, is hidden. Without it all voxels lie over the scene.
    void setMultiPassRenderWithDepthTest(bool bEnable);
    /// The same, as the user's wish. The comparison is made when both are set, as they are at first.
    void setUIEnableMultiPassRenderWithDepthTest(bool bEnable);

    /// Voxels below the threshold are not drawn; in units of the reconstruction. A value that is no number is
    /// ignored.
    void setThreshold(float threshold);
    /// The threshold that a fresh reconstruction gets, and the lowest value in the reconstruction; 0 without
    /// voxels.
    float getDefaultThreshold();
    float getAttribMinValue();

    /// The host's own side of the volume.
    struct Private;
    Private& hostSide();

private:
    Q_DISABLE_COPY(C3DVolume)
    std::unique_ptr<Private> d;
};
