#include "browse/logic/FileOrder.h"

#include <algorithm>

namespace {

ushort lowerAscii(ushort c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<ushort>(c + ('a' - 'A')) : c;
}

// As QString compares ignoring case; that takes its time over every letter, and a browse sorts every folder.
int compareIgnoringCase(const QString& a, const QString& b)
{
    const int common = std::min(a.size(), b.size());
    const ushort* const left = a.utf16();
    const ushort* const right = b.utf16();
    for (int i = 0; i < common; ++i) {
        if (left[i] == right[i]) continue;
        if (left[i] >= 0x80 || right[i] >= 0x80) return a.compare(b, Qt::CaseInsensitive);
        const int difference = lowerAscii(left[i]) - lowerAscii(right[i]);
        if (difference != 0) return difference;
    }
    return a.size() - b.size();
}

}  // namespace

void sortByName(QStringList& names)
{
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        const int order = compareIgnoringCase(a, b);
        // Names that differ by case only: in any file system the same way round.
        return order != 0 ? order < 0 : a < b;
    });
}
