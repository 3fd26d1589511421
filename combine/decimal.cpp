#include "combine/decimal.h"

#include <charconv>
#include <cmath>
#include <map>

namespace mrl::combine {

namespace {

constexpr int PRODUCT_DIGITS = 14; // a product of five factors of a few digits is off by less
constexpr int LEAST_FIXED = -5;    // below, powers of ten read better
constexpr std::size_t TEXT_BYTES = 400;

double read(const char* first, const char* last)
{
    double value = 0;
    std::from_chars(first, last, value);
    return value;
}

} // namespace

double shortest(float stored)
{
    char text[TEXT_BYTES];
    const auto end = std::to_chars(text, text + sizeof text, stored);
    return read(text, end.ptr);
}

double rounded(double product)
{
    char text[TEXT_BYTES];
    const auto end =
        std::to_chars(text, text + sizeof text, product, std::chars_format::scientific, PRODUCT_DIGITS - 1);
    return read(text, end.ptr) + 0.0; // no negative zero
}

std::string decimalText(double factor)
{
    char text[TEXT_BYTES];
    const bool isFixed =
        factor == 0 || (std::fabs(factor) >= std::pow(10, LEAST_FIXED) && std::fabs(factor) < 1e15);
    const auto end = isFixed ? std::to_chars(text, text + sizeof text, factor, std::chars_format::fixed)
                             : std::to_chars(text, text + sizeof text, factor);
    return std::string(text, end.ptr);
}

std::string keyText(const Key& key)
{
    std::string text;
    for (const Share& share : key) {
        if (share.factor >= 0 && !text.empty()) {
            text += '+';
        }
        text += decimalText(share.factor) + '*' + std::to_string(share.number);
    }
    return text.empty() ? "0" : text;
}

std::optional<Key> readKey(const std::string& text)
{
    if (text == "0") {
        return Key{};
    }
    std::map<int, double> shares;
    const char* at = text.data();
    const char* const end = at + text.size();
    do {
        at += at != end && *at == '+' && at != text.data() ? 1 : 0;
        Share share;
        const auto factor = std::from_chars(at, end, share.factor);
        if (factor.ec != std::errc{} || factor.ptr == end || *factor.ptr != '*' ||
            !std::isfinite(share.factor)) {
            return std::nullopt;
        }
        const auto number = std::from_chars(factor.ptr + 1, end, share.number);
        if (number.ec != std::errc{} || share.number < 1) {
            return std::nullopt;
        }
        shares[share.number] += share.factor;
        at = number.ptr;
    } while (at != end && (*at == '+' || *at == '-'));
    Key key;
    for (const auto& [number, factor] : shares) {
        if (factor != 0) {
            key.push_back({number, factor});
        }
    }
    return at == end ? std::optional(key) : std::nullopt;
}

} // namespace mrl::combine
