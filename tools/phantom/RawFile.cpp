#include "phantom/RawFile.h"

#include "phantom/PartFile.h"
#include "phantom/Text.h"

#include <algorithm>

namespace phantom {

std::string rawHeader(int size, int bits, double spacing)
{
    const std::string count = std::to_string(size), step = plain(spacing);
    return "VolumeSize " + count + " " + count + " " + count + "\nVoxelSize " + std::to_string(bits) +
           "\nVolumeScale " + step + " " + step + " " + step + "\nField Density Format u\n##\f\n";
}

std::string writeRawFile(const std::string& path, const Scan& scan, int bits, double spacing,
                         unsigned threads)
{
    PartFile file(path);
    const std::string header = rawHeader(scan.size(), bits, spacing);
    if (file.error().empty()) file.write(header.data(), header.size());

    // A few frames a thread at a time: enough to keep all of them busy, little enough to hold in memory.
    const int batch = 4 * static_cast<int>(std::clamp(threads, 1U, 16U));
    for (int first = 0; first < scan.size() && file.error().empty(); first += batch) {
        const int count = std::min(batch, scan.size() - first);
        const std::vector<unsigned char> bytes = sampledFrames(scan, first, count, bits, threads);
        // A voxel block that begins with "##\n" would read as more header; air at a corner never does.
        file.write(bytes.data(), bytes.size());
    }
    file.finish();
    return file.error();
}

}  // namespace phantom
