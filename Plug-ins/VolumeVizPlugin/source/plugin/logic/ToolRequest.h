#pragma once

/// Page of the palette's tab widget.
enum class PalettePage
{
    Volume,
    Slice,
};

/// What the palette shows when the host asks it for a tool.
struct ToolView
{
    bool known = false;                      ///< false: nothing is to be shown
    PalettePage page = PalettePage::Volume;  ///< page that comes to the front
    int sliceOrientation = -1;               ///< index in the list of orientations, -1 to leave it
    int sliceAxis = -1;                      ///< normal of the slice to go to (0 x, 1 y, 2 z), -1 for none
};

/// View for a value of ETOOLPALETTE_PLUGIN_STATUS_MODIFIER: 0 the volume; 1, 2, 3 the slices across x
/// ("Sagittal", index 2), y ("Transaxial", 1) and z ("Coronal", 0).
ToolView viewOfToolRequest(int request);
