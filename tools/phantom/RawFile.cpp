#include "phantom/RawFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

namespace phantom {
namespace {

/// The shortest decimal text of a number, with a point whatever the locale says.
std::string plain(double number)
{
    char text[400];
    return {text, std::to_chars(text, text + sizeof text, number, std::chars_format::fixed).ptr};
}

/// A file beside the wanted one, which takes its place when all is written and disappears otherwise.
class PartFile
{
public:
    explicit PartFile(const std::string& wanted)
        : m_wanted(wanted)
        , m_path(wanted + ".part-" + std::to_string(std::random_device()()))
        , m_file(std::fopen(m_path.c_str(), "wbx"))
    {
        m_left = m_file != nullptr;
        if (!m_file) fail();
    }
    ~PartFile()
    {
        if (m_file) std::fclose(m_file);
        std::error_code ignored;
        if (m_left) std::filesystem::remove(m_path, ignored);
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Empty, or what went wrong first.
    const std::string& error() const { return m_error; }

    void write(const void* data, std::size_t bytes)
    {
        if (m_error.empty() && std::fwrite(data, 1, bytes, m_file) != bytes) fail();
    }
    void finish()
    {
        if (!m_error.empty()) return;
        const bool closed = std::fclose(m_file) == 0;
        m_file = nullptr;
        if (!closed) return fail();
        std::error_code code;
        std::filesystem::rename(m_path, m_wanted, code);
        if (code)
            m_error = "cannot write \"" + m_wanted + "\": " + code.message();
        else
            m_left = false;
    }

private:
    void fail() { m_error = "cannot write \"" + m_wanted + "\": " + std::generic_category().message(errno); }

    std::string m_wanted, m_path, m_error;
    std::FILE* m_file;
    bool m_left;  ///< whether a part file lies on the disk
};

}  // namespace

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
