#include "phantom/CommandLine.h"

#include "phantom/Mouse.h"
#include "phantom/RawFile.h"
#include "phantom/Scan.h"

#include <algorithm>
#include <charconv>
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

struct Option
{
    const char* name;
    bool (*take)(const std::string& text, Request& request);
    const char* wanted;
};

constexpr Option options[] = {
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
    if (request.spacing == 0) request.spacing = fieldOfView / request.size;
    return request;
}

std::string helpText()
{
    return "Usage: phantom [--size N] [--bits 8|16] [--spacing MM] [--seed S] OUT.vox\n"
           "\n"
           "Writes a made-up CT of a mouse on a scanner bed as a RAW volume with a text header.\n"
           "The same call writes the same bytes on every machine.\n"
           "\n"
           "  --size N      columns, rows and frames, 16 to 1024 (default 128). Multiples of 64 or of 20 "
           "load\n"
           "                at full resolution; other sizes are reduced a little when they are read.\n"
           "  --bits 8|16   bits a voxel, unsigned (default 8)\n"
           "  --spacing MM  edge of a voxel as told to the reader (default 80 / N, a mouse of life size);\n"
           "                the mouse fills the volume whatever the spacing\n"
           "  --seed S      seed of the noise (default 1)\n"
           "  --help        this text\n"
           "\n"
           "Exit status: 0 written, 1 the file could not be written, 2 wrong arguments.\n";
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
        const Scan scan(mouseOnBed(), request.size, request.seed);
        failure = writeRawFile(request.path, scan, request.bits, request.spacing,
                               std::max(std::thread::hardware_concurrency(), 1U));
    } catch (const std::bad_alloc&) {
        failure = "not enough memory for this size";
    }
    if (failure.empty()) return 0;
    error = "phantom: " + failure + "\n";
    return 1;
}

}  // namespace phantom
