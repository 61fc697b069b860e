#pragma once

class CHVVolumeVizPalette;
class QWidget;

/// The palette as the parent of a reader's dialog; null for null. The one place of this folder that knows
/// what a palette is.
QWidget* parentWidget(CHVVolumeVizPalette* palette);
