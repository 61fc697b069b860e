#pragma once

#include "phantom/DicomFile.h"
#include "phantom/Slices.h"

#include <string>

namespace phantom {

/// Absorption of water in the sequence's calibration, per mm; that of air is 0.
constexpr double absorptionOfWater = 0.02;
/// Grey value (0 to 255) that counts as water.
constexpr double greyOfWater = 40;

/// Clicks of a sequence: "M0001" and so on.
constexpr int clicksOfASequence = 3;

/// Writes the folder of a CT sequence: clicks with a photograph and a luminescent image, as a light comes and
/// goes, a reconstruction of the light as optical voxels, and the scan as a DICOM series in "CT Data", with
/// its calibration in absorption and Hounsfield units. `slices` are axial and head first. The folder appears
/// under its name only when all is written; one that holds files stays as it is.
///
/// Returns an empty text on success, else one line that says what went wrong.
std::string writeSequence(const std::string& folder, const Slices& slices, const DicomOptions& options);

}  // namespace phantom
