#include "CVolBrowseListItemModel.h"

#include "CVolBrowseTreeItem.h"
#include "CVolBrowserInfo.h"

#include <QIcon>
#include <QSet>

#include <algorithm>
#include <utility>

CVolBrowseListItemModel::CVolBrowseListItemModel(QObject* parent)
    : QStandardItemModel(parent)
{
    connect(this, SIGNAL(rowsRemoved(QModelIndex, int, int)), SLOT(dropWithoutRow()));
    connect(this, SIGNAL(modelReset()), SLOT(dropWithoutRow()));
}

CVolBrowseListItemModel::~CVolBrowseListItemModel() = default;

QStringList CVolBrowseListItemModel::columnHeaders()
{
    return {QStringLiteral("Name"),          QStringLiteral("Folder Path"), QStringLiteral("Slices"),
            QStringLiteral("Dimension"),     QStringLiteral("Modality"),    QStringLiteral("Pixel Spacing"),
            QStringLiteral("Slice Spacing"), QStringLiteral("Data Type"),   QStringLiteral("Type")};
}

QModelIndex CVolBrowseListItemModel::appendDataSet(std::unique_ptr<CVolBrowserInfo> info, const QIcon& icon)
{
    if (!info) return {};
    if (rowCount() == 0) setHorizontalHeaderLabels(columnHeaders());

    CVolBrowserInfo* const shown = info.get();
    m_dataSets.push_back(std::move(info));
    const auto item = [shown](const QString& text) { return new CVolBrowseTreeItem(shown, text); };
    auto* const slices = new CVolBrowseTreeItem(shown);
    slices->setData(shown->m_slices.toInt(), Qt::DisplayRole);
    const QList<QStandardItem*> row = {new CVolBrowseTreeItem(shown, icon, shown->m_name),
                                       item(shown->m_parentFolder),
                                       slices,
                                       item(shown->m_dimension),
                                       item(shown->m_modality),
                                       item(shown->m_pixelSpacing),
                                       item(shown->m_sliceSpacing),
                                       item(shown->m_dataType),
                                       item(shown->m_type)};
    for (QStandardItem* const cell : row)
        cell->setEditable(false);
    appendRow(row);
    return row.first()->index();
}

CVolBrowserInfo* CVolBrowseListItemModel::dataSet(const QModelIndex& index) const
{
    if (!index.isValid() || index.model() != this) return nullptr;
    const auto* const cell = dynamic_cast<CVolBrowseTreeItem*>(itemFromIndex(index));
    return cell ? cell->m_info : nullptr;
}

void CVolBrowseListItemModel::dropWithoutRow()
{
    QSet<const CVolBrowserInfo*> shown;
    for (int row = 0; row < rowCount(); ++row)
        shown.insert(dataSet(index(row, Name)));
    m_dataSets.erase(std::remove_if(m_dataSets.begin(), m_dataSets.end(),
                                    [&shown](const auto& info) { return !shown.contains(info.get()); }),
                     m_dataSets.end());
}
