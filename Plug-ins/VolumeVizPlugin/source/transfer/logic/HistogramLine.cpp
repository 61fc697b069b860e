#include "transfer/logic/HistogramLine.h"

#include <cmath>

QVector<QPointF> histogramLine(const double* values, int count, double min, double max, const QSize& size)
{
    QVector<QPointF> line;
    if (!(min < max) || !std::isfinite(max - min)) return line;
    const double xScale = static_cast<double>(size.width()) / count;
    const double yScale = size.height() / (max - min);
    line.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double value = std::isnan(values[i]) ? min : values[i];
        line.append({i * xScale, size.height() - ((value - min) * yScale + 0.5)});
    }
    return line;
}
