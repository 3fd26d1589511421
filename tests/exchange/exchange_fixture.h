#pragma once

/// Tables that are read from text, and rows as short texts.

#include <gmock/gmock.h>

#include "exchange/format.h"

namespace mrl::test {

using exchange::FormatOptions;
using exchange::Sheet;

/// The file that a format writes of a project's sheets.
inline std::string written(const char* format, const exchange::Source& source,
                           const FormatOptions& options = {})
{
    std::string file;
    const auto error = exchange::formatOfName(format)->write(source, options, [&](std::string_view bytes) {
        file += bytes;
        return true;
    });
    EXPECT_FALSE(error.has_value()) << error->message.english();
    return file;
}

inline std::string written(const char* format, int db, const std::vector<Sheet>& sheets,
                           const FormatOptions& options = {})
{
    return written(format, exchange::Source{db, "p", sheets, false, {}}, options);
}

/// What a format reads. A file that it refuses fails the test.
inline exchange::ReadTables readAs(const char* format, const std::string& file,
                                   const FormatOptions& options = {})
{
    auto read = exchange::readTables(*exchange::formatOfName(format), file, options);
    if (const auto* error = std::get_if<exchange::FormatError>(&read)) {
        ADD_FAILURE() << error->message.english();
        return {};
    }
    return std::get<exchange::ReadTables>(std::move(read));
}

/// Why a format refuses a file; "readable" when it doesn't.
inline std::string errorOf(const char* format, const std::string& file, const FormatOptions& options = {})
{
    const auto read = exchange::readTables(*exchange::formatOfName(format), file, options);
    const auto* error = std::get_if<exchange::FormatError>(&read);
    return error == nullptr ? "readable" : error->message.english();
}

inline std::string joined(const exchange::Cells& cells)
{
    std::string text;
    for (const std::string& cell : cells) {
        text += (&cell == &cells.front() ? "" : "|") + cell;
    }
    return text;
}

/// The words of all formats but the one whose losses are known.
inline std::vector<std::string> losslessFormats()
{
    std::vector<std::string> names;
    for (const auto& format : exchange::formats()) {
        if (format->name() != "saf") {
            names.push_back(format->name());
        }
    }
    return names;
}

/// The first table's rows, the cells of each joined by '|'.
inline std::vector<std::string> rowsOf(const exchange::ReadTables& read)
{
    std::vector<std::string> rows;
    for (const exchange::Row& row : read.tables.at(0).rows) {
        rows.push_back(joined(row.cells));
    }
    return rows;
}

/// Options of which only some are told.
inline FormatOptions told(char separator, char decimalSign, const std::string& encoding = {})
{
    FormatOptions options;
    options.separator = separator;
    options.decimalSign = decimalSign;
    options.encoding = encoding;
    return options;
}

} // namespace mrl::test
