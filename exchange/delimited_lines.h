#pragma once

/// Lines of separated fields, with quotes.

#include <string>
#include <string_view>
#include <vector>

#include "exchange/message.h"

namespace mrl::exchange {

struct Line
{
    int number = 0; ///< of the file, where the fields begin
    std::vector<std::string> fields;
};

/// Splits a text line by line. It stops with an error at a quote that isn't closed, text behind a closing quote, a
/// zero character, too many fields or a field that is too long.
class LineReader
{
  public:
    /// @param text has to outlive this
    LineReader(std::string_view text, char separator) : m_text(text), m_separator(separator) {}

    /// Reads the next line that holds anything. @return false behind the last one and on an error
    bool next(Line& line);
    /// What is wrong, with the line; empty as long as nothing is.
    const Message& error() const { return m_error; }

  private:
    bool isAtEndOfLine() const;
    void readFields(Line& line);
    void readField(std::string& field);
    void readPlain(std::string& field);
    void readQuoted(std::string& field);
    void endLine();
    void fail(const Message& message);

    std::string_view m_text;
    char m_separator;
    std::size_t m_at = 0;
    int m_lineNumber = 1;
    Message m_error;
};

/// Appends a field as it is written.
void appendQuoted(std::string& text, std::string_view field, char separator);

} // namespace mrl::exchange
