#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

#include "combine/response_readers.h"

namespace mrl::combine {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";
constexpr std::string_view SET_COLUMN = "set";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \r");
    const std::size_t last = text.find_last_not_of(" \r");
    return first == std::string_view::npos ? std::string_view() : text.substr(first, last - first + 1);
}

/// Walks over the cells of a line without copying them.
class Cells
{
  public:
    Cells(std::string_view line, char separator) : m_rest(line), m_separator(separator) {}

    /// @return false behind the last cell
    bool next(std::string_view& cell)
    {
        if (m_isDone) {
            return false;
        }
        std::size_t from = 0;
        if (const std::size_t quote = m_rest.find_first_not_of(' ');
            quote != std::string_view::npos && m_rest[quote] == '"') {
            from = closing(quote);
        }
        const std::size_t end = m_rest.find(m_separator, from);
        cell = trimmed(m_rest.substr(0, end));
        m_isDone = end == std::string_view::npos;
        m_rest.remove_prefix(m_isDone ? m_rest.size() : end + 1);
        return true;
    }

  private:
    /// The place of the quote that closes a cell; a doubled one belongs to the text.
    std::size_t closing(std::size_t at) const
    {
        for (++at; at < m_rest.size(); ++at) {
            if (m_rest[at] == '"' && (at + 1 == m_rest.size() || m_rest[at + 1] != '"')) {
                return at;
            }
            at += m_rest[at] == '"' ? 1 : 0;
        }
        return m_rest.size();
    }

    std::string_view m_rest;
    char m_separator;
    bool m_isDone = false;
};

std::string unquoted(std::string_view cell)
{
    if (cell.size() < 2 || cell.front() != '"' || cell.back() != '"') {
        return std::string(cell);
    }
    std::string text;
    for (std::size_t i = 1; i + 1 < cell.size(); ++i) {
        text += cell[i];
        i += cell[i] == '"' ? 1 : 0; // the second one of two
    }
    return text;
}

/// A finite number; nothing for any other text.
std::optional<double> numberOf(std::string_view cell, bool hasDecimalComma)
{
    std::string point;
    if (hasDecimalComma && cell.find(',') != std::string_view::npos) {
        point = cell;
        std::replace(point.begin(), point.end(), ',', '.');
        cell = point;
    }
    cell.remove_prefix(!cell.empty() && cell.front() == '+' ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    const bool isNumber = error == std::errc() && end == cell.data() + cell.size() && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

class CsvFile : public ResponseFile
{
  public:
    using ResponseFile::ResponseFile;

    /// Reads the first line. @return what is wrong with it; empty: nothing
    std::string open();

    bool hasSets() const override { return m_setColumn != NO_COLUMN; }
    bool next(RawResponse& raw) override;
    std::string read(const RawResponse& raw, Response& response) const override;
    std::string setOf(const RawResponse& raw) const override;

  private:
    static constexpr std::size_t NO_COLUMN = 0; // the first column is the name's

    std::string readHead(std::string_view line);

    char m_separator = ',';
    std::size_t m_setColumn = NO_COLUMN;
    std::size_t m_columns = 0;
};

std::string CsvFile::open()
{
    m_stream.seekg(0, std::ios::end);
    m_size = static_cast<std::uint64_t>(m_stream.tellg());
    m_stream.seekg(0);
    std::string line;
    if (!std::getline(m_stream, line)) {
        return "it is empty";
    }
    m_begin = m_position = std::min<std::uint64_t>(line.size() + 1, m_size);
    m_row = 1;
    m_firstRow = 2;
    line.erase(0, line.rfind(BYTE_ORDER_MARK, 0) == 0 ? std::size(BYTE_ORDER_MARK) - 1 : 0);
    const std::size_t separator = line.find_first_of(",;\t");
    m_separator = separator == std::string::npos ? ',' : line[separator];
    return readHead(line);
}

std::string CsvFile::readHead(std::string_view line)
{
    Cells cells(line, m_separator);
    for (std::string_view cell; cells.next(cell); ++m_columns) {
        const std::string text = unquoted(cell);
        if (m_columns == 0) {
            continue;
        }
        if (text == SET_COLUMN && m_setColumn == NO_COLUMN) {
            m_setColumn = m_columns;
            continue;
        }
        m_numbers.push_back(loadCaseNumber(text));
        if (m_numbers.back() == 0) {
            return "row 1, column " + std::to_string(m_columns + 1) + ": '" + text +
                   "' is neither a load-case number nor 'set'";
        }
    }
    const int number = repeatedNumber(m_numbers);
    return number == 0 ? "" : "row 1: load case " + std::to_string(number) + " stands twice";
}

bool CsvFile::next(RawResponse& raw)
{
    while (std::getline(m_stream, raw.bytes)) {
        raw.row = ++m_row;
        raw.position = m_position;
        m_position = std::min<std::uint64_t>(m_position + raw.bytes.size() + 1, m_size);
        if (!trimmed(raw.bytes).empty()) {
            return true;
        }
    }
    m_error = m_stream.bad() ? "it can't be read to its end" : "";
    return false;
}

std::string CsvFile::read(const RawResponse& raw, Response& response) const
{
    response.values.clear();
    response.set.clear();
    Cells cells(raw.bytes, m_separator);
    std::size_t column = 0;
    for (std::string_view cell; cells.next(cell); ++column) {
        if (column == 0) {
            response.name = unquoted(cell);
        } else if (column == m_setColumn) {
            response.set = unquoted(cell);
        } else if (column < m_columns) {
            const auto value = numberOf(unquoted(cell), m_separator != ',');
            if (!value) {
                return responsePlace(raw.row, m_numbers[response.values.size()]) + " (column " +
                       std::to_string(column + 1) + "): '" + std::string(cell) + "' is no finite number";
            }
            response.values.push_back(*value);
        }
    }
    return column == m_columns ? ""
                               : "row " + std::to_string(raw.row) + " has " + std::to_string(column) +
                                     " columns, the first row has " + std::to_string(m_columns);
}

std::string CsvFile::setOf(const RawResponse& raw) const
{
    Cells cells(raw.bytes, m_separator);
    std::string_view cell;
    for (std::size_t column = 0; cells.next(cell); ++column) {
        if (column == m_setColumn && hasSets()) {
            return unquoted(cell);
        }
    }
    return {};
}

} // namespace

OpenedResponses openCsv(std::ifstream stream)
{
    auto file = std::make_unique<CsvFile>(std::move(stream));
    std::string error = file->open();
    if (!error.empty()) {
        return error;
    }
    return file;
}

} // namespace mrl::combine
