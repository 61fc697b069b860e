#include "NameFilters.h"

#include <algorithm>

bool passesNameFilters(const QString& name, const QStringList& filters)
{
    return std::any_of(filters.begin(), filters.end(), [&name](const QString& filter) {
        return filter.startsWith(QLatin1Char('*'))
                   ? QStringView(name).endsWith(QStringView(filter).mid(1), Qt::CaseInsensitive)
                   : name.compare(filter, Qt::CaseInsensitive) == 0;
    });
}
