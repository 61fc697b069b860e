#pragma once

/// Entries of the context menu of an image view; flags.
enum Right_epopupMenu : int
{
    RIGHT_POPUP_NONE = 0,
    RIGHT_POPUP_COPY = 1,
    RIGHT_POPUP_ZOOM = 2,
    RIGHT_POPUP_SAVE = 4,
    RIGHT_POPUP_ALL = 7
};
