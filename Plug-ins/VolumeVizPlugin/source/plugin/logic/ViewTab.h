#pragma once

#include <QString>

/// True for the tabs of a sequence window beside which the palette is of use: "Sequence View" and "3D View",
/// ignoring case.
bool isPaletteTab(const QString& tabName);
