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

struct Axis
{
    QString letter;
    QColor colour;
    double x;  // in the window, to the right
    double y;  // up
    double z;  // towards the viewer
};

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

    const Vec3 r = camera.right();
    const Vec3 u = camera.up();
    const Vec3 b = camera.back();
    std::array<Axis, 3> axes{{{QStringLiteral("X"), axisColour(0), r.x, u.x, b.x},
                              {QStringLiteral("Y"), axisColour(1), r.y, u.y, b.y},
                              {QStringLiteral("Z"), axisColour(2), r.z, u.z, b.z}}};
    std::stable_sort(axes.begin(), axes.end(), [](const Axis& a, const Axis& c) { return a.z < c.z; });

    QPainter painter(&m_image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(side / 2.0, side / 2.0);
    const double arm = 32.0 * scale;
    const double knob = 9.0 * scale;
    for (const Axis& axis : axes) {
        const QColor colour = dimmed(axis.colour, 0.82 + 0.18 * axis.z);
        const QPointF end = middle + QPointF(axis.x, -axis.y) * arm;
        painter.setPen(QPen(colour, 2.2 * scale, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(middle, end);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(end, knob, knob);
        painter.setBrush(QColor(16, 20, 26));
        drawText(painter, labelFont(11.5 * scale), axis.letter, end);
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
