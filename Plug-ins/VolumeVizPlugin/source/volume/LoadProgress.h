#pragma once

#include "hvutils/CHVSProgressBar.h"

#include <QString>

/// The progress dialog of a load, shown as long as this lives. Closing it is the user's way to cancel.
class LoadProgress
{
public:
    explicit LoadProgress(const QString& title);
    ~LoadProgress();
    LoadProgress(const LoadProgress&) = delete;
    LoadProgress& operator=(const LoadProgress&) = delete;

    void setTitle(const QString& title);

    /// Announces the next item and lets waiting events through.
    /// @param done, all  items done before it, and items in all
    /// @return false when the user has closed the dialog: the load must end
    bool next(const QString& label, unsigned done, unsigned all);

private:
    CHVSProgressBar m_dialog;
};
