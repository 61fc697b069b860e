#include "phantom/CommandLine.h"

#include "phantom/DicomFile.h"
#include "phantom/Mouse.h"
#include "phantom/RawFile.h"
#include "phantom/Scan.h"
#include "phantom/SequenceFolder.h"
#include "phantom/TiffFile.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <new>
#include <thread>

namespace phantom {
namespace {

constexpr int smallest = 16, largest = 1024;
constexpr double finest = 0.0001, coarsest = 99.0;

/// Reads the whole of a text as a number; false, and `number` untouched, if it is none or has a tail.
template <class Number>
bool read(const std::string& text, Number& number)
{
    Number value{};
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end) return false;
    number = value;
    return true;
}

bool takeSize(const std::string& text, Request& request)
{
    return read(text, request.size) && request.size >= smallest && request.size <= largest;
}

bool takeBits(const std::string& text, Request& request)
{
    return read(text, request.bits) && (request.bits == 8 || request.bits == 16);
}

bool takeSpacing(const std::string& text, Request& request)
{
    return read(text, request.spacing) && request.spacing >= finest && request.spacing <= coarsest;
}

bool takeSeed(const std::string& text, Request& request)
{
    return read(text, request.seed);
}

template <class Value>
struct Word
{
    const char* text;
    Value value;
};

constexpr Word<Format> formats[] = {
    {"raw", Format::Raw},
    {"dicom", Format::Dicom},
    {"dicom-multiframe", Format::DicomMultiFrame},
    {"dicom-native", Format::DicomNative},
    {"dicom-native-multiframe", Format::DicomNativeMultiFrame},
    {"tiff", Format::Tiff},
    {"tiff-multipage", Format::TiffMultiPage},
    {"sequence", Format::Sequence},
};

constexpr Word<Orientation> orientations[] = {
    {"axial", Orientation::Axial},
    {"coronal", Orientation::Coronal},
    {"sagittal", Orientation::Sagittal},
};

/// Looks a text up in a table of words; false, and `value` untouched, if it is none of them.
template <class Value, std::size_t N>
bool take(const std::string& text, const Word<Value> (&words)[N], Value& value)
{
    for (const Word<Value>& word : words) {
        if (text != word.text) continue;
        value = word.value;
        return true;
    }
    return false;
}

bool takeFormat(const std::string& text, Request& request)
{
    return take(text, formats, request.format);
}

bool takeOrientation(const std::string& text, Request& request)
{
    return take(text, orientations, request.orientation);
}

bool isNative(Format format)
{
    return format == Format::DicomNative || format == Format::DicomNativeMultiFrame;
}

bool isDicom(Format format)
{
    return format == Format::Dicom || format == Format::DicomMultiFrame || isNative(format);
}

/// Why the options don't go together; empty if they do.
std::string contradiction(const Request& request)
{
    const bool oblique = request.orientation != Orientation::Axial;
    if (!isDicom(request.format) && (oblique || request.feetFirst))
        return "--orientation and --feet-first need a DICOM format, since no other can tell of them";
    if (isNative(request.format) && oblique) return "native DICOM files are axial";
    return {};
}

struct Option
{
    const char* name;
    bool (*take)(const std::string& text, Request& request);
    const char* wanted;
};

constexpr Option options[] = {
    {"--format", takeFormat,
     "raw, dicom, dicom-multiframe, dicom-native, dicom-native-multiframe, tiff, tiff-multipage or sequence"},
    {"--orientation", takeOrientation, "axial, coronal or sagittal"},
    {"--size", takeSize, "a whole number from 16 to 1024"},
    {"--bits", takeBits, "8 or 16"},
    {"--spacing", takeSpacing, "millimetres from 0.0001 to 99"},
    {"--seed", takeSeed, "a whole number from 0 to 18446744073709551615"},
};

Request refused(const std::string& why)
{
    Request request;
    request.error = why;
    return request;
}

Request refused(std::string option, const std::string& wanted, const std::string& value)
{
    return refused(option.append(" wants ").append(wanted).append(", not \"").append(value).append("\""));
}

/// Makes the scan and writes it. Returns an empty text on success.
std::string write(const Request& request, unsigned threads)
{
    const Scan scan(mouseOnBed(), request.size, request.seed);
    if (request.format == Format::Raw)
        return writeRawFile(request.path, scan, request.bits, request.spacing, threads);

    const Slices slices(scan, request.bits, request.orientation, request.feetFirst, threads);
    const DicomOptions dicom{request.orientation, request.feetFirst, isNative(request.format),
                             request.spacing, request.seed};
    switch (request.format) {
    case Format::Dicom:
    case Format::DicomNative:
        return writeDicomSeries(request.path, slices, dicom);
    case Format::DicomMultiFrame:
    case Format::DicomNativeMultiFrame:
        return writeDicomFrames(request.path, slices, dicom);
    case Format::Tiff:
        return writeTiffStack(request.path, slices, request.spacing);
    case Format::TiffMultiPage:
        return writeTiffPages(request.path, slices, request.spacing);
    case Format::Sequence:
        return writeSequence(request.path, slices, dicom);
    case Format::Raw:
        break;
    }
    return {};
}

}  // namespace

