#pragma once

// What the host knows of the upper end of values in a CT scan.

/// The stored value that 3001 Hounsfield units make, by the calibration of the active 3D view; zeros when no
/// such view is active.
struct TissueLimit
{
    int voxel = 0;
    int a = 0;  ///< calibration value for air
    int b = 0;  ///< calibration value for water
};
TissueLimit activeTissueLimit();

/// The user wants to see metal: values are not cut above those of tissue.
bool prefersMetal();
