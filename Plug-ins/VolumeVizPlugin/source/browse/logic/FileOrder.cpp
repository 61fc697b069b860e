#include "browse/logic/FileOrder.h"

#include <algorithm>

void sortByName(QStringList& names)
{
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        // Names that differ by case only: in any file system the same way round.
        return order != 0 ? order < 0 : a < b;
    });
}
