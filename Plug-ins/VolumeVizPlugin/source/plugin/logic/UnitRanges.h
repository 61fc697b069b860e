#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <optional>

/// What is known of the values of a volume. A value that the sequence does not tell, or that is no number, is
/// left out.
struct UnitFacts
{
    double volumeMin = 0.0;  ///< range of the source, in counts
    double volumeMax = 255.0;
    std::optional<float> reconstructedMin;  ///< absorption at the lowest count
    std::optional<float> reconstructedMax;
    std::optional<float> air;  ///< absorption of air and of water
    std::optional<float> water;
};

/// The units in which values can be shown, and the range of the volume in each.
struct UnitRanges
{
    /// Lowest and highest value in "Counts", then in "Absorption", then in "Hounsfield"; 0 in a unit that is
    /// not on offer.
    std::array<float, 6> conversion{};
    bool hasAbsorption = false;
    bool hasHounsfield = false;

    /// The units on offer, the best one last.
    QStringList units() const;
};

/// "Absorption" takes both reconstructed values, "Hounsfield" air and water beside them, all of them with the
/// digits of asShown(). A unit whose range is not finite is not on offer.
UnitRanges unitRanges(const UnitFacts& facts);

/// What the lowest and the highest voxel value stand for in a unit, of the six ends of
/// `UnitRanges::conversion`; nothing for a text that names no unit.
std::optional<std::array<float, 2>> rangeIn(const QString& unit, const std::array<float, 6>& conversion);

/// A number with the digits that a text of six significant digits keeps; nothing when that is no number.
std::optional<float> asShown(float value);
