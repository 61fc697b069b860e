#include "volume/logic/NumberText.h"

#include <charconv>
#include <cmath>

namespace viz {

namespace {

// Blanks and a plus sign, which from_chars does not take.
std::string_view withoutLead(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n\v\f");
    if (begin == std::string_view::npos) return {};
    text.remove_prefix(begin);
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+';
    if (plus) text.remove_prefix(1);
    return text;
}

template <typename Number>
std::optional<Number> leadingNumber(std::string_view text)
{
    text = withoutLead(text);
    Number number{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc()) return std::nullopt;
    return number;
}

}  // namespace

std::optional<float> leadingDecimal(std::string_view text)
{
    const auto number = leadingNumber<float>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<std::int64_t> leadingInteger(std::string_view text)
{
    return leadingNumber<std::int64_t>(text);
}

}  // namespace viz
