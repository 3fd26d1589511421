#include "exchange/xlsx_rows.h"

namespace mrl::exchange {

namespace {

using Token = QXmlStreamReader;

constexpr std::size_t MAX_CELL_UNITS = 32767; // of the format itself
constexpr int ESCAPE_UNITS = 7;               // _xHHHH_

} // namespace

std::string withoutEscapes(const QString& text)
{
    if (!text.contains(QLatin1String("_x"))) {
        return text.toStdString();
    }
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
    QString text;
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
            if (isText && static_cast<std::size_t>(text.size()) <= MAX_CELL_UNITS) {
                text += xml.text();
            }
            break;
        default:
            break;
        }
    }
    return withoutEscapes(text);
}

void RowReader::fail(const std::string& text)
{
    if (m_error.empty()) {
        m_error = "row " + std::to_string(m_row.number) + ": " + text;
    }
}

std::string RowReader::run()
{
    while (!m_xml.atEnd() && m_error.empty()) {
        switch (m_xml.readNext()) {
        case Token::DTD:
            return "a document type is refused";
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
        fail("a sheet has rows 1 to 1048576");
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

std::string RowReader::valueOf(const QStringRef& type, const QString& text) const
{
    if (type == QLatin1String("s")) {
        bool isNumber = false;
        const uint index = text.toUInt(&isNumber);
        if (!isNumber || index >= m_shared.size()) {
            m_error =
                "row " + std::to_string(m_row.number) + ": there is no shared string " + text.toStdString();
            return {};
        }
        return m_shared[index];
    }
    if (type == QLatin1String("b")) {
        return text == QLatin1String("1") ? "TRUE" : "FALSE";
    }
    return type == QLatin1String("str") ? withoutEscapes(text) : text.toStdString();
}

void RowReader::readCell()
{
    // The attributes go with the next token.
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const QStringRef type = attributes.value(QLatin1String("t"));
    const std::size_t style = attributes.value(QLatin1String("s")).toUInt();
    const std::size_t column = columnOf(attributes.value(QLatin1String("r")));
    if (column >= Workbook::MAX_COLUMNS) {
        fail("more than " + std::to_string(Workbook::MAX_COLUMNS) + " columns");
        return;
    }
    m_column = column + 1;
    std::string value;
    while (!m_xml.atEnd() && m_error.empty()) {
        const auto token = m_xml.readNext();
        if (token == Token::EndElement && m_xml.name() == QLatin1String("c")) {
            break;
        }
        if (token == Token::StartElement && m_xml.name() == QLatin1String("v")) {
            value = valueOf(type, m_xml.readElementText(QXmlStreamReader::SkipChildElements));
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
    m_row.cells.resize(std::max(m_row.cells.size(), column + 1));
    m_row.isDates.resize(m_row.cells.size());
    const bool isNumber = type.isEmpty() || type == QLatin1String("n");
    m_row.isDates[column] =
        type == QLatin1String("d") || (isNumber && style < m_dateStyles.size() && m_dateStyles[style]);
    m_row.cells[column] = std::move(value);
}

} // namespace mrl::exchange
