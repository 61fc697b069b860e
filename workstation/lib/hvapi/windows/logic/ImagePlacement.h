#pragma once

#include "hvapi/hvapi_global.h"

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QSizeF>

namespace hvwindows {

/// Where a picture lies in its view: fitted at the proportions of its pixels, or larger and moved. Zoom is 1
/// for the fitted picture and at most `largestZoom`.
class HVAPI_EXPORT ImagePlacement
{
public:
    static constexpr double largestZoom = 64.0;

    /// Size of the view, in its pixels. The picture keeps its zoom and its place.
    void setView(QSize const& size);
    /// Size of the picture, in samples; another size than before fits it.
    void setPicture(QSize const& samples);
    /// Distance of samples in mm, along the width and the height; 1 for what is no length above 0. Fits.
    void setSpacing(double x, double y);

    void fit();
    /// Multiplies the zoom; what lies under `at` stays there as far as the picture reaches.
    void zoom(double factor, QPointF const& at);
    /// Moves the picture by pixels of the view. A picture that is smaller than the view stays in its middle,
    /// a larger one leaves no gap.
    void move(QPointF const& by);

    /// The picture in the view; empty where one of them is.
    QRectF target() const;
    double zoomFactor() const { return m_zoom; }
    /// Millimetres, and samples, of a pixel of the view along the width; 0 where there is no picture.
    double mmPerPixel() const;
    double samplesPerPixel() const;

private:
    /// Size of the picture at zoom 1.
    QSizeF fittedSize() const;
    void keepInView();

    QSize m_view;
    QSize m_picture;
    double m_spacingX = 1.0;
    double m_spacingY = 1.0;
    double m_zoom = 1.0;
    QPointF m_offset;  ///< of the picture's middle from the view's
};

}  // namespace hvwindows
