#include "phantom/Text.h"

#include <charconv>

namespace phantom {

std::string plain(double number)
{
    char text[400];
    return {text, std::to_chars(text, text + sizeof text, number, std::chars_format::fixed).ptr};
}

std::string brief(double number)
{
    char text[32];
    // No negative zero.
    return {text, std::to_chars(text, text + sizeof text, number + 0.0, std::chars_format::general, 10).ptr};
}

}  // namespace phantom
