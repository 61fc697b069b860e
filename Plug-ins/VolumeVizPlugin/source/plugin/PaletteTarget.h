#pragma once

class C3DSGManager;
class C3DScene;
class CGLVolume;
class CHVSSequenceDataset;
class CHVSSequenceWindow;
struct SVolVizControls;

/// What the palette works on at one moment: the current sequence with its window, scene, graph and volume
/// node, each null where there is none. It is fetched for one call and never kept, since the host can take
/// any of it away.
struct PaletteTarget
{
    SVolVizControls* record = nullptr;
    CHVSSequenceDataset* sequence = nullptr;
    CHVSSequenceWindow* window = nullptr;
    C3DScene* scene = nullptr;
    C3DSGManager* graph = nullptr;
    CGLVolume* node = nullptr;

    /// Everything but the record, for `seq`; all null for a null sequence.
    static PaletteTarget of(CHVSSequenceDataset* seq);
};
