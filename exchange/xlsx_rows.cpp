#include "exchange/xlsx_rows.h"

#include <algorithm>
#include <charconv>

namespace mrl::exchange {

namespace {

using Token = QXmlStreamReader;

constexpr std::size_t MAX_CELL_BYTES = 3UL * 32767; // the format allows 32767 units
constexpr int ESCAPE_UNITS = 7;                     // _xHHHH_

/// Appends in UTF-8; digits and plain letters, which most cells hold, without a detour.
void append(std::string& out, const QStringRef& text)
{
    const auto isPlain = [](QChar c) { return c.unicode() < 128; };
    if (!std::all_of(text.begin(), text.end(), isPlain)) {
        out += text.toUtf8().toStdString();
        return;
    }
    for (const QChar c : text) {
        out += static_cast<char>(c.unicode());
    }
}

} // namespace

std::string withoutEscapes(std::string escaped)
{
    if (escaped.find("_x") == std::string::npos) {
        return escaped;
    }
    const QString text = QString::fromStdString(escaped);
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        bool isHex = false;
        const bool mayEscape = text[i] == '_' && i + ESCAPE_UNITS <= text.size() && text[i + 1] == 'x' &&
                               text[i + ESCAPE_UNITS - 1] == '_';
        const ushort unit = mayEscape ? text.midRef(i + 2, 4).toUShort(&isHex, 16) : ushort(0);
        plain += isHex ? QChar(unit) : text[i];
        i += isHex ? ESCAPE_UNITS - 1 : 0;
    }
    return plain.toStdString();
}

std::string readRichText(QXmlStreamReader& xml)
{
    std::string text;
    int depth = 1;
    int hints = 0; // depth within phonetic hints
    bool isText = false;
    while (depth > 0 && !xml.atEnd()) {
        switch (xml.readNext()) {
        case Token::StartElement:
            ++depth;
            hints += hints > 0 || xml.name() == QLatin1String("rPh") ? 1 : 0;
            isText = xml.name() == QLatin1String("t") && hints == 0;
            break;
        case Token::EndElement:
            --depth;
            hints -= hints > 0 ? 1 : 0;
            isText = false;
            break;
        case Token::Characters:
            if (isText && text.size() <= MAX_CELL_BYTES) {
                append(text, xml.text());
            }
            break;
        default:
            break;
        }
    }
    return withoutEscapes(std::move(text));
}

void RowReader::fail(const Message& message) const
{
    if (m_error.empty()) {
        m_error =
            Message::at({QT_TRANSLATE_NOOP("Exchange", "row %1"), {std::to_string(m_row.number)}}, message);
    }
}

Message RowReader::run()
{
    while (!m_xml.atEnd() && m_error.empty()) {
        switch (m_xml.readNext()) {
        case Token::DTD:
            return {QT_TRANSLATE_NOOP("Exchange", "a document type is refused")};
        case Token::StartElement:
            if (m_xml.name() == QLatin1String("c")) {
                readCell();
            } else if (m_xml.name() == QLatin1String("row")) {
                beginRow();
            }
            break;
        case Token::EndElement:
            if (m_xml.name() == QLatin1String("row") && !endRow()) {
                return m_error;
            }
            break;
        default:
            break;
        }
    }
    return m_error;
}

void RowReader::beginRow()
{
    const QStringRef number = m_xml.attributes().value(QLatin1String("r"));
    m_row.number = number.isEmpty() ? m_row.number + 1 : number.toInt();
    m_row.cells.clear();
    m_row.isDates.clear();
    m_column = 0;
    m_isEmpty = true;
    if (m_row.number < 1 || m_row.number > Workbook::MAX_ROWS) {
        fail({QT_TRANSLATE_NOOP("Exchange", "a sheet has rows 1 to 1048576")});
    }
}

bool RowReader::endRow() { return m_error.empty() && (m_isEmpty || m_take(m_row)); }

