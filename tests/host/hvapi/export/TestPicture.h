#pragma once

#include <QImage>

/// Four quarters: red, green, blue, grey; odd sides if asked.
inline QImage testPicture(int width = 60, int height = 40)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool right = x >= width / 2;
            const bool low = y >= height / 2;
            const QRgb color = low ? (right ? qRgb(128, 128, 128) : qRgb(0, 0, 255))
                                   : (right ? qRgb(0, 255, 0) : qRgb(255, 0, 0));
            picture.setPixel(x, y, color);
        }
    return picture;
}

/// The largest difference of any channel between the middles of the quarters.
inline int worstQuarter(const QImage& picture)
{
    const QImage expected = testPicture();
    int worst = 0;
    for (const double x : {0.25, 0.75})
        for (const double y : {0.25, 0.75}) {
            const QRgb is =
                picture.pixel(static_cast<int>(x * picture.width()), static_cast<int>(y * picture.height()));
            const QRgb should = expected.pixel(static_cast<int>(x * expected.width()),
                                               static_cast<int>(y * expected.height()));
            worst = std::max({worst, std::abs(qRed(is) - qRed(should)), std::abs(qGreen(is) - qGreen(should)),
                              std::abs(qBlue(is) - qBlue(should))});
        }
    return worst;
}
