#pragma once

/// What the program prints to standard output: text in blocks, tables and JSON.

#include <QString>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::cli {

using Json = nlohmann::ordered_json;

/// Standard output with a buffer of its own. A full disk or a closed pipe is a Failure. What must not reach a
/// terminal is replaced.
class Output
{
  public:
    Output() = default;
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void write(std::string_view text);
    void line(std::string_view text);
    /// A piece of a file: as it is, but for a terminal.
    void bytes(std::string_view piece);

    /// Writes what is left; call it once at the end, since the destructor cannot report a failure.
    void finish();

  private:
    void append(std::string_view bytes);
    void flush();

    std::string m_buffer;
};

/// A JSON value as text. What a terminal would take for a command is escaped, and what is no UTF-8 replaced.
/// @param indent blanks a level; -1: all in one line
std::string jsonText(const Json& value, int indent = -1);

/// Prints a whole JSON value.
void printJson(const Json& value);

/// The shortest decimal text that reads back as the same float.
std::string numberText(float value);

/// A factor as text: "-" for the undefined value.
std::string factorText(float value);

/// A float as JSON without the digits that its widening to double would add; null for not-a-number and
/// infinity.
Json jsonNumber(float value);

/// A factor as JSON: null for the undefined value.
Json jsonFactor(float value);

/// A text without what must not reach a terminal from a foreign file: control characters, and marks that turn the
/// direction of writing around.
std::string printable(const QString& text);
/// The same for UTF-8, line ends excepted.
std::string printableLines(std::string_view text);

/// A text filled up with blanks to a width in characters.
std::string padded(const std::string& text, std::size_t width);
std::string paddedLeft(const std::string& text, std::size_t width);

/// A table whose columns are as wide as their longest text.
class Table
{
  public:
    enum class Align { Left, Right };
    struct Column
    {
        std::string title;
        Align align = Align::Left;
    };

    explicit Table(std::vector<Column> head) : m_columns(std::move(head)) {}

    void add(std::vector<std::string> row) { m_rows.push_back(std::move(row)); }
    void print() const;

  private:
    std::string lineOf(const std::vector<std::string>& row, const std::vector<std::size_t>& widths) const;

    std::vector<Column> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace mrl::cli
