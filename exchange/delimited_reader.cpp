#include "exchange/delimited_reader.h"

#include <algorithm>

#include "exchange/decimal_sign.h"
#include "exchange/delimited_lines.h"
#include "exchange/delimited_text.h"
#include "exchange/headings.h"
#include "exchange/text_decoding.h"

namespace mrl::exchange {

namespace {

constexpr std::string_view SEPARATORS = ",;\t|";

/// As far as it can be split.
Line headingLine(std::string_view text, char separator)
{
    Line line;
    LineReader(text, separator).next(line);
    return line;
}

/// The separator under which the most headings are understood; where none is, that which makes the most fields.
char foundSeparator(std::string_view text, const FormatOptions& told)
{
    char found = SEPARATORS.front();
    std::pair<int, std::size_t> best{-1, 0};
    for (const char separator : SEPARATORS) {
        const Line line = headingLine(text, separator);
        const std::pair count(understoodHeadings(line.fields, told).count, line.fields.size());
        if (count > best) {
            best = count;
            found = separator;
        }
    }
    return found;
}

/// A number with a decimal comma as one with a point; a point in it makes it no number.
void replaceComma(std::string& field)
{
    if (field.find('.') != std::string::npos) {
        field.insert(0, 1, '?');
    }
    std::replace(field.begin(), field.end(), ',', '.');
}

/// Reads a decoded text.
class DelimitedReader
{
  public:
    DelimitedReader(std::string_view text, char separator, const FormatOptions& options,
                    TableReceiver& receiver)
        : m_text(text), m_separator(separator), m_options(options), m_receiver(receiver)
    {
    }

    std::optional<FormatError> run(const std::string& encoding)
    {
        LineReader reader(m_text, m_separator);
        if (!reader.next(m_line)) {
            return FormatError{reader.error().empty()
                                   ? Message{QT_TRANSLATE_NOOP("Exchange", "the file is empty")}
                                   : reader.error()};
        }
        m_receiver.form({encoding, m_separator, m_options.decimalSign});
        if (auto error = m_headings.read(m_line.number, m_line.fields, m_options, m_receiver)) {
            return error;
        }
        const auto decimal = decimalSign();
        if (const auto* error = std::get_if<FormatError>(&decimal)) {
            return *error;
        }
        m_hasComma = std::get<char>(decimal) == ',';
        m_receiver.form({encoding, m_separator, std::get<char>(decimal)});
        noteForm(encoding, std::get<char>(decimal));
        for (const Message& note : m_headings.notes()) {
            m_receiver.note(note);
        }
        m_receiver.begin(m_headings.head());
        return readRows(reader);
    }

  private:
    void noteForm(const std::string& encoding, char decimal)
    {
        if (m_separator == '\t') {
            m_receiver.note(
                {QT_TRANSLATE_NOOP("Exchange", "read as %1, separator tabulator, decimal sign \"%2\""),
                 {encoding, std::string(1, decimal)}});
        } else {
            m_receiver.note(
                {QT_TRANSLATE_NOOP("Exchange", "read as %1, separator \"%2\", decimal sign \"%3\""),
                 {encoding, std::string(1, m_separator), std::string(1, decimal)}});
        }
    }
    bool isNumeric(std::size_t i) const { return columnAt(i).isNumeric(); }
    const Column& columnAt(std::size_t i) const
    {
        return columnsOf(m_headings.head().sheet)[static_cast<std::size_t>(m_headings.head().columns[i])];
    }
    /// Looks for the decimal sign in the whole file where the separator leaves it open.
    std::variant<char, FormatError> decimalSign() const
    {
        if (m_options.decimalSign != 0 || m_separator == ',') {
            return m_options.decimalSign == 0 ? '.' : m_options.decimalSign;
        }
        DecimalSigns signs;
        LineReader reader(m_text, m_separator);
        Line line;
        for (reader.next(line); reader.next(line);) {
            for (std::size_t i = 0; i < m_headings.places().size(); ++i) {
                if (isNumeric(i) && m_headings.places()[i] < line.fields.size()) {
                    signs.look(line.fields[m_headings.places()[i]]);
                }
            }
        }
        return signs.sign();
    }
    std::optional<FormatError> readRows(LineReader& reader)
    {
        const std::size_t width = m_line.fields.size();
        Row row;
        while (reader.next(m_line)) {
            if (m_line.fields.size() != width) {
                return FormatError{{QT_TRANSLATE_NOOP("Exchange", "line %1 has %2 fields, the heading %3"),
                                    {std::to_string(m_line.number), std::to_string(m_line.fields.size()),
                                     std::to_string(width)}}};
            }
            fill(row);
            m_receiver.take(row);
        }
        return reader.error().empty() ? std::nullopt : std::optional(FormatError{reader.error()});
    }
    void fill(Row& row)
    {
        row.line = m_line.number;
        row.cells.resize(m_headings.places().size());
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            row.cells[i].swap(m_line.fields[m_headings.places()[i]]);
            if (!isNumeric(i)) {
                row.cells[i] = unguarded(row.cells[i]);
            } else if (m_hasComma) {
                replaceComma(row.cells[i]);
            }
        }
    }

    std::string_view m_text;
    char m_separator;
    const FormatOptions& m_options;
    TableReceiver& m_receiver;
    Headings m_headings;
    Line m_line;
    bool m_hasComma = false;
};

} // namespace

std::optional<FormatError> readDelimited(std::string_view bytes, const FormatOptions& options,
                                         TableReceiver& receiver)
{
    const auto text = decoded(bytes, options.encoding);
    if (!text) {
        return FormatError{{QT_TRANSLATE_NOOP("Exchange", "the file is not in %1"), {options.encoding}}};
    }
    const char separator = options.separator == 0 ? foundSeparator(text->text, options) : options.separator;
    return DelimitedReader(text->text, separator, options, receiver).run(text->encoding);
}

} // namespace mrl::exchange
