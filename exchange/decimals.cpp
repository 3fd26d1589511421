#include "exchange/decimals.h"

#include <charconv>
#include <cmath>

namespace mrl::exchange {

namespace {

constexpr std::string_view BLANKS = " \t\r\n";

/// What a sign of plus stands ahead of; charconv doesn't know it.
std::string_view withoutPlus(std::string_view text)
{
    const bool signedText = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return signedText ? text.substr(1) : text;
}

template <class Number>
std::optional<Number> wholly(std::string_view text)
{
    const std::string_view digits = withoutPlus(trimmed(text));
    Number value{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole ? std::optional<Number>(value) : std::nullopt;
}

} // namespace

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(BLANKS);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

void appendNumber(std::string& text, float value)
{
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    text.append(std::begin(digits), end);
}

std::string numberText(float value)
{
    std::string text;
    appendNumber(text, value);
    return text;
}

std::optional<float> numberOf(std::string_view text)
{
    const auto value = wholly<float>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> wholeNumberOf(std::string_view text) { return wholly<int>(text); }

} // namespace mrl::exchange
