#pragma once

/// What the palette has to know of a sequence to decide whether it can serve it.
struct SequenceFacts
{
    bool exists = false;             ///< there is a sequence at all
    bool loadedAsGroup = false;      ///< it came as part of a group of sequences
    bool hasWindow = false;          ///< a window shows it
    bool isSla = false;              ///< structured-light sequence
    bool windowIsSceneOnly = false;  ///< its window holds nothing but a 3D scene
    bool isCt = false;               ///< CT sequence
};

/// True when the palette can work on such a sequence: it exists on its own, is on screen, and is of a kind
/// that has room for a volume.
bool isValidSequence(const SequenceFacts& facts);
