#include "volume/PaletteParent.h"

#include "plugin/CHVVolumeVizPalette.h"

QWidget* parentWidget(CHVVolumeVizPalette* palette)
{
    return palette;
}
