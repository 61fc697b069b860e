#include "lib/hvapi/scene/OrientationAxes.h"

#include "lib/hvapi/scene/AxisColours.h"
#include "lib/hvapi/scene/logic/ScaleBar.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>

namespace hvscene {

namespace {

/// An end of an axis.
struct AxisEnd
{
    QString letters;
    QColor colour;
    bool isPositive;
    double x;  // in the window, to the right
    double y;  // up
    double z;  // towards the viewer
};

/// Both ends of all three axes as the camera sees them, the farthest first.
std::array<AxisEnd, 6> axisEnds(const Camera& camera)
{
    const Vec3 r = camera.right();
    const Vec3 u = camera.up();
    const Vec3 b = camera.back();
    const double right[3] = {r.x, r.y, r.z};
    const double up[3] = {u.x, u.y, u.z};
    const double back[3] = {b.x, b.y, b.z};
    std::array<AxisEnd, 6> ends;
    for (std::size_t k = 0; k < 6; ++k) {
        const std::size_t axis = k / 2;
        const double side = k % 2 ? -1.0 : 1.0;
        const QString letter = QChar(static_cast<ushort>('X' + axis));
        ends[k] = {k % 2 ? QChar(0x2212) + letter : letter,
                   axisColour(static_cast<int>(axis)),
                   side > 0.0,
                   side * right[axis],
                   side * up[axis],
                   side * back[axis]};
    }
    std::stable_sort(ends.begin(), ends.end(), [](const AxisEnd& a, const AxisEnd& c) { return a.z < c.z; });
    return ends;
}

bool same(Vec3 a, Vec3 b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

QFont labelFont(double pixels)
{
    QFont font;
    font.setPixelSize(std::max(1, static_cast<int>(pixels + 0.5)));
    font.setBold(true);
    return font;
}

QColor dimmed(const QColor& colour, double share)
{
    const QColor background(22, 27, 34);
    return QColor::fromRgbF(background.redF() + share * (colour.redF() - background.redF()),
                            background.greenF() + share * (colour.greenF() - background.greenF()),
                            background.blueF() + share * (colour.blueF() - background.blueF()));
}

void drawText(QPainter& painter, const QFont& font, const QString& text, QPointF middle)
{
    // As a path: sharp at every size and centred on its own outline.
    QPainterPath path;
    path.addText(0, 0, font, text);
    path.translate(middle - path.boundingRect().center());
    painter.fillPath(path, painter.brush());
}

}  // namespace

const QImage& OrientationAxes::image(const Camera& camera, double scale)
{
    if (!m_image.isNull() && m_scale == scale && same(m_right, camera.right()) && same(m_up, camera.up()))
        return m_image;
    m_scale = scale;
    m_right = camera.right();
    m_up = camera.up();

    const int side = static_cast<int>(std::ceil(92.0 * scale));
    m_image = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent);

    QPainter painter(&m_image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(side / 2.0, side / 2.0);
    const double arm = 32.0 * scale;
    const QColor dark(16, 20, 26);
    for (const AxisEnd& end : axisEnds(camera)) {
        const QColor colour = dimmed(end.colour, 0.82 + 0.18 * end.z);
        const QPointF place = middle + QPointF(end.x, -end.y) * arm;
        if (end.isPositive) {
            painter.setPen(QPen(colour, 2.2 * scale, Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(middle, place);
            painter.setPen(Qt::NoPen);
            painter.setBrush(colour);
            painter.drawEllipse(place, 9.0 * scale, 9.0 * scale);
            painter.setBrush(dark);
            drawText(painter, labelFont(11.5 * scale), end.letters, place);
        } else {
            painter.setPen(QPen(colour, 1.2 * scale));
            painter.setBrush(dark);
            painter.drawEllipse(place, 8.0 * scale, 8.0 * scale);
            painter.setPen(Qt::NoPen);
            painter.setBrush(colour);
            drawText(painter, labelFont(8.5 * scale), end.letters, place);
        }
    }
    return m_image;
}

QImage scaleBarImage(double mmPerPixel, double maxPixels, double scale)
{
    const double mm = roundLength(mmPerPixel * maxPixels);
    if (!(mm > 0.0)) return QImage();
    const double bar = mm / mmPerPixel;
    const QString text =
        mm < 1.0 ? QStringLiteral("%1 \u00b5m").arg(mm * 1000.0) : QStringLiteral("%1 mm").arg(mm);
    const QFont font = labelFont(11.5 * scale);
    const double textWidth = QFontMetricsF(font).horizontalAdvance(text);
    const double edge = 2.0 * scale;
    const int width = static_cast<int>(std::ceil(std::max(bar, textWidth) + 2.0 * edge));
    const int height = static_cast<int>(std::ceil(26.0 * scale));
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink(206, 216, 228);
    // The bar ends at the right edge, where the eye compares it with the border of the window.
    const double right = width - edge;
    const double bottom = height - 3.0 * scale;
    painter.setPen(QPen(ink, 1.6 * scale, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(right - bar, bottom), QPointF(right, bottom));
    painter.drawLine(QPointF(right - bar, bottom - 4.0 * scale), QPointF(right - bar, bottom + scale));
    painter.drawLine(QPointF(right, bottom - 4.0 * scale), QPointF(right, bottom + scale));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    drawText(
        painter, font, text,
        QPointF(right - bar / 2.0 < width - textWidth / 2.0 ? right - bar / 2.0 : width - textWidth / 2.0,
                8.0 * scale));
    return image;
}

}  // namespace hvscene
