#pragma once

namespace hvscene {

/// The largest of 1, 2 and 5 times a power of ten that is not above `limit`; 0 for a limit that is not a
/// finite number above 0.
double roundLength(double limit);

}  // namespace hvscene
