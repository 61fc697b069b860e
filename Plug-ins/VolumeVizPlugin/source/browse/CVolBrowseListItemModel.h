#pragma once

#include <QStandardItemModel>

#include <memory>
#include <vector>

class CVolBrowserInfo;
class QIcon;

/// The list of data sets, a row each. It owns them: a data set goes with its row.
class CVolBrowseListItemModel : public QStandardItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        Name,
        FolderPath,
        Slices,
        Dimension,
        Modality,
        PixelSpacing,
        SliceSpacing,
        DataType,
        Type,
        ColumnCount
    };

    explicit CVolBrowseListItemModel(QObject* parent = nullptr);
    ~CVolBrowseListItemModel() override;

    /// Labels of the columns, in their order.
    static QStringList columnHeaders();

    /// Adds a row at the end, none for null; the first one brings the labels of the columns with it. The icon
    /// stands before the name. Returns the index of the name.
    QModelIndex appendDataSet(std::unique_ptr<CVolBrowserInfo> info, const QIcon& icon);

    /// Data set of the row of an index; null for an index that is not one of this model.
    CVolBrowserInfo* dataSet(const QModelIndex& index) const;

private slots:
    void dropWithoutRow();

private:
    std::vector<std::unique_ptr<CVolBrowserInfo>> m_dataSets;
};