/// The column of a reference such as "AB12", from 0; that behind the last cell for none.
std::size_t RowReader::columnOf(const QStringRef& reference) const
{
    std::size_t column = 0;
    for (const QChar c : reference) {
        if (c < 'A' || c > 'Z' || column > Workbook::MAX_COLUMNS) {
            break;
        }
        column = column * 26 + static_cast<std::size_t>(c.unicode() - 'A' + 1);
    }
    return column == 0 ? m_column : column - 1;
}

RowReader::CellType RowReader::typeOf(const QStringRef& word)
{
    return word == QLatin1String("s")     ? CellType::Shared
           : word == QLatin1String("b")   ? CellType::Truth
           : word == QLatin1String("d")   ? CellType::Date
           : word == QLatin1String("str") ? CellType::Text
           : word == QLatin1String("n")   ? CellType::Number
                                          : CellType::Other;
}

std::string RowReader::sharedText(const std::string& index) const
{
    std::size_t place = 0;
    const char* const last = index.data() + index.size();
    const auto [end, error] = std::from_chars(index.data(), last, place);
    if (error != std::errc() || end != last || place >= m_shared.size()) {
        fail({QT_TRANSLATE_NOOP("Exchange", "there is no shared string %1"), {index}});
        return {};
    }
    return m_shared[place];
}

std::string RowReader::valueOf(CellType type, std::string text) const
{
    switch (type) {
    case CellType::Shared:
        return sharedText(text);
    case CellType::Truth:
        return text == "1" ? "TRUE" : "FALSE";
    case CellType::Text:
        return withoutEscapes(std::move(text));
    default:
        return text;
    }
}

/// The attributes of the cell whose start was read. No copy of them may live when the next token is read: the reader
/// would have to part from it.
RowReader::CellHead RowReader::readHead()
{
    CellHead head{m_column, 0, CellType::Number};
    for (const QXmlStreamAttribute& attribute : m_xml.attributes()) {
        const QStringRef name = attribute.qualifiedName();
        const QStringRef value = attribute.value();
        if (name == QLatin1String("r")) {
            head.column = columnOf(value);
        } else if (name == QLatin1String("s")) {
            head.style = value.toUInt();
        } else if (name == QLatin1String("t")) {
            head.type = typeOf(value);
        }
    }
    return head;
}

/// The text up to the end of the element whose start was read.
std::string RowReader::readText()
{
    std::string text;
    for (int depth = 1; depth > 0 && !m_xml.atEnd();) {
        switch (m_xml.readNext()) {
        case Token::StartElement:
            ++depth;
            break;
        case Token::EndElement:
            --depth;
            break;
        case Token::Characters:
            if (depth == 1) {
                append(text, m_xml.text());
            }
            break;
        default:
            break;
        }
    }
    return text;
}

void RowReader::readCell()
{
    const CellHead head = readHead();
    if (head.column >= Workbook::MAX_COLUMNS) {
        fail(
            {QT_TRANSLATE_NOOP("Exchange", "more than %1 columns"), {std::to_string(Workbook::MAX_COLUMNS)}});
        return;
    }
    m_column = head.column + 1;
    std::string value;
    while (!m_xml.atEnd() && m_error.empty()) {
        const auto token = m_xml.readNext();
        if (token == Token::EndElement) {
            break; // of the cell: what stands in it is read whole below
        }
        if (token == Token::StartElement && m_xml.name() == QLatin1String("v")) {
            value = valueOf(head.type, readText());
        } else if (token == Token::StartElement && m_xml.name() == QLatin1String("is")) {
            value = readRichText(m_xml);
        } else if (token == Token::StartElement) {
            m_xml.skipCurrentElement(); // a formula: what it gave stands in <v>
        }
    }
    if (value.empty()) {
        return;
    }
    m_isEmpty = false;
    if (m_row.cells.size() <= head.column) {
        m_row.cells.resize(head.column + 1);
        m_row.isDates.resize(head.column + 1);
    }
    m_row.isDates[head.column] =
        head.type == CellType::Date ||
        (head.type == CellType::Number && head.style < m_dateStyles.size() && m_dateStyles[head.style]);
    m_row.cells[head.column] = std::move(value);
}

} // namespace mrl::exchange
