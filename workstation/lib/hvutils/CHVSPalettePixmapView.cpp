#include "hvutils/CHVSPalettePixmapView.h"

#include <QImage>
#include <QPainter>

class CHVSPalettePixmapView::Private
{
public:
    CILPalette palette;
};

CHVSPalettePixmapView::CHVSPalettePixmapView(QWidget* parent)
    : QOpenGLWidget(parent)
    , d(std::make_unique<Private>())
{}

CHVSPalettePixmapView::~CHVSPalettePixmapView() = default;

void CHVSPalettePixmapView::setPaletteCT(HVS_COLORTABLE_TYPES type, float low, float high)
{
    d->palette.setColorTableType(type, low, high);
    update();
}

void CHVSPalettePixmapView::setPaletteCTReverse(bool reverse)
{
    d->palette.setReversed(reverse ? 1 : 0);
    update();
}

CILPalette CHVSPalettePixmapView::getPalette() const
{
    return d->palette;
}

void CHVSPalettePixmapView::paintGL()
{
    QPainter painter(this);
    int const entries = d->palette.getMaxIndex();
    if (entries == 0) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    bool const upwards = height() > width();
    int const length = upwards ? height() : width();
    QImage bar(upwards ? 1 : length, upwards ? length : 1, QImage::Format_RGB32);
    unsigned char const* const table = d->palette.getColorTableBuffer();
    for (int i = 0; i < length; ++i) {
        int const entry = length > 1 ? (i * (entries - 1) + (length - 1) / 2) / (length - 1) : 0;
        unsigned char const* const color = table + 4 * (d->palette.reversed() ? entries - 1 - entry : entry);
        QRgb const rgb = qRgb(color[0], color[1], color[2]);
        if (upwards)
            bar.setPixel(0, length - 1 - i, rgb);
        else
            bar.setPixel(i, 0, rgb);
    }
    painter.drawImage(rect(), bar);
}
