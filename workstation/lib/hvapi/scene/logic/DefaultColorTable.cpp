#include "lib/hvapi/scene/logic/DefaultColorTable.h"

#include <cmath>

namespace hvscene {

void writeDefaultColorTable(unsigned char* table)
{
    for (int i = 0; i < 256; ++i) {
        unsigned char* entry = table + 4 * i;
        entry[0] = entry[1] = entry[2] = static_cast<unsigned char>(i);
        const double share = i > clearUpTo ? static_cast<double>(i - clearUpTo) / (255 - clearUpTo) : 0.0;
        entry[3] = static_cast<unsigned char>(std::floor(densestAlpha * std::pow(share, 1.6) + 0.5));
    }
}

}  // namespace hvscene
