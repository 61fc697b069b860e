#pragma once

class CHVSSequenceDataset;
class CHVSSequenceWindow;

/// The sequence that a volume would be loaded into now; all null when there is none.
struct LoadTarget
{
    CHVSSequenceDataset* sequence = nullptr;
    CHVSSequenceWindow* window = nullptr;  ///< of the sequence; may be null
    bool isSeenByAnImage = false;          ///< the active window shows one image of the sequence

    explicit operator bool() const { return sequence != nullptr; }
};

/// By the window of data that is active.
LoadTarget activeLoadTarget();

/// Makes a window the active one of the workspace. Null is ignored.
void activateSequenceWindow(CHVSSequenceWindow* window);
