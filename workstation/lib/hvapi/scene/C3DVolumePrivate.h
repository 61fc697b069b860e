#pragma once

#include "hvapi/scene/C3DVolume.h"
#include "lib/hvapi/scene/logic/OpticalVoxels.h"

struct C3DVolume::Private
{
    explicit Private(C3DVolume& volume)
        : q(volume)
    {}

    /// Replaces the voxels; the threshold becomes the default of the new ones.
    void setVoxels(hvscene::OpticalVoxels voxels);
    const hvscene::OpticalVoxels& voxels() const { return m_voxels; }
    float threshold() const { return m_threshold; }
    bool comparesDepth() const { return m_depthTest && m_depthWish; }
    /// Number of voxels of a frame drawn now.
    std::size_t drawnCount();

private:
    friend class C3DVolume;

    /// The next frame makes its boxes anew.
    void changed();
    const hvscene::VoxelBoxes& boxes();
    void draw();

    C3DVolume& q;
    hvscene::OpticalVoxels m_voxels;
    hvscene::Box m_box;
    float m_threshold = 0.0f;
    float m_ratio = 1.0f;
    bool m_evaluating = false;
    bool m_depthTest = true;
    bool m_depthWish = true;
    bool m_boxesDirty = true;
    hvscene::VoxelBoxes m_boxes;
};

namespace hvscene {

/// Name of the node that holds the optical volume of a sequence.
inline const QString opticalVolumeName = QStringLiteral("OpticalVolume");

}  // namespace hvscene
