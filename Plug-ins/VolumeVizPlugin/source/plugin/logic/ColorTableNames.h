#pragma once

#include <QStringList>

/// Names of the colour tables that the palette offers, in the order of its two combo boxes.
QStringList colorTableNames();

/// Number by which the host knows the colour table at `index` of colorTableNames() (a value of
/// HVS_COLORTABLE_TYPES); 8, the red table, for any other index.
int colorTableNumber(int index);
