#include "lib/hvapi/scene/OverlayPainter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QtGui/qopengl.h>
#include <algorithm>

namespace hvscene {

namespace {

constexpr double pi = 3.14159265358979323846;

Pixel normalOf(Pixel along)
{
    const double l = length(along);
    return l > 0.0 ? Pixel{-along.y / l, along.x / l} : Pixel{};
}

QImage labelImage(const QString& text, const QColor& colour, double scale)
{
    QFont font;
    font.setPixelSize(std::max(1, static_cast<int>(12.0 * scale + 0.5)));
    font.setWeight(QFont::DemiBold);
    const QFontMetricsF metrics(font);
    const double aside = 7.0 * scale;
    const double above = 3.0 * scale;
    const QSize size(static_cast<int>(std::ceil(metrics.horizontalAdvance(text) + 2.0 * aside)),
                     static_cast<int>(std::ceil(metrics.height() + 2.0 * above)));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(13, 16, 21, 205));
    painter.drawRoundedRect(QRectF(QPointF(), size), 5.0 * scale, 5.0 * scale);
    painter.setPen(colour);
    painter.setFont(font);
    painter.drawText(QRectF(QPointF(), size), Qt::AlignCenter, text);
    return image;
}

}  // namespace

OverlayPainter::OverlayPainter(QSize pixels, double scale)
    : m_pixels(pixels)
    , m_scale(scale)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, pixels.width(), pixels.height(), 0.0, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glDisable(GL_CULL_FACE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glShadeModel(GL_SMOOTH);
}

void OverlayPainter::vertex(Pixel p, const QColor& colour, double alpha)
{
    glColor4d(colour.redF(), colour.greenF(), colour.blueF(), alpha);
    glVertex2d(p.x, p.y);
}

void OverlayPainter::line(Pixel from, Pixel to, double width, const QColor& colour)
{
    curve({from, to}, width, colour);
}

void OverlayPainter::curve(const std::vector<Pixel>& points, double width, const QColor& colour)
{
    if (points.size() < 2) return;
    // A core of full colour between two seams that fade within a pixel.
    const double half = std::max(0.0, width * m_scale / 2.0 - 0.5);
    const double alpha = colour.alphaF() * std::min(1.0, width * m_scale);
    const double rims[4] = {-half - 1.0, -half, half, half + 1.0};
    const double alphas[4] = {0.0, alpha, alpha, 0.0};
    std::vector<Pixel> across(points.size());
    for (std::size_t k = 0; k < points.size(); ++k) {
        const Pixel before = k > 0 ? normalOf(points[k] - points[k - 1]) : Pixel{};
        const Pixel after = k + 1 < points.size() ? normalOf(points[k + 1] - points[k]) : Pixel{};
        const Pixel sum = before + after;
        const double square = dot(sum, sum);
        // The mitre of two unit normals; bounded at sharp corners.
        across[k] = k == 0 || k + 1 == points.size() || square < 0.5 ? (k > 0 ? before : after)
                                                                     : sum * (2.0 / square);
    }
    for (int strip = 0; strip < 3; ++strip) {
        glBegin(GL_QUAD_STRIP);
        for (std::size_t k = 0; k < points.size(); ++k) {
            vertex(points[k] + across[k] * rims[strip], colour, alphas[strip]);
            vertex(points[k] + across[k] * rims[strip + 1], colour, alphas[strip + 1]);
        }
        glEnd();
    }
}

void OverlayPainter::disc(Pixel middle, double radius, const QColor& colour)
{
    constexpr int steps = 40;
    std::vector<Pixel> points;
    for (int k = 0; k < steps; ++k) {
        const double angle = 2.0 * pi * k / steps;
        points.push_back(middle + Pixel{std::cos(angle), std::sin(angle)} * (radius * m_scale));
    }
    area(points, colour);
}

void OverlayPainter::circle(Pixel middle, double radius, double width, const QColor& colour)
{
    constexpr int steps = 48;
    std::vector<Pixel> points;
    for (int k = 0; k <= steps; ++k) {
        const double angle = 2.0 * pi * k / steps;
        points.push_back(middle + Pixel{std::cos(angle), std::sin(angle)} * (radius * m_scale));
    }
    curve(points, width, colour);
}

void OverlayPainter::area(const std::vector<Pixel>& points, const QColor& colour)
{
    const std::size_t n = points.size();
    if (n < 3) return;
    Pixel middle;
    for (const Pixel& p : points)
        middle = middle + p;
    middle = middle * (1.0 / static_cast<double>(n));
    const double alpha = colour.alphaF();
    glBegin(GL_TRIANGLE_FAN);
    for (const Pixel& p : points)
        vertex(p, colour, alpha);
    glEnd();
    glBegin(GL_QUAD_STRIP);
    for (std::size_t k = 0; k <= n; ++k) {
        const Pixel p = points[k % n];
        const double away = length(p - middle);
        vertex(p, colour, alpha);
        vertex(away > 0.0 ? p + (p - middle) * (1.0 / away) : p, colour, 0.0);
    }
    glEnd();
}

void OverlayPainter::sector(Pixel middle, Pixel from, Pixel to, const QColor& colour)
{
    glBegin(GL_TRIANGLES);
    for (const Pixel& p : {middle, from, to})
        vertex(p, colour, colour.alphaF());
    glEnd();
}

void OverlayPainter::arrowHead(Pixel base, Pixel along, double size, double width, const QColor& colour)
{
    const double l = length(along);
    if (!(l > 0.0)) return;
    const Pixel forward = along * (size * m_scale / l);
    const Pixel aside = normalOf(along) * (width * m_scale / 2.0);
    area({base + aside, base + forward, base - aside}, colour);
}

void OverlayPainter::label(Pixel place, const QString& text, const QColor& colour)
{
    if (!std::isfinite(place.x) || !std::isfinite(place.y)) return;
    const QImage image = labelImage(text, colour, m_scale);
    const double gap = 12.0 * m_scale;
    double x = place.x + gap;
    double y = place.y - gap - image.height();
    if (x + image.width() > m_pixels.width()) x = place.x - gap - image.width();
    if (y < 0.0) y = place.y + gap;
    x = std::clamp(x, 0.0, std::max(0.0, static_cast<double>(m_pixels.width() - image.width())));
    y = std::clamp(y, 0.0, std::max(0.0, static_cast<double>(m_pixels.height() - image.height())));
    drawImage(image, static_cast<int>(x), m_pixels.height() - static_cast<int>(y) - image.height(), m_pixels);
}

}  // namespace hvscene
