#include "lib/hvapi/export/PictureBytes.h"

#include <QImage>

#include <cairo-ps.h>
#include <memory>

namespace {

constexpr double kPointsPerPixel = 72.0 / 96.0;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length)
{
    static_cast<QByteArray*>(bytes)->append(reinterpret_cast<const char*>(data), static_cast<int>(length));
    return CAIRO_STATUS_SUCCESS;
}

struct CairoDeleter
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using Context = std::unique_ptr<cairo_t, CairoDeleter>;

}  // namespace

QByteArray PictureBytes::postScript(const QImage& picture)
{
    QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    QByteArray bytes;
    const Surface paper(cairo_ps_surface_create_for_stream(append, &bytes, rgb.width() * kPointsPerPixel,
                                                           rgb.height() * kPointsPerPixel));
    cairo_ps_surface_set_eps(paper.get(), 1);
    // Rows of 32 bits in the machine's order, the highest byte unused: the same in both libraries.
    const Surface pixels(cairo_image_surface_create_for_data(rgb.bits(), CAIRO_FORMAT_RGB24, rgb.width(),
                                                             rgb.height(), rgb.bytesPerLine()));
    {
        const Context context(cairo_create(paper.get()));
        cairo_scale(context.get(), kPointsPerPixel, kPointsPerPixel);
        cairo_set_source_surface(context.get(), pixels.get(), 0.0, 0.0);
        cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_NEAREST);
        cairo_paint(context.get());
        cairo_show_page(context.get());
    }
    cairo_surface_finish(paper.get());
    return cairo_surface_status(paper.get()) == CAIRO_STATUS_SUCCESS ? bytes : QByteArray();
}
