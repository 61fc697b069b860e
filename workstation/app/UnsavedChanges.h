#pragma once

class CHVSSequenceDataset;
class HostServices;
class QWidget;

/// What becomes of a sequence that is to be closed.
enum class UnsavedAnswer
{
    Save,
    Discard,
    Cancel  ///< it stays open
};

/// Asks for it in a box over `parent`. Return saves; a box that is closed without a button cancels.
UnsavedAnswer askToSave(HostServices& services, QWidget* parent, CHVSSequenceDataset& sequence);
