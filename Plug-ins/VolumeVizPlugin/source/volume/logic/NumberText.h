#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// Numbers at the start of a text as data files hold them: with a decimal point, whatever the desktop's
// locale.
namespace viz {

/// The decimal number that a text begins with, after blanks and with anything behind it; nothing for a text
/// that begins with none, for one beyond single precision, and for "nan" and "inf".
std::optional<float> leadingDecimal(std::string_view text);

/// The same for a whole number.
std::optional<std::int64_t> leadingInteger(std::string_view text);

}  // namespace viz
