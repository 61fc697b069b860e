#pragma once

#include "hvutils/hvutils_global.h"

#include <QStyledItemDelegate>
#include <memory>

// Draws the rows of item views in the style of the workstation.
class HVUTILS_EXPORT CHVSStyledItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CHVSStyledItemDelegate(QObject* parent = nullptr);
    ~CHVSStyledItemDelegate() override;

    // Background of rows that are not selected, by name or as "#rrggbb"; an empty text, and one that is no
    // colour, gives the view's own.
    void setCustomBackColor(QString color);

    // Thin lines between the rows and columns.
    void setEnableGridLines(bool enable);

    void paint(QPainter* painter, QStyleOptionViewItem const& option,
               QModelIndex const& index) const override;

private:
    Q_DISABLE_COPY(CHVSStyledItemDelegate)
    class Private;
    std::unique_ptr<Private> d;
};
