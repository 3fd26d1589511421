#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "exchange/format.h"

namespace mrl::cli {

/// The names of all formats, as --format takes them.
std::vector<std::string> formatNames();

/// The options that say how a table is written or read.
class ExchangeOptions
{
  public:
    /// --format, --what, --separator, --decimal, --encoding. @param whatHelp the help of --what
    void declare(Arguments& args, const std::string& whatHelp);

    /// The format of --format; null without it.
    const exchange::Format* namedFormat() const;
    /// Whether --what names the combinations, which no file of a format holds beside sheets.
    bool meansCombinations() const { return m_what == "combinations"; }
    /// The sheets of --what, none without it. Throws for a word that is none.
    std::vector<exchange::Sheet> sheets() const;
    /// Throws for what can't be a separator, a decimal sign or an encoding.
    exchange::FormatOptions format() const;

  private:
    std::optional<std::string> m_format;
    std::optional<std::string> m_what;
    std::optional<std::string> m_separator;
    std::optional<std::string> m_decimal;
    std::optional<std::string> m_encoding;
};

/// Throws wrong usage for a value that is none of the known ones.
void requireOneOf(const std::string& option, const std::string& value, const std::vector<std::string>& known);

} // namespace mrl::cli
