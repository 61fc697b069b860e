#pragma once

#include <QString>
#include <array>

/// The range of a volume in each unit: lowest and highest value in counts, then in absorption, then in
/// Hounsfield units.
struct SUnitRanges
{
    std::array<float, 6> limits{};
};

struct RangeTexts
{
    QString min;
    QString max;
};

/// The ends of the range in the unit of that name, in exponent notation with two decimals; "0.00" and "0.00"
/// for a unit that is not known.
RangeTexts rangeTexts(const SUnitRanges& ranges, const QString& unit);
