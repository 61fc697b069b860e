#pragma once

// The host's colour tables.
enum HVS_COLORTABLE_TYPES : int
{
    eColorTableGrays = 0,
    eColorTableRainbow = 1,
    eColorTableRed = 8,
    eColorTableGreen = 9,
    eColorTableBlue = 10,
    eColorTableCyan = 11,
    eColorTableYellow = 12,
    eColorTableMagenta = 13,
    eColorTableOrange = 14,
    eColorTableBlueYellow = 23,
    eColorTableGreenPink = 24,
    eColorTableEosB = 25,
    eColorTableJet = 26
};
