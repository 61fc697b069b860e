#pragma once

#include <optional>

namespace hvscene {

/// How a system stored a reconstructed volume. Stored values 0 to 65535 stand for `volumeMin` to `volumeMax`;
/// air and water are values of the same scale, by which Hounsfield units are defined: -1000 and 0.
struct CtCalibration
{
    double volumeMin = 0.0;
    double volumeMax = 0.0;
    double air = 0.0;
    double water = 0.0;
};

struct StoredHounsfield
{
    double value = 0.0;  ///< as a real number
    int stored = 0;      ///< rounded to nearest, within 0 to 65535
    int air = 0;         ///< the same for -1000 HU
    int water = 0;       ///< the same for 0 HU
};

/// The stored value of a number of Hounsfield units. Nothing for a calibration that is no scale: not finite,
/// a maximum not above its minimum, or water not above air.
std::optional<StoredHounsfield> storedHounsfield(int hounsfield, const CtCalibration& calibration);

}  // namespace hvscene
