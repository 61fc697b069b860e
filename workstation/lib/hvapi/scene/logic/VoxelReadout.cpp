#include "lib/hvapi/scene/logic/VoxelReadout.h"

#include <algorithm>

namespace hvscene {

namespace {

constexpr int mostDecimals = 6;

/// With the sign of typography, and none for what is shown as 0.
QString withSign(double value, const QString& digits)
{
    const bool isZero = std::all_of(digits.begin(), digits.end(),
                                    [](QChar c) { return c == QLatin1Char('0') || c == QLatin1Char('.'); });
    return value < 0.0 && !isZero ? QStringLiteral("\u2212") + digits : digits;
}

QString millimetreText(double mm)
{
    return withSign(mm, QString::number(std::fabs(mm), 'f', 2));
}

}  // namespace

double ValueUnit::valueOf(int voxel) const
{
    // The ends come out as they are told.
    const double share = std::clamp(voxel, 0, 255) / 255.0;
    return atLowest * (1.0 - share) + atHighest * share;
}

double ValueUnit::step() const
{
    return std::fabs(atHighest / 255.0 - atLowest / 255.0);
}

QString numberAtStep(double value, double step)
{
    if (!(step > 0.0) || !std::isfinite(step))
        return withSign(value, QString::number(std::fabs(value), 'g', 6));
    const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step))));
    const bool isLong = decimals > mostDecimals || std::fabs(value) >= 1e12;
    if (isLong) return withSign(value, QString::number(std::fabs(value), 'g', 4));
    return withSign(value, QString::number(std::fabs(value), 'f', decimals));
}

QString readoutText(Vec3 place, int voxel, const ValueUnit& unit)
{
    const QString bar = QStringLiteral("   |   ");
    QString text = QStringLiteral("x %1  y %2  z %3 mm")
                       .arg(millimetreText(place.x), millimetreText(place.y), millimetreText(place.z));
    text += bar + QStringLiteral("voxel %1").arg(voxel) + bar;
    text += numberAtStep(unit.valueOf(voxel), unit.step());
    if (!unit.name.isEmpty()) text += QLatin1Char(' ') + unit.name;
    const double step = unit.step();
    if (step > 0.0 && std::isfinite(step))
        text += QStringLiteral(", in steps of %1").arg(QString::number(step, 'g', 2));
    return text;
}

}  // namespace hvscene
