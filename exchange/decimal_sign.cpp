#include "exchange/decimal_sign.h"

#include <algorithm>

#include "exchange/decimals.h"

namespace mrl::exchange {

namespace {

constexpr std::string_view SIGNS = ".,";
constexpr std::size_t GROUP = 3; // digits between two grouping signs

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether a sign with these digits ahead and behind might group thousands.
bool mayGroup(std::string_view ahead, std::string_view behind)
{
    return behind.size() == GROUP && std::all_of(behind.begin(), behind.end(), isDigit) && !ahead.empty() &&
           ahead.size() <= GROUP && ahead.front() != '0';
}

} // namespace

void DecimalSigns::look(std::string_view number)
{
    std::string_view digits = trimmed(number);
    digits.remove_prefix(!digits.empty() && (digits[0] == '-' || digits[0] == '+') ? 1 : 0);
    const std::size_t last = digits.find_last_of(SIGNS);
    if (last == std::string_view::npos) {
        return;
    }
    const char sign = digits[last];
    const std::size_t first = digits.find_first_of(SIGNS);
    if (first != last) {
        // 1,234,567 groups by commas; 1.234,5 has the last sign as its decimal one.
        count(digits[first] == sign ? (sign == '.' ? ',' : '.') : sign);
    } else if (mayGroup(digits.substr(0, last), digits.substr(last + 1))) {
        m_open = trimmed(number);
    } else {
        count(sign);
    }
}

std::variant<char, FormatError> DecimalSigns::sign() const
{
    if (m_hasPoint && m_hasComma) {
        return FormatError{{QT_TRANSLATE_NOOP(
            "Exchange", "some numbers have a decimal point and others a decimal comma; say which holds")}};
    }
    if (!m_hasPoint && !m_hasComma && !m_open.empty()) {
        return FormatError{
            {QT_TRANSLATE_NOOP("Exchange", "numbers like %1 leave the decimal sign open; say which it is"),
             {m_open}}};
    }
    return m_hasComma ? ',' : '.';
}

} // namespace mrl::exchange
