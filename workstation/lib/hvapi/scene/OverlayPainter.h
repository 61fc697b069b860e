#pragma once

#include "lib/hvapi/scene/GlViewState.h"
#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <QColor>
#include <QSize>
#include <QString>
#include <vector>

namespace hvscene {

/// Draws smooth lines, shapes and labels over the scene, in pixels from the upper left corner. Edges are
/// softened by geometry, which looks the same with every driver. Needs a current context for as long as it
/// lives; the GL state comes back in the end.
class OverlayPainter
{
public:
    /// `scale` is the number of pixels of a line; widths and radii below count in it.
    OverlayPainter(QSize pixels, double scale);

    double scale() const { return m_scale; }

    void line(Pixel from, Pixel to, double width, const QColor& colour);
    /// Through all points, with joints that show no seam.
    void curve(const std::vector<Pixel>& points, double width, const QColor& colour);
    void disc(Pixel middle, double radius, const QColor& colour);
    void circle(Pixel middle, double radius, double width, const QColor& colour);
    /// A convex shape.
    void area(const std::vector<Pixel>& points, const QColor& colour);
    /// A triangle with hard edges, to be laid beside others of the same colour.
    void sector(Pixel middle, Pixel from, Pixel to, const QColor& colour);
    /// The head of an arrow: its tip lies `length` beyond `base` in the direction `along`.
    void arrowHead(Pixel base, Pixel along, double length, double width, const QColor& colour);
    /// A text on a dark plate beside `place`, to its upper right unless the window ends there.
    void label(Pixel place, const QString& text, const QColor& colour);

private:
    void vertex(Pixel p, const QColor& colour, double alpha);

    AttributeScope m_attributes;
    MatrixScope m_matrices;
    QSize m_pixels;
    double m_scale;
};

}  // namespace hvscene
