#include "transfer/logic/HistogramAxes.h"

#include <QRectF>

#include <algorithm>
#include <cmath>

namespace {

constexpr double minorLength = 10.0;
constexpr double majorLength = 20.0;
constexpr double labelGap = 2.0;

bool hasTicks(const AxisRange& range)
{
    return range.majorTicks > 0 && range.minorStep > 0.0 && range.majorStep > 0.0 && range.fraction > 0.0;
}

QLineF tickUp(double x, double height, double length)
{
    return {x, height, x, height - length};
}

}  // namespace

QString axisLabel(double value, double step)
{
    const double shown = std::abs(value) < std::abs(step) * 1e-9 ? 0.0 : value;
    return QStringLiteral("%1").arg(shown, 0, 'g', 6);
}

AxisDrawing xAxis(const AxisRange& range, double min, const QSizeF& size)
{
    AxisDrawing axis;
    const double below = range.firstMajor - min;
    if (!hasTicks(range) || !(below > 0.0)) return axis;
    const double steps = range.majorStep / below;
    const int parts = static_cast<int>(range.majorStep / range.minorStep);
    const int partsBelow = static_cast<int>(below / range.minorStep);
    const double first = range.fraction * size.width();
    const double minor = first / parts * steps;
    const double height = size.height();

    double x = 0.0;
    for (int i = 0; i < range.majorTicks; ++i) {
        const bool partial = i == 0 && steps != 1.0;
        for (int k = 1; k < parts && !partial; ++k)
            axis.ticks.append(tickUp(x + minor * k, height, minorLength));
        x = first + i * first * steps;
        for (int k = 1; k <= partsBelow && partial; ++k) {
            const bool major = k == parts;
            axis.ticks.append(tickUp(x - minor * k, height, major ? majorLength : minorLength));
            if (major)
                axis.labels.append({{x - minor * k + labelGap, height - labelGap},
                                    axisLabel(range.firstMajor - range.minorStep * k, range.majorStep)});
        }
        axis.labels.append({{x + labelGap, height - labelGap},
                            axisLabel(range.firstMajor + i * range.majorStep, range.majorStep)});
        axis.grid.append(QLineF(x, 0.0, x, height));
        axis.ticks.append(tickUp(x, height, majorLength));
    }
    return axis;
}

AxisDrawing yAxis(const AxisRange& range, const QSizeF& size)
{
    AxisDrawing axis;
    if (!hasTicks(range)) return axis;
    const int parts = static_cast<int>(range.majorStep / range.minorStep);
    const double major = range.fraction * size.height();
    const double minor = major / parts;

    double y = size.height();
    for (int i = 1; i <= range.majorTicks; ++i) {
        for (int k = 1; k < parts; ++k)
            axis.ticks.append(QLineF(0.0, y - minor * k, minorLength, y - minor * k));
        y = size.height() - i * major;
        axis.labels.append({{labelGap, y - labelGap},
                            axisLabel(range.firstMajor + (i - 1) * range.majorStep, range.majorStep)});
        axis.ticks.append(QLineF(0.0, y, majorLength, y));
    }
    return axis;
}

QVector<AxisLabel> readableLabels(const QVector<AxisLabel>& labels, const QVector<double>& widths,
                                  double height, const QSizeF& size)
{
    QVector<AxisLabel> readable;
    QVector<QRectF> taken;
    const QRectF widget({0.0, 0.0}, size);
    for (int i = 0; i < std::min(labels.size(), widths.size()); ++i) {
        AxisLabel label = labels[i];
        if (label.at.x() + widths[i] > size.width()) label.at.rx() -= widths[i] + 2.0 * labelGap;
        const QRectF area(label.at.x(), label.at.y() - height, widths[i], height);
        const bool touches = std::any_of(taken.cbegin(), taken.cend(), [&](const QRectF& other) {
            return area.adjusted(-labelGap, 0.0, labelGap, 0.0).intersects(other);
        });
        if (touches || !widget.contains(area)) continue;
        taken.append(area);
        readable.append(label);
    }
    return readable;
}
