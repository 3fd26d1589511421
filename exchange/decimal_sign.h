#pragma once

/// Which decimal sign the numbers of a file have.

#include <string>
#include <string_view>
#include <variant>

#include "exchange/format.h"

namespace mrl::exchange {

/// Looks at the numbers of a file one by one.
class DecimalSigns
{
  public:
    void look(std::string_view number);
    /// @return the sign, a point where no number has one, or why it can't be told
    std::variant<char, FormatError> sign() const;

  private:
    void count(char sign) { (sign == '.' ? m_hasPoint : m_hasComma) = true; }

    bool m_hasPoint = false;
    bool m_hasComma = false;
    std::string m_open; ///< a number that leaves it open
};

} // namespace mrl::exchange
