#pragma once

#include <QStandardItem>

class CVolBrowserInfo;

/// An item of the list of data sets. All items of a row point to the same data set, which the model owns.
class CVolBrowseTreeItem : public QStandardItem
{
public:
    explicit CVolBrowseTreeItem(CVolBrowserInfo* info);
    CVolBrowseTreeItem(CVolBrowserInfo* info, const QString& text);
    CVolBrowseTreeItem(CVolBrowserInfo* info, const QIcon& icon, const QString& text);
    CVolBrowseTreeItem(CVolBrowserInfo* info, int rows, int columns = 1);

    /// Dates and times of a column "Date and Time" compare as such, everything else as the base does.
    bool operator<(const QStandardItem& other) const override;

    CVolBrowserInfo* m_info;
};
