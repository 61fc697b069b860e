#include "lib/hvapi/windows/logic/ImagePlacement.h"

#include <algorithm>
#include <cmath>

namespace hvwindows {

namespace {

double lengthOr1(double length)
{
    return std::isfinite(length) && length > 0.0 ? length : 1.0;
}

double inView(double offset, double picture, double view)
{
    double const room = std::max(0.0, (picture - view) / 2.0);
    return std::clamp(offset, -room, room);
}

}  // namespace

void ImagePlacement::setView(QSize const& size)
{
    m_view = size;
    keepInView();
}

void ImagePlacement::setPicture(QSize const& samples)
{
    if (samples == m_picture) return;
    m_picture = samples;
    fit();
}

void ImagePlacement::setSpacing(double x, double y)
{
    m_spacingX = lengthOr1(x);
    m_spacingY = lengthOr1(y);
    fit();
}

void ImagePlacement::fit()
{
    m_zoom = 1.0;
    m_offset = QPointF();
}

QSizeF ImagePlacement::fittedSize() const
{
    if (m_view.isEmpty() || m_picture.isEmpty()) return {};
    double const width = m_picture.width() * m_spacingX;
    double const height = m_picture.height() * m_spacingY;
    double const scale = std::min(m_view.width() / width, m_view.height() / height);
    // However thin, a picture is there.
    return QSizeF(std::max(1.0, width * scale), std::max(1.0, height * scale));
}

void ImagePlacement::zoom(double factor, QPointF const& at)
{
    if (!std::isfinite(factor) || factor <= 0.0) return;
    double const next = std::clamp(m_zoom * factor, 1.0, largestZoom);
    QPointF const middle(m_view.width() / 2.0, m_view.height() / 2.0);
    QPointF const fromPicture = at - middle - m_offset;
    m_offset += fromPicture * (1.0 - next / m_zoom);
    m_zoom = next;
    keepInView();
}

void ImagePlacement::move(QPointF const& by)
{
    m_offset += by;
    keepInView();
}

void ImagePlacement::keepInView()
{
    QSizeF const size = fittedSize() * m_zoom;
    m_offset.setX(inView(m_offset.x(), size.width(), m_view.width()));
    m_offset.setY(inView(m_offset.y(), size.height(), m_view.height()));
}

QRectF ImagePlacement::target() const
{
    QSizeF const size = fittedSize() * m_zoom;
    if (size.isEmpty()) return {};
    QRectF place(QPointF(), size);
    place.moveCenter(QPointF(m_view.width() / 2.0, m_view.height() / 2.0) + m_offset);
    return place;
}

double ImagePlacement::samplesPerPixel() const
{
    double const width = fittedSize().width() * m_zoom;
    return width > 0.0 ? m_picture.width() / width : 0.0;
}

double ImagePlacement::mmPerPixel() const
{
    return samplesPerPixel() * m_spacingX;
}

}  // namespace hvwindows
