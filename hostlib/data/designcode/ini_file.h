#pragma once

/// The text of a design-code file as sections and entries with their lines.

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace mrl::designcode {

struct IniEntry
{
    std::string key;
    std::string value; ///< without blanks around it and without a comment behind it
    int line = 0;
};

struct IniSection
{
    std::string name;
    int line = 0;
    std::vector<IniEntry> entries;

    const IniEntry* find(std::string_view key) const;
};

struct IniFile
{
    std::vector<IniSection> sections;

    const IniSection* find(std::string_view name) const;
};

struct IniError
{
    int line = 0; ///< 0 when it concerns the file as a whole
    std::string reason;
};

using IniResult = std::variant<IniFile, IniError>;

/// Takes text apart. Refused: bytes that are not UTF-8, lines that are neither a section, an entry nor a
/// comment, an entry ahead of the first section, and a section or an entry that stands twice.
IniResult parseIni(std::string_view content);

/// Reads a whole file. @return the text, or why it cannot be read
std::variant<std::string, IniError> readText(const std::string& file);

} // namespace mrl::designcode
