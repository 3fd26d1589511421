#include "exchange/delimited_lines.h"

#include <algorithm>

namespace mrl::exchange {

namespace {

constexpr std::size_t MAX_FIELDS = 1000; // of a line
constexpr std::size_t MAX_FIELD_BYTES = 100000;
constexpr char QUOTE = '"';

} // namespace

void LineReader::fail(const Message& message)
{
    if (m_error.empty()) {
        m_error =
            Message::at({QT_TRANSLATE_NOOP("Exchange", "line %1"), {std::to_string(m_lineNumber)}}, message);
    }
}

bool LineReader::isAtEndOfLine() const
{
    return m_at >= m_text.size() || m_text[m_at] == '\n' || m_text[m_at] == '\r';
}

bool LineReader::next(Line& line)
{
    while (m_at < m_text.size() && m_error.empty()) {
        line.number = m_lineNumber;
        readFields(line);
        endLine();
        if (m_error.empty() && (line.fields.size() > 1 || !line.fields.front().empty())) {
            return true;
        }
    }
    return false;
}

void LineReader::readFields(Line& line)
{
    std::size_t count = 0;
    bool more = true;
    while (more && m_error.empty()) {
        if (count == MAX_FIELDS) {
            fail({QT_TRANSLATE_NOOP("Exchange", "more than %1 fields"), {std::to_string(MAX_FIELDS)}});
            return;
        }
        if (count == line.fields.size()) {
            line.fields.emplace_back();
        }
        readField(line.fields[count]);
        ++count;
        more = m_at < m_text.size() && m_text[m_at] == m_separator;
        m_at += more ? 1 : 0;
    }
    line.fields.resize(count);
    if (!isAtEndOfLine()) {
        fail({QT_TRANSLATE_NOOP("Exchange", "text stands behind a closing quote")});
    }
}

void LineReader::endLine()
{
    m_at += m_text.substr(m_at, 2) == "\r\n" ? 2 : 1;
    ++m_lineNumber;
}

void LineReader::readField(std::string& field)
{
    field.clear();
    if (m_at < m_text.size() && m_text[m_at] == QUOTE) {
        readQuoted(field);
    } else {
        readPlain(field);
    }
    if (field.size() > MAX_FIELD_BYTES) {
        fail({QT_TRANSLATE_NOOP("Exchange", "a field is longer than %1 bytes"),
              {std::to_string(MAX_FIELD_BYTES)}});
    }
}

void LineReader::readPlain(std::string& field)
{
    const std::size_t begin = m_at;
    while (!isAtEndOfLine() && m_text[m_at] != m_separator && m_text[m_at] != '\0' &&
           m_at - begin <= MAX_FIELD_BYTES) {
        ++m_at;
    }
    if (m_at < m_text.size() && m_text[m_at] == '\0') {
        fail({QT_TRANSLATE_NOOP("Exchange", "a zero character")});
    }
    field.assign(m_text.substr(begin, m_at - begin));
}

void LineReader::readQuoted(std::string& field)
{
    const int firstLine = m_lineNumber;
    for (++m_at; m_at < m_text.size(); ++m_at) {
        const char c = m_text[m_at];
        const bool doubled = c == QUOTE && m_at + 1 < m_text.size() && m_text[m_at + 1] == QUOTE;
        if (c == QUOTE && !doubled) {
            ++m_at;
            return;
        }
        if (c == '\0' || field.size() > MAX_FIELD_BYTES) {
            fail({c == '\0' ? QT_TRANSLATE_NOOP("Exchange", "a zero character")
                            : QT_TRANSLATE_NOOP("Exchange", "a quoted field is too long")});
            return;
        }
        m_lineNumber += c == '\n' ? 1 : 0;
        m_at += doubled ? 1 : 0;
        field += c;
    }
    m_lineNumber = firstLine;
    fail({QT_TRANSLATE_NOOP("Exchange", "a quote is not closed")});
}

void appendQuoted(std::string& text, std::string_view field, char separator)
{
    const auto isSpecial = [&](char c) { return c == separator || c == QUOTE || c == '\n' || c == '\r'; };
    const auto isBlank = [](char c) { return c >= 0 && c <= ' '; };
    const bool blankEnds = !field.empty() && (isBlank(field.front()) || isBlank(field.back()));
    if (!blankEnds && std::none_of(field.begin(), field.end(), isSpecial)) {
        text += field;
        return;
    }
    text += QUOTE;
    for (const char c : field) {
        text.append(c == QUOTE ? 2 : 1, c);
    }
    text += QUOTE;
}

} // namespace mrl::exchange
