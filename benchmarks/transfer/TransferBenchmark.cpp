// From a move of the mouse over a control point to the repainted gradient, and from the end of the drag to
// the table on the node: each wanted in under a millisecond. The yardsticks are a bare fill of the same
// pictures, and a table that is interpolated without a picture.

#include "render/CGLVolume.h"
#include "transfer/CColorTableWidget.h"
#include "transfer/CTransferFunction1DWidget.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

constexpr int pointCount = 12;
constexpr int stripHeight = 20;

/// A chain of a dozen points over a histogram, on widgets as in the palette or in a large window.
struct Editor
{
    Editor(int width, int height)
        : picture(width, height, QImage::Format_RGB32)
        , stripPicture(width, stripHeight, QImage::Format_RGB32)
    {
        widget.resize(width, height);
        strip.resize(width, stripHeight);
        widget.setColorTableWidget(&strip);
        QPolygonF points;
        QVector<QRgb> colors;
        for (int i = 0; i < pointCount; ++i) {
            const double share = static_cast<double>(i) / (pointCount - 1);
            points.append({share * width, (1.0 - share * share) * height});
            colors.append(QColor::fromHsvF(share, 1.0, 1.0).rgb());
        }
        QVector<PointLock> locks(pointCount, NoLock);
        locks.first() = LockToLeft;
        locks.last() = LockToRight;
        widget.hoverPoints()->setPoints(points, colors);
        widget.hoverPoints()->setLocks(locks);
        widget.hoverPoints()->setSortType(HoverPoints::XSort);
        widget.pointsUpdated();
        std::array<double, 255> bins{};
        for (int i = 0; i < 255; ++i)
            bins[i] = i * (255.0 - i);
        widget.setHistogram(bins.data(), 255);
        grip = points.at(pointCount / 2).toPoint();
    }

    void send(QEvent::Type type, const QPoint& at)
    {
        QMouseEvent event(type, at, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&widget, &event);
    }

    void drag(int step) { send(QEvent::MouseMove, grip + QPoint(step % 5, step % 3)); }

    void paint()
    {
        widget.render(&picture);
        strip.render(&stripPicture);
    }

    CTransferFunction1DWidget widget{CTransferFunction1DWidget::colorAndAlpha};
    CColorTableWidget strip;
    QImage picture;
    QImage stripPicture;
    QPoint grip;
};

// points to gradient picture, without the widgets' own painting
void dragToGradient(benchmark::State& state)
{
    Editor editor(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    editor.send(QEvent::MouseButtonPress, editor.grip);
    int step = 0;
    for (auto _ : state)
        editor.drag(++step);
}

// the same with everything that is painted anew: gradient strip, histogram, curve and markers
void dragToScreen(benchmark::State& state)
{
    Editor editor(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    editor.send(QEvent::MouseButtonPress, editor.grip);
    int step = 0;
    for (auto _ : state) {
        editor.drag(++step);
        editor.paint();
    }
}

// one fill of each picture
void bareFill(benchmark::State& state)
{
    Editor editor(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    QRgb colour = 0;
    for (auto _ : state) {
        editor.picture.fill(++colour);
        editor.stripPicture.fill(colour);
        benchmark::ClobberMemory();
    }
}

// the end of an edit: points to gradient to table to node
void commitToNode(benchmark::State& state)
{
    Editor editor(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    CGLVolume node(QStringLiteral("GLVolume"));
    QObject::connect(&editor.widget, &CTransferFunction1DWidget::colorsChanged, [&] {
        const std::unique_ptr<unsigned char[]> table(editor.widget.makeColorTable());
        node.setVolumeColorTable(table.get());
    });
    for (auto _ : state) {
        editor.widget.pointsUpdated();
        editor.send(QEvent::MouseButtonRelease, editor.grip);
    }
}

// the table by interpolation between two points, eight channels' worth of arithmetic an entry
void bareTable(benchmark::State& state)
{
    std::array<unsigned char, 1024> table{};
    for (auto _ : state) {
        for (int i = 0; i < 256; ++i)
            for (int c = 0; c < 4; ++c)
                table[i * 4 + c] =
                    static_cast<unsigned char>((c + 1) * 50 + (i * (255 - (c + 1) * 50)) / 255);
        benchmark::DoNotOptimize(table);
        benchmark::ClobberMemory();
    }
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({245, 185})->Args({1200, 700})->Unit(benchmark::kMicrosecond);
}

BENCHMARK(dragToGradient)->Name("transfer/drag_to_gradient")->Apply(sizes);
BENCHMARK(dragToScreen)->Name("transfer/drag_to_screen")->Apply(sizes);
BENCHMARK(bareFill)->Name("transfer/yardstick_fill")->Apply(sizes);
BENCHMARK(commitToNode)->Name("transfer/commit_to_node")->Apply(sizes);
BENCHMARK(bareTable)->Name("transfer/yardstick_table")->Unit(benchmark::kMicrosecond);

}  // namespace
