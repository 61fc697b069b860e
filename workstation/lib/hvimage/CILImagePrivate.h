#pragma once

#include "TiffReader.h"
#include "hvimage/CILImage.h"
#include "logic/SampleRange.h"
#include "logic/TiffSamples.h"

#include <QByteArray>

#include <memory>

class CILImage::ImagePrivate
{
public:
    ImagePrivate() = default;

    // A copy shares no open file: it opens the file again when it needs another of its pictures.
    ImagePrivate(ImagePrivate const& other)
        : range(other.range)
        , palette(other.palette)
        , path(other.path)
        , pageCount(other.pageCount)
        , page(other.page)
    {}

    ImagePrivate& operator=(ImagePrivate const& other)
    {
        if (this == &other) return *this;
        range = other.range;
        palette = other.palette;
        path = other.path;
        pageCount = other.pageCount;
        page = other.page;
        reader.reset();
        return *this;
    }

    hvimage::SampleRange range;
    CILPalette palette;

    // The file that was loaded last; kept open as long as it has more pictures to give.
    QByteArray path;
    int pageCount = 0;
    hvimage::TiffPage page;  // the picture that was asked for last
    std::unique_ptr<TiffReader> reader;
};
