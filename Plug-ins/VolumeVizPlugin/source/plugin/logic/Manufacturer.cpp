#include "plugin/logic/Manufacturer.h"

namespace {

bool names(const QString& text, const char* maker)
{
    return text.contains(QLatin1String(maker), Qt::CaseInsensitive);
}

}  // namespace

int manufacturerNumber(const QString& text)
{
    int number = 0;
    if (names(text, "Rigaku")) number = 1;
    if (names(text, "Brentis")) number = 2;
    if (names(text, "Qualden")) number = 3;
    return number;
}

bool isMakersOwn(const QString& text)
{
    return names(text, "Brentis");
}
