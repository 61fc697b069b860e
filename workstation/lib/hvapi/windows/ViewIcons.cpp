#include "lib/hvapi/windows/ViewIcons.h"

#include "lib/hvapi/scene/AxisColours.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

namespace {

constexpr int side = 20;   // logical pixels
constexpr int detail = 3;  // device pixels each, so that scaled screens get a sharp one

// A cube of 12 by 12 seen from the right and above, in the 20 by 20 picture.
QPolygonF const front({{3, 7}, {12, 7}, {12, 17}, {3, 17}});
QPolygonF const top({{3, 7}, {8, 3}, {17, 3}, {12, 7}});
QPolygonF const right({{12, 7}, {17, 3}, {17, 13}, {12, 17}});

void drawFace(QPainter& painter, QPolygonF const& face, bool filled, QColor const& accent)
{
    painter.setBrush(filled ? QBrush(accent) : QBrush(Qt::NoBrush));
    painter.drawPolygon(face);
}

void drawAxis(QPainter& painter, QPointF const& end, QColor const& colour)
{
    painter.setPen(QPen(colour, 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(8, 12), end);
}

void draw(QPainter& painter, ViewIcon icon, QColor const& line, QColor const& accent)
{
    painter.setPen(QPen(line, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (icon == ViewIcon::Axes) {
        drawAxis(painter, {17, 12}, hvscene::axisColour(0));
        drawAxis(painter, {8, 3}, hvscene::axisColour(1));
        drawAxis(painter, {3, 17}, hvscene::axisColour(2));
        return;
    }
    if (icon == ViewIcon::ScaleBar) {
        painter.setPen(QPen(line, 1.6, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawPolyline(QPolygonF({{2.5, 8}, {2.5, 13}, {17.5, 13}, {17.5, 8}}));
        painter.setPen(QPen(line, 1.1, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(10, 10), QPointF(10, 13));
        return;
    }
    if (icon == ViewIcon::Measure) {
        painter.setPen(QPen(line, 1.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.translate(10, 10);
        painter.rotate(-45);
        painter.drawRoundedRect(QRectF(-9.5, -3.6, 19, 7.2), 1.2, 1.2);
        for (int tick = 0; tick < 5; ++tick)
            painter.drawLine(QPointF(-6.4 + 3.2 * tick, -3.6),
                             QPointF(-6.4 + 3.2 * tick, tick % 2 ? -1.6 : -0.4));
        return;
    }
    if (icon == ViewIcon::SliceX || icon == ViewIcon::SliceY || icon == ViewIcon::SliceZ) {
        int const axis = static_cast<int>(icon) - static_cast<int>(ViewIcon::SliceX);
        // The cut through the middle of the cube, in the colour of its normal.
        QPolygonF const cuts[3] = {QPolygonF({{7.5, 7}, {12.5, 3}, {12.5, 13}, {7.5, 17}}),
                                   QPolygonF({{3, 12}, {8, 8}, {17, 8}, {12, 12}}),
                                   QPolygonF({{5.5, 5}, {14.5, 5}, {14.5, 15}, {5.5, 15}})};
        QColor const colour = accent == line ? line : hvscene::axisColour(axis);
        QColor thin = line;
        thin.setAlphaF(0.7);
        painter.setPen(QPen(thin, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolygon(front);
        painter.drawPolygon(top);
        painter.drawPolygon(right);
        painter.setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QColor fill = colour;
        fill.setAlphaF(0.6);
        painter.setBrush(fill);
        painter.drawPolygon(cuts[axis]);
        return;
    }
    if (icon == ViewIcon::BoundingBox) {
        painter.drawLine(QPointF(8, 3), QPointF(8, 13));
        painter.drawLine(QPointF(8, 13), QPointF(3, 17));
        painter.drawLine(QPointF(8, 13), QPointF(17, 13));
    }
    if (icon == ViewIcon::Reset) {
        for (auto const& corner : {QPointF(1, 1), QPointF(19, 1), QPointF(1, 19), QPointF(19, 19)}) {
            QPointF const inward(corner.x() < 10 ? 3 : -3, corner.y() < 10 ? 3 : -3);
            painter.drawLine(corner, corner + QPointF(inward.x(), 0));
            painter.drawLine(corner, corner + QPointF(0, inward.y()));
        }
        painter.translate(4.2, 4.2);
        painter.scale(0.58, 0.58);
    }
    drawFace(painter, front, icon == ViewIcon::Front, accent);
    drawFace(painter, top, icon == ViewIcon::Top, accent);
    drawFace(painter, right, icon == ViewIcon::Side, accent);
}

QPixmap picture(ViewIcon icon, QColor const& line, QColor const& accent)
{
    QPixmap pixmap(side * detail, side * detail);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(detail, detail);
    draw(painter, icon, line, accent);
    return pixmap;
}

}  // namespace

QIcon viewIcon(ViewIcon icon, QPalette const& palette)
{
    QIcon result(picture(icon, palette.color(QPalette::Active, QPalette::ButtonText),
                         palette.color(QPalette::Active, QPalette::Highlight)));
    QColor const& dim = palette.color(QPalette::Disabled, QPalette::ButtonText);
    result.addPixmap(picture(icon, dim, dim), QIcon::Disabled);
    return result;
}
