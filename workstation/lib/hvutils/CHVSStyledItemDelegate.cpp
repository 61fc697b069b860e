#include "hvutils/CHVSStyledItemDelegate.h"

#include <QColor>
#include <QPainter>

class CHVSStyledItemDelegate::Private
{
public:
    QColor ground;  // invalid: the view's own
    bool hasGrid = false;
};

CHVSStyledItemDelegate::CHVSStyledItemDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
    , d(std::make_unique<Private>())
{}

CHVSStyledItemDelegate::~CHVSStyledItemDelegate() = default;

void CHVSStyledItemDelegate::setCustomBackColor(QString color)
{
    d->ground = color.isEmpty() || !QColor::isValidColor(color) ? QColor() : QColor(color);
}

void CHVSStyledItemDelegate::setEnableGridLines(bool enable)
{
    d->hasGrid = enable;
}

void CHVSStyledItemDelegate::paint(QPainter* painter, QStyleOptionViewItem const& option,
                                   QModelIndex const& index) const
{
    bool const isSelected = option.state.testFlag(QStyle::State_Selected);
    if (d->ground.isValid() && !isSelected) painter->fillRect(option.rect, d->ground);
    QStyledItemDelegate::paint(painter, option, index);
    if (!d->hasGrid) return;
    painter->save();
    painter->setPen(option.palette.color(QPalette::Mid));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->restore();
}
