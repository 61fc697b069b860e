#pragma once

#include <QTreeView>

/// The view of the list of data sets.
class CVolBrowserTree : public QTreeView
{
    Q_OBJECT

public:
    explicit CVolBrowserTree(QWidget* parent = nullptr);

signals:
    /// A key was pressed: the index that is current after it.
    void onCurrentSelectionChanged(QModelIndex index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
