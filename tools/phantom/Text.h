#pragma once

#include <string>

namespace phantom {

/// The shortest decimal text of a number without exponent, with a point whatever the locale says.
std::string plain(double number);

/// A number in at most 16 characters (10 digits, with an exponent where it is very small), with a point.
std::string brief(double number);

}  // namespace phantom
