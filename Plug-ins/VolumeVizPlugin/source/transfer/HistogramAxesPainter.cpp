#include "transfer/HistogramAxesPainter.h"

#include "hvimage/getNiceRangeForDisplay.h"
#include "transfer/logic/HistogramAxes.h"

#include <QFontMetricsF>
#include <QPainter>

namespace {

constexpr int mostXTicks = 20;
constexpr int mostYTicks = 10;

AxisRange rangeOf(double min, double max, int mostTicks)
{
    tagHVSDisplayRange range;
    getNiceRangeForDisplay(min, max, mostTicks, &range);
    return {range.nMajorTicks, range.dMinorStep, range.dFirstMajorTick, range.dMajorStep,
            range.dMajorFraction};
}

void paintAxis(QPainter& painter, const AxisDrawing& axis, const QSizeF& size)
{
    painter.setPen(QPen(QColor(150, 150, 150, 255), 1.0, Qt::DashLine));
    painter.drawLines(axis.grid);
    painter.setPen(Qt::black);
    painter.drawLines(axis.ticks);

    const QFontMetricsF font(painter.font(), painter.device());
    QVector<double> widths;
    for (const AxisLabel& label : axis.labels)
        widths.append(font.horizontalAdvance(label.text));
    for (const AxisLabel& label : readableLabels(axis.labels, widths, font.ascent(), size))
        painter.drawText(label.at, label.text);
}

}  // namespace

void paintHistogramAxes(QPainter& painter, const QSizeF& size, double min, double max, double yMax)
{
    if (!(min < max)) return;
    painter.save();
    paintAxis(painter, xAxis(rangeOf(min, max, mostXTicks), min, size), size);
    paintAxis(painter, yAxis(rangeOf(0.0, yMax, mostYTicks), size), size);
    painter.restore();
}
