#include "CVolBrowseTreeItem.h"

#include "browse/logic/DateTimeOrder.h"

#include <QStandardItemModel>

CVolBrowseTreeItem::CVolBrowseTreeItem(CVolBrowserInfo* info)
    : m_info(info)
{}

CVolBrowseTreeItem::CVolBrowseTreeItem(CVolBrowserInfo* info, const QString& text)
    : QStandardItem(text)
    , m_info(info)
{}

CVolBrowseTreeItem::CVolBrowseTreeItem(CVolBrowserInfo* info, const QIcon& icon, const QString& text)
    : QStandardItem(icon, text)
    , m_info(info)
{}

CVolBrowseTreeItem::CVolBrowseTreeItem(CVolBrowserInfo* info, int rows, int columns)
    : QStandardItem(rows, columns)
    , m_info(info)
{}

bool CVolBrowseTreeItem::operator<(const QStandardItem& other) const
{
    const QString header = model() ? model()->headerData(column(), Qt::Horizontal).toString() : QString();
    if (header != QLatin1String("Date and Time")) return QStandardItem::operator<(other);
    return isEarlier(text(), other.text());
}
