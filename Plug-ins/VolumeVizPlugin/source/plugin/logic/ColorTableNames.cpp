#include "plugin/logic/ColorTableNames.h"

#include <iterator>

namespace {

struct ColorTable
{
    const char* name;
    int number;
};

constexpr ColorTable tables[] = {
    {"Grays", 0},      {"Red", 8},      {"Green", 9},   {"Blue", 10},       {"Cyan", 11},
    {"Yellow", 12},    {"Magenta", 13}, {"Orange", 14}, {"BlueYellow", 23}, {"EosB", 25},
    {"GreenPink", 24}, {"Rainbow", 1},  {"Jet", 26},
};

}  // namespace

QStringList colorTableNames()
{
    QStringList names;
    for (const ColorTable& table : tables)
        names.append(QLatin1String(table.name));
    return names;
}

int colorTableNumber(int index)
{
    constexpr int red = 8;
    return index >= 0 && index < static_cast<int>(std::size(tables)) ? tables[index].number : red;
}
