#include "transfer/CColorTableWidget.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

namespace {

QPixmap checkerboard()
{
    constexpr int square = 10;
    QPixmap board(2 * square, 2 * square);
    board.fill(Qt::darkGray);
    QPainter painter(&board);
    painter.fillRect(0, 0, square, square, Qt::lightGray);
    painter.fillRect(square, square, square, square, Qt::lightGray);
    return board;
}

}  // namespace

CColorTableWidget::CColorTableWidget(QWidget* parent)
    : QWidget(parent)
{
    QPalette colors = palette();
    colors.setBrush(backgroundRole(), QBrush(checkerboard()));
    setPalette(colors);
    setAutoFillBackground(true);
}

void CColorTableWidget::setImage(const QImage* image)
{
    m_image = image;
    update();
}

QSize CColorTableWidget::sizeHint() const
{
    return {150, 20};
}

void CColorTableWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_image) painter.drawImage(0, 0, *m_image);
    painter.setPen(QColor(146, 146, 146, 255));
    painter.drawRect(0, 0, width() - 1, height() - 1);
}
