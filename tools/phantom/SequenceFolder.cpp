#include "phantom/SequenceFolder.h"

#include "phantom/OpticalVoxels.h"
#include "phantom/PartFile.h"
#include "phantom/Photograph.h"
#include "phantom/Text.h"
#include "phantom/TiffFile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace phantom {
namespace {

constexpr double strengths[clicksOfASequence] = {0.25, 1.0, 0.55};

std::string clickName(int number)
{
    return "M000" + std::to_string(number);
}

unsigned brightest(const Slices& slices)
{
    unsigned highest = 1;
    for (int i = 0; i < slices.size(); ++i) {
        const std::vector<unsigned char> pixels = slices.slice(i);
        const std::size_t bytes = slices.bits() / 8;
        for (std::size_t at = 0; at < pixels.size(); at += bytes) {
            const unsigned value = bytes == 1 ? pixels[at] : pixels[at] | pixels[at + 1] << 8;
            highest = std::max(highest, value);
        }
    }
    return highest;
}

std::string sequenceInfo(const Slices& slices)
{
    // The absorption of the highest value, so that water comes out as water.
    const double water = greyOfWater * (slices.bits() == 8 ? 1 : 16);
    const double highest = absorptionOfWater * brightest(slices) / water;
    std::string text = "# A made-up mouse, written by phantom.\n"
                       "[Sequence]\nFormat Version = 1\nSequence Type = CT\n\n[Clicks]\n";
    for (int number = 1; number <= clicksOfASequence; ++number)
        text += "Click " + std::to_string(number) + " = " + clickName(number) + "\n";
    text += "\n[CT Acquisition Parameters]\nCT Mode = Phantom\nReconstructed Volume Min = 0\n";
    text += "Reconstructed Volume Max = " + brief(highest) + "\n";
    text += "Hounsfield Calibration Air = 0\n";
    text += "Hounsfield Calibration Water = " + brief(absorptionOfWater) + "\n";
    return text;
}

std::string clickInfo(double fieldOfViewInCm)
{
    const std::string field = "Field of View = " + brief(fieldOfViewInCm) + "\n";
    return "[photographic image]\nFile = photograph.tif\n" + field +
           "Binning Factor = 4\n\n[luminescent image]\nFile = luminescent.tif\n" + field +
           "Binning Factor = 8\n";
}

std::string writeWhole(const std::string& path, const std::string& bytes)
{
    PartFile file(path);
    file.write(bytes);
    file.finish();
    return file.error();
}

std::string writeClick(const std::string& folder, const Photograph& camera, int number,
                       const DicomOptions& options)
{
    std::error_code code;
    if (!std::filesystem::create_directory(folder, code))
        return "cannot write the folder \"" + folder + "\": " + code.message();
    const double pixel = options.spacing;
    const std::uint64_t seed = options.seed + static_cast<std::uint64_t>(number);
    const int half = camera.size() / 2;
    std::string error =
        writeWhole(folder + "/photograph.tif", tiffPicture(camera.size(), camera.daylight(), pixel));
    if (error.empty())
        error = writeWhole(folder + "/luminescent.tif",
                           tiffPicture(half, camera.glow(strengths[number - 1], seed), 2 * pixel));
    if (error.empty()) error = writeWhole(folder + "/ClickInfo.txt", clickInfo(pixel * camera.size() / 10));
    return error;
}

}  // namespace

std::string writeSequence(const std::string& folder, const Slices& slices, const DicomOptions& options)
{
    PartFolder part(folder);
    if (!part.error().empty()) return part.error();
    const Photograph camera(slices);
    std::string error;
    for (int number = 1; number <= clicksOfASequence && error.empty(); ++number)
        error = writeClick(part.path(clickName(number)), camera, number, options);
    if (error.empty()) error = writeDicomSeries(part.path("CT Data"), slices, options);
    if (error.empty()) {
        const double scale = options.spacing * slices.size() / fieldOfView;
        error = writeWhole(part.path("OpticalVoxels.txt"), opticalVoxelText(scale));
    }
    if (error.empty()) error = writeWhole(part.path("SequenceInfo.txt"), sequenceInfo(slices));
    if (!error.empty()) return error;
    part.finish();
    return part.error();
}

}  // namespace phantom
