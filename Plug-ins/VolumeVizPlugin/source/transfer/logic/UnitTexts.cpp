#include "transfer/logic/UnitTexts.h"

RangeTexts rangeTexts(const SUnitRanges& ranges, const QString& unit)
{
    constexpr const char* units[] = {"Counts", "Absorption", "Hounsfield"};
    const auto text = [](float value) {
        return QStringLiteral("%1").arg(static_cast<double>(value), 0, 'e', 2);
    };
    for (std::size_t i = 0; i < 3; ++i)
        if (unit == QLatin1String(units[i]))
            return {text(ranges.limits[2 * i]), text(ranges.limits[2 * i + 1])};
    return {QStringLiteral("0.00"), QStringLiteral("0.00")};
}