Request parseCommandLine(const std::vector<std::string>& arguments)
{
    Request request;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help" || argument == "-h") {
            request.help = true;
            return request;
        }
        if (argument == "--feet-first") {
            request.feetFirst = true;
            continue;
        }
        if (argument.empty()) return refused("an empty file name");
        if (argument[0] != '-') {
            if (!request.path.empty()) return refused("more than one output file: \"" + argument + "\"");
            request.path = argument;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto* const option = std::find_if(std::begin(options), std::end(options),
                                                [&](const Option& o) { return name == o.name; });
        if (option == std::end(options)) return refused("unknown option \"" + name + "\"");
        if (equals == std::string::npos && ++i == arguments.size()) return refused(name + " needs a value");
        const std::string value = equals == std::string::npos ? arguments[i] : argument.substr(equals + 1);
        if (!option->take(value, request)) return refused(name, option->wanted, value);
    }
    if (request.path.empty()) return refused("no output file named");
    const std::string against = contradiction(request);
    if (!against.empty()) return refused(against);
    if (request.bits == 0) request.bits = request.format == Format::Raw ? 8 : 16;
    if (request.spacing == 0) request.spacing = fieldOfView / request.size;
    return request;
}

std::string helpText()
{
    return "Usage: phantom [--format FORMAT] [--orientation PLANE] [--feet-first] [--size N] [--bits 8|16]\n"
           "               [--spacing MM] [--seed S] OUT\n"
           "\n"
           "Writes a made-up CT of a mouse on a scanner bed. The same call writes the same bytes on every\n"
           "machine. A file or folder appears under its name only when it is whole.\n"
           "\n"
           "  --format FORMAT\n"
           "      raw               one RAW file with a text header (default)\n"
           "      dicom             a folder of DICOM files, one a slice\n"
           "      dicom-multiframe  one DICOM file of all slices\n"
           "      dicom-native, dicom-native-multiframe\n"
           "                        the same as the workstation's own DICOM files\n"
           "      tiff              a folder of TIFF files, one a slice\n"
           "      tiff-multipage    one TIFF file of all slices\n"
           "      sequence          a folder of a CT sequence: three clicks with a photograph and a glow in\n"
           "                        the dark, the light as optical voxels, and the slices as DICOM files in\n"
           "                        \"CT Data\"\n"
           "  --orientation PLANE   plane of the slices: axial (default), coronal or sagittal; DICOM only,\n"
           "                        native files are axial\n"
           "  --feet-first          the mouse lies on the bed the other way round; DICOM only\n"
           "  --size N      columns, rows and frames, 16 to 1024 (default 128). Multiples of 64 or of 20 "
           "load\n"
           "                at full resolution; other sizes are reduced a little when they are read.\n"
           "  --bits 8|16   bits a voxel, unsigned (default 8 for raw, 16 for the others)\n"
           "  --spacing MM  edge of a voxel as told to the reader (default 80 / N, a mouse of life size);\n"
           "                the mouse fills the volume whatever the spacing\n"
           "  --seed S      seed of the noise (default 1)\n"
           "  --help        this text\n"
           "\n"
           "OUT is a file, or for dicom, dicom-native, tiff and sequence a folder, which must not hold "
           "files\n"
           "yet. RAW is written as it is made; every other format keeps the whole volume in memory.\n"
           "\n"
           "Exit status: 0 written, 1 it could not be written, 2 wrong arguments.\n";
}

int runPhantom(const std::vector<std::string>& arguments, std::string& out, std::string& error)
{
    const Request request = parseCommandLine(arguments);
    if (request.help) {
        out = helpText();
        return 0;
    }
    if (!request.error.empty()) {
        error = "phantom: " + request.error + " (see phantom --help)\n";
        return 2;
    }
    std::string failure;
    try {
        failure = write(request, std::max(std::thread::hardware_concurrency(), 1U));
    } catch (const std::bad_alloc&) {
        failure = "not enough memory for this size";
    }
    if (failure.empty()) return 0;
    error = "phantom: " + failure + "\n";
    return 1;
}

}  // namespace phantom
