#include "Icons.h"

#include "Theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace Icons {

namespace {

/// All shapes are drawn on a square of 16 units, y down.
constexpr qreal grid = 16.0;

QPainterPath cube()
{
    QPainterPath path;
    path.addPolygon(
        QPolygonF({{8, 1.5}, {13.5, 4.5}, {13.5, 11}, {8, 14.5}, {2.5, 11}, {2.5, 4.5}, {8, 1.5}}));
    path.moveTo(2.5, 4.5);
    path.lineTo(8, 7.7);
    path.lineTo(13.5, 4.5);
    path.moveTo(8, 7.7);
    path.lineTo(8, 14.5);
    return path;
}

QPainterPath frame(qreal x, qreal y, qreal width, qreal height)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(x, y, width, height), 1, 1);
    return path;
}

QPainterPath outline(Shape shape)
{
    QPainterPath path;
    switch (shape) {
    case Shape::Program:
    case Shape::NewScene:
        return cube();
    case Shape::Open:
        path.addPolygon(QPolygonF({{1.5, 13}, {1.5, 3}, {6, 3}, {7.5, 5}, {13, 5}, {13, 7}}));
        path.moveTo(1.5, 13);
        path.lineTo(4, 7);
        path.lineTo(15, 7);
        path.lineTo(12.5, 13);
        path.closeSubpath();
        break;
    case Shape::Recent:
        path.addEllipse(QPointF(8, 8), 6, 6);
        path.moveTo(8, 4.5);
        path.lineTo(8, 8);
        path.lineTo(10.8, 9.8);
        break;
    case Shape::Exit:
        path.addPolygon(QPolygonF({{9, 2}, {3, 2}, {3, 14}, {9, 14}}));
        path.moveTo(6.5, 8);
        path.lineTo(14, 8);
        path.moveTo(11, 5);
        path.lineTo(14, 8);
        path.lineTo(11, 11);
        break;
    case Shape::Tile:
        path = frame(2, 2.5, 5, 11);
        path.addPath(frame(9, 2.5, 5, 11));
        break;
    case Shape::Cascade:
        path = frame(1.5, 2, 9.5, 8);
        path.addPolygon(QPolygonF({{13.5, 5.5}, {14.5, 5.5}, {14.5, 14}, {5, 14}, {5, 12.5}}));
        break;
    case Shape::CloseWindow:
        path = frame(2, 2.5, 12, 11);
        path.moveTo(6, 6);
        path.lineTo(10, 10);
        path.moveTo(10, 6);
        path.lineTo(6, 10);
        break;
    case Shape::Clear:
        path.moveTo(3, 4.5);
        path.lineTo(13, 4.5);
        path.addPolygon(QPolygonF({{4.3, 4.5}, {5, 14}, {11, 14}, {11.7, 4.5}}));
        path.addPolygon(QPolygonF({{6.3, 4.5}, {6.3, 2.3}, {9.7, 2.3}, {9.7, 4.5}}));
        break;
    case Shape::Copy:
        path = frame(5, 5, 8.5, 9);
        path.addPolygon(QPolygonF({{3.2, 11}, {2.5, 11}, {2.5, 2}, {10.5, 2}, {10.5, 3}}));
        break;
    case Shape::Save:
        path.addPolygon(QPolygonF({{2.5, 2.5}, {11, 2.5}, {13.5, 5}, {13.5, 13.5}, {2.5, 13.5}, {2.5, 2.5}}));
        path.addRect(QRectF(5, 8.5, 6, 5));
        path.addRect(QRectF(5, 2.5, 4.5, 3.3));
        break;
    case Shape::Information:
        path.addEllipse(QPointF(8, 8), 6.2, 6.2);
        path.moveTo(8, 7.3);
        path.lineTo(8, 11.3);
        path.moveTo(8, 4.7);
        path.lineTo(8, 4.9);
        break;
    case Shape::Status:
        path.addPolygon(QPolygonF({{2, 3}, {14, 3}, {14, 11}, {8, 11}, {5, 14}, {5, 11}, {2, 11}, {2, 3}}));
        break;
    case Shape::Warning:
        path.addPolygon(QPolygonF({{8, 2}, {14.7, 13.7}, {1.3, 13.7}, {8, 2}}));
        path.moveTo(8, 6.4);
        path.lineTo(8, 9.8);
        path.moveTo(8, 11.7);
        path.lineTo(8, 11.9);
        break;
    case Shape::Error:
        path.addPolygon(QPolygonF({{5.4, 1.8},
                                   {10.6, 1.8},
                                   {14.2, 5.4},
                                   {14.2, 10.6},
                                   {10.6, 14.2},
                                   {5.4, 14.2},
                                   {1.8, 10.6},
                                   {1.8, 5.4},
                                   {5.4, 1.8}}));
        path.moveTo(5.8, 5.8);
        path.lineTo(10.2, 10.2);
        path.moveTo(10.2, 5.8);
        path.lineTo(5.8, 10.2);
        break;
    case Shape::Expanded:
        path.addPolygon(QPolygonF({{4, 6}, {8, 10}, {12, 6}}));
        break;
    case Shape::Collapsed:
        path.addPolygon(QPolygonF({{6, 4}, {10, 8}, {6, 12}}));
        break;
    }
    return path;
}

QColor colour(Shape shape)
{
    switch (shape) {
    case Shape::Program:
    case Shape::Information:
        return Theme::information;
    case Shape::Status:
        return Theme::status;
    case Shape::Warning:
        return Theme::warning;
    case Shape::Error:
        return Theme::error;
    default:
        return Theme::text;
    }
}

class ShapeEngine : public QIconEngine
{
public:
    explicit ShapeEngine(Shape shape)
        : m_shape(shape)
    {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal side = qMin(rect.width(), rect.height());
        const QPointF corner(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(corner);
        painter->scale(side / grid, side / grid);
        const QColor ink = mode == QIcon::Disabled ? Theme::quietText.darker(150) : colour(m_shape);
        painter->setPen(QPen(ink, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        if (m_shape == Shape::Program) {
            QColor fill = ink;
            fill.setAlphaF(0.22);
            painter->setBrush(fill);
        }
        painter->drawPath(outline(m_shape));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new ShapeEngine(*this); }

private:
    Shape m_shape;
};

}  // namespace

QIcon make(Shape shape)
{
    return QIcon(new ShapeEngine(shape));
}

}  // namespace Icons
