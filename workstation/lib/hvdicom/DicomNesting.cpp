#include "DicomNesting.h"

#include "FileWindow.h"
#include "InflatedFile.h"
#include "logic/Nesting.h"

namespace hvdicom {

namespace {

constexpr unsigned deepest = 100;

}  // namespace

bool isNestedTooDeep(char const* path)
{
    FileWindow window(path);
    ByteSource const plain = [&window](std::uint64_t offset, std::uint8_t* target, std::size_t count) {
        return window.read(offset, target, count);
    };
    if (auto const start = deflatedAttributes(plain)) {
        InflatedFile inflated(
            [&window, start](std::uint64_t offset, std::uint8_t* target, std::size_t count) {
                return window.fill(*start + offset, target, count);
            });
        ByteSource const attributes = [&inflated](std::uint64_t offset, std::uint8_t* target,
                                                  std::size_t count) {
            return inflated.read(offset, target, count);
        };
        return nestingDepth(attributes, deepest) >= deepest;
    }
    return nestingDepth(plain, deepest) >= deepest;
}

}  // namespace hvdicom
