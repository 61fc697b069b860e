#include "lib/hvapi/scene/logic/DefaultColorTable.h"

#include <algorithm>
#include <cmath>

namespace hvscene {

void writeDefaultColorTable(unsigned char* table)
{
    for (int i = 0; i < 256; ++i) {
        unsigned char* entry = table + 4 * i;
        entry[0] = entry[1] = entry[2] = static_cast<unsigned char>(i);
        const double s = std::clamp(static_cast<double>(i - clearUpTo) / (opaqueFrom - clearUpTo), 0.0, 1.0);
        entry[3] = static_cast<unsigned char>(std::floor(255.0 * s * s * (3.0 - 2.0 * s) + 0.5));
    }
}

}  // namespace hvscene
