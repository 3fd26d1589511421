#pragma once

/// The text of a design-code file as sections and entries with their places.

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
    int column = 0; ///< where the value begins, 1-based, in characters
    int file = 0;   ///< the place of its file in a chain of bases, 0 for the code itself
};

struct IniSection
{
    std::string name;
    int line = 0;
    std::vector<IniEntry> entries;
    int file = 0;

    const IniEntry* find(std::string_view key) const;
};

struct IniFile
{
    std::vector<IniSection> sections;

    const IniSection* find(std::string_view name) const;
};

struct IniError
{
    int line = 0;   ///< 0 when it concerns the file as a whole
    int column = 0; ///< 0 when it concerns the line as a whole
    std::string reason;
    std::string cure;
    int file = 0; ///< as in IniEntry
};

/// What could be taken apart. With an error the sections are not whole; one whose name can't be read has none.
struct IniResult
{
    IniFile file;
    std::vector<IniError> errors; ///< in the order of the lines
};

/// Takes text apart. Errors: bytes that are not UTF-8, lines that are neither a section, an entry nor a comment, an
/// entry ahead of the first section, and a section or an entry that stands twice. Of an encoding that isn't UTF-8, and
/// of lines that end with CR alone, the text as a whole is told.
/// @param file the place in a chain of bases that sections and entries carry
IniResult parseIni(std::string_view content, int file = 0);

/// The text of sections, which parseIni reads back.
std::string iniText(const IniFile& file);

/// Reads a whole file. @return the text, or why it cannot be read
std::variant<std::string, IniError> readText(const std::string& file);

} // namespace mrl::designcode
