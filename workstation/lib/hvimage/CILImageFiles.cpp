#include "CILImageBasePrivate.h"
#include "CILImagePrivate.h"
#include "TiffFile.h"

#include <memory>
#include <utility>

int CILImage::canInitFromFile(char const* path)
{
    TiffFile file(path);
    return isTiff(file) ? 1 : 0;
}

bool CILImage::LoadFromTIFFFile(char const* path, int frame)
{
    ImagePrivate& image = *m_image;
    if (!image.reader || image.path != path || !image.reader->isUpToDate(path))
        image.reader = std::make_unique<TiffReader>(path);
    image.path = path;
    image.pageCount = image.reader->pageCount();
    return readPage(frame);
}

void const* CILImage::getFrameData(int frame)
{
    if (m_image->path.isEmpty()) return nullptr;
    return readPage(frame) ? d->data() : nullptr;
}

bool CILImage::readPage(int number)
{
    ImagePrivate& image = *m_image;
    if (!image.reader) image.reader = std::make_unique<TiffReader>(image.path.constData());
    TiffReader& reader = *image.reader;
    HVSDataTypes const type =
        reader.select(number, image.page) ? reader.decodableType(image.page) : eTypeNone;
    long const width = image.page.width;
    long const height = image.page.height;
    // The memory of a page of the same kind is used again as it is.
    bool const fits =
        !d->isEmpty() && !d->isBorrowed() && d->type == type && d->width == width && d->height == height;
    bool const good = type != eTypeNone && (fits || InitWithType(type, width, height)) &&
                      reader.decode(image.page, type, d->writable());
    // Half a picture is none.
    if (!good) *d = Private();
    RefreshImageStats();
    // A file of one picture has given it.
    if (image.pageCount < 2) image.reader.reset();
    return good;
}

int CILImage::getImageCount() const
{
    return m_image->pageCount;
}

float CILImage::getXResolution() const
{
    return m_image->page.xResolution;
}

float CILImage::getYResolution() const
{
    return m_image->page.yResolution;
}

int CILImage::getResolutionUnit() const
{
    return m_image->page.resolutionUnit;
}

long CILImage::getOriginalWidth() const
{
    return m_image->page.width;
}

long CILImage::getOriginalHeight() const
{
    return m_image->page.height;
}

bool CILImage::isRGBImageFormat() const
{
    return m_image->page.samples > 1;
}
