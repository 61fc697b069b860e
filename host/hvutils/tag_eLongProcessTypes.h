#pragma once

// Kinds of long processes, as bit flags. Several may run at the same time; a query with more than one bit
// asks whether any of them runs.
enum tag_eLongProcessTypes : int
{
    eProcessGeneral = 0x1,             // short work of a palette: registration, a histogram
    eProcessAnimationExport = 0x400,   // 1024: a movie of the 3D scene is being written
    eProcessAcquisition = 0x1000,      // 4096: the instrument acquires or is being initialised
    eProcessReconstruction = 0x40000,  // 262144: voxels or surfaces are being computed
    eProcessAny = 0xFFFFF              // 1048575: every kind
};
