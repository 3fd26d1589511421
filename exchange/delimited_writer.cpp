#include "exchange/delimited_writer.h"

#include <algorithm>

#include "exchange/delimited_lines.h"
#include "exchange/delimited_text.h"
#include "exchange/sheet_walk.h"
#include "exchange/text_decoding.h"

namespace mrl::exchange {

namespace {

constexpr std::size_t BLOCK = 1 << 16;

/// Writes lines in one encoding; the first failure stays.
class LineWriter
{
  public:
    LineWriter(const FormatOptions& options, const Sink& sink)
        : m_separator(options.separator), m_decimal(options.decimalSign == 0 ? '.' : options.decimalSign),
          m_encoding(options.encoding.empty() ? "UTF-8" : options.encoding), m_sink(sink)
    {
    }
    /// Writes nothing more once something went wrong.
    template <class IsNumber>
    void write(const Cells& cells, const IsNumber& isNumber)
    {
        if (!m_error.empty()) {
            return;
        }
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (i > 0) {
                m_lines += m_separator;
            }
            if (isNumber(i)) {
                addNumber(cells[i]);
            } else {
                appendQuoted(m_lines, guarded(cells[i]), m_separator);
            }
        }
        m_lines += '\n';
        if (m_lines.size() >= BLOCK) {
            flush();
        }
    }
    /// @return the first failure
    std::optional<FormatError> finish()
    {
        if (m_error.empty()) {
            flush();
        }
        return m_error.empty() ? std::nullopt : std::optional(FormatError{m_error});
    }
    std::optional<FormatError> unsound() const
    {
        return m_separator != m_decimal && m_separator != '"'
                   ? std::nullopt
                   : std::optional(FormatError{{QT_TRANSLATE_NOOP(
                         "Exchange", "the separator can't be the decimal sign or a quote")}});
    }
    bool isFine() const { return m_error.empty(); }

  private:
    void flush()
    {
        const auto bytes = encoded(m_lines, m_encoding, !m_written);
        m_lines.clear();
        m_written = true;
        if (!bytes) {
            m_error = {QT_TRANSLATE_NOOP("Exchange", "%1 can't hold all characters of the titles"),
                       {m_encoding}};
        } else if (!m_sink(*bytes)) {
            m_error = {QT_TRANSLATE_NOOP("Exchange", "the file can't be written")};
        }
    }
    void addNumber(const std::string& cell)
    {
        const std::size_t begin = m_lines.size();
        m_lines += cell;
        if (m_decimal != '.') {
            std::replace(m_lines.begin() + static_cast<std::ptrdiff_t>(begin), m_lines.end(), '.', m_decimal);
        }
    }

    char m_separator;
    char m_decimal;
    std::string m_encoding;
    const Sink& m_sink;
    std::string m_lines;
    Message m_error;
    bool m_written = false;
};

} // namespace

std::optional<FormatError> writeDelimited(const Source& source, const FormatOptions& options,
                                          const Sink& sink)
{
    if (source.sheets.size() != 1) {
        return FormatError{
            {QT_TRANSLATE_NOOP("Exchange", "a file of this format holds either actions or load cases")}};
    }
    const std::vector<Column>& columns = columnsOf(source.sheets[0]);
    LineWriter writer(options, sink);
    if (auto error = writer.unsound()) {
        return error;
    }
    const auto isNumber = [&](std::size_t column) { return columns[column].isNumeric(); };
    writer.write(headingsOf(source.sheets[0]), isNumber);
    for (SheetWalk walk(source.db, source.sheets[0]); writer.isFine() && walk.next();) {
        writer.write(walk.cells(), isNumber);
    }
    return writer.finish();
}

std::optional<FormatError> writeDelimited(const CombinationTable& table, const FormatOptions& options,
                                          const Sink& sink)
{
    LineWriter writer(options, sink);
    if (auto error = writer.unsound()) {
        return error;
    }
    writer.write(headingsOf(table), isNumberColumn);
    int position = 0;
    table.tell(
        [&](const CombinationRow& row) { writer.write(cellsOf(table, ++position, row), isNumberColumn); });
    return writer.finish();
}

} // namespace mrl::exchange
