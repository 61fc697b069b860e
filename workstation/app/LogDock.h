#pragma once

#include <QDockWidget>

class LogModel;
class QComboBox;
class QSortFilterProxyModel;
class QTreeView;

/// The session's log beside the workspace: every severity with its icon, word and colour; a choice of what is
/// shown; buttons to copy and to clear. Follows the newest entry unless the user has scrolled up.
class LogDock : public QDockWidget
{
    Q_OBJECT

public:
    /// `model` must outlive the dock.
    explicit LogDock(LogModel& model, QWidget* parent = nullptr);

private:
    void showOnly(int choice);
    void copySelection() const;
    void keepNewestInSight();

    LogModel& m_model;
    QSortFilterProxyModel* m_pFilter;
    QTreeView* m_pView;
    QComboBox* m_pChoice;
    bool m_atEnd = true;
};
