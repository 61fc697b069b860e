#include "hvimage/CILPalette.h"

#include "logic/ColorTables.h"

#include <algorithm>
#include <cmath>
#include <optional>

class CILPalette::Private
{
public:
    HVS_COLORTABLE_TYPES type = eColorTableGrays;
    double low = 0.0;
    double high = 1.0;
    bool reversed = false;
    bool logScale = false;
    double imageMinimum = 0.0;
    double imageMaximum = 255.0;
    std::optional<hvimage::ColorTable> entries;

    void remakeEntries()
    {
        entries.reset();
        if (hvimage::ColorTable const* const table = hvimage::colorTable(type))
            entries = hvimage::sectionOfTable(*table, low, high, logScale);
    }
};

namespace {

// Also for what is no number, which gives 0.
double fraction(double value)
{
    return value > 0.0 ? std::min(value, 1.0) : 0.0;
}

}  // namespace

CILPalette::CILPalette()
    : CILPalette(eColorTableGrays)
{}

CILPalette::CILPalette(HVS_COLORTABLE_TYPES type)
    : d(std::make_unique<Private>())
{
    setColorTableType(type, 0.0F, 1.0F);
}

CILPalette::CILPalette(CILPalette const& other)
    : d(std::make_unique<Private>(*other.d))
{}

CILPalette& CILPalette::operator=(CILPalette const& other)
{
    if (this != &other) *d = *other.d;
    return *this;
}

CILPalette::~CILPalette() = default;

void CILPalette::setColorTableType(HVS_COLORTABLE_TYPES type, float low, float high)
{
    d->type = type;
    d->low = fraction(low);
    d->high = fraction(high);
    d->remakeEntries();
}

void CILPalette::setReversed(int reversed)
{
    d->reversed = reversed != 0;
}

int CILPalette::reversed() const
{
    return d->reversed ? 1 : 0;
}

void CILPalette::setLogScale(int logScale)
{
    d->logScale = logScale != 0;
    d->remakeEntries();
}

void CILPalette::SetImageMinMax(double minimum, double maximum)
{
    d->imageMinimum = minimum;
    d->imageMaximum = maximum;
}

unsigned char* CILPalette::getColorTableBuffer()
{
    return d->entries ? d->entries->data() : nullptr;
}

int CILPalette::getMaxIndex() const
{
    return d->entries ? 256 : 0;
}

void CILPalette::GetRGBForImageValue(double value, double* red, double* green, double* blue,
                                     double* alpha) const
{
    unsigned char color[4] = {0, 0, 0, 255};
    if (d->entries) {
        double const span = d->imageMaximum - d->imageMinimum;
        double const share = span > 0.0 ? fraction((value - d->imageMinimum) / span) : 0.0;
        int const index = static_cast<int>(share * 255.0 + 0.5);
        std::copy_n(d->entries->data() + 4 * (d->reversed ? 255 - index : index), 4, color);
    }
    *red = color[0];
    *green = color[1];
    *blue = color[2];
    *alpha = color[3];
}
