#pragma once

class QByteArray;

namespace hvutils {

// Whether less than a tenth of the machine's memory is available, from the text of /proc/meminfo:
// "MemAvailable" against "MemTotal". False when one of the two lines is missing or no number: a load is not
// refused on a guess.
bool memoryNearlyFull(QByteArray const& meminfo);

}  // namespace hvutils
