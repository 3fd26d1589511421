#include "exchange/xlsx_workbook.h"

#include <QXmlStreamReader>

#include <map>

#include "exchange/xlsx_rows.h"

namespace mrl::exchange {

namespace {

using Token = QXmlStreamReader;

std::string attribute(const QXmlStreamReader& xml, const char* name)
{
    return xml.attributes().value(QLatin1String(name)).toString().toStdString();
}

/// An attribute of whatever namespace, such as r:id.
std::string attributeOfAny(const QXmlStreamReader& xml, const char* name)
{
    for (const QXmlStreamAttribute& one : xml.attributes()) {
        if (one.name() == QLatin1String(name) && !one.prefix().isEmpty()) {
            return one.value().toString().toStdString();
        }
    }
    return {};
}

/// Steps to the next start of an element. A document type is refused: entities have no place in a workbook.
bool nextStart(QXmlStreamReader& xml)
{
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == Token::DTD) {
            xml.raiseError("a document type");
        }
        if (token == Token::StartElement) {
            return true;
        }
    }
    return false;
}

/// The entry that a target of xl/_rels names.
std::string entryOf(const std::string& target)
{
    return target.rfind('/', 0) == 0 ? target.substr(1) : "xl/" + target;
}

/// Whether a number format shows a date or a time: it has one of their letters outside of quotes and brackets.
bool showsDate(const std::string& code)
{
    bool isQuoted = false;
    bool isBracketed = false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        const char c = code[i];
        isQuoted = c == '"' ? !isQuoted : isQuoted;
        isBracketed = c == '[' ? true : c == ']' ? false : isBracketed;
        if (c == '\\') {
            ++i;
        } else if (!isQuoted && !isBracketed &&
                   std::string_view("ymdhsYMDHS").find(c) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

bool isBuiltInDate(int id)
{
    return (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) ||
           (id >= 50 && id <= 58);
}

} // namespace

Workbook::Workbook(std::string_view bytes) : m_zip(bytes), m_error(m_zip.error())
{
    if (m_error.empty()) {
        m_error = readSheets();
    }
    if (m_error.empty()) {
        m_error = readEntry(
            m_sharedEntry, [this](QXmlStreamReader& xml) { return readSharedStrings(xml); }, false);
    }
    if (m_error.empty()) {
        m_error = readEntry(
            m_stylesEntry, [this](QXmlStreamReader& xml) { return readStyles(xml); }, false);
    }
}

/// @param isNeeded whether a workbook without this entry is none
Message Workbook::readEntry(const std::string& name, const std::function<Message(QXmlStreamReader&)>& read,
                            bool isNeeded) const
{
    const auto entry = m_zip.open(name);
    if (!entry) {
        return isNeeded ? Message{QT_TRANSLATE_NOOP("Exchange", "the workbook lacks %1"), {name}} : Message();
    }
    QXmlStreamReader xml(entry.get());
    Message error = read(xml);
    if (error.empty() && xml.hasError()) {
        error = {QT_TRANSLATE_NOOP("Exchange", "%1 can't be read: %2"),
                 {name, xml.errorString().toStdString()}};
    }
    return error;
}

Message Workbook::readSheets()
{
    std::map<std::string, std::string> targets;
    const auto readTargets = [&](QXmlStreamReader& xml) {
        while (nextStart(xml)) {
            const std::string type = attribute(xml, "Type");
            const std::string kind = type.substr(type.rfind('/') + 1);
            const std::string entry = entryOf(attribute(xml, "Target"));
            targets[attribute(xml, "Id")] = entry;
            m_sharedEntry = kind == "sharedStrings" ? entry : m_sharedEntry;
            m_stylesEntry = kind == "styles" ? entry : m_stylesEntry;
        }
        return Message();
    };
    const auto readNames = [&](QXmlStreamReader& xml) {
        while (nextStart(xml)) {
            if (xml.name() == QLatin1String("sheet")) {
                m_sheets.push_back({attribute(xml, "name"), targets[attributeOfAny(xml, "id")]});
            }
        }
        return Message();
    };
    const Message error = readEntry("xl/_rels/workbook.xml.rels", readTargets, true);
    return error.empty() ? readEntry("xl/workbook.xml", readNames, true) : error;
}

Message Workbook::readSharedStrings(QXmlStreamReader& xml)
{
    std::size_t size = 0;
    for (nextStart(xml); nextStart(xml);) {
        if (xml.name() == QLatin1String("si")) {
            m_shared.push_back(readRichText(xml));
            size += m_shared.back().size() + sizeof(std::string);
        }
        if (size > MAX_SHARED_BYTES) {
            return {QT_TRANSLATE_NOOP("Exchange", "the shared strings are larger than 256 MiB")};
        }
    }
    return {};
}

Message Workbook::readStyles(QXmlStreamReader& xml)
{
    std::map<int, std::string> formats;
    bool isInCells = false;
    while (nextStart(xml)) {
        if (xml.name() == QLatin1String("numFmt")) {
            formats[std::atoi(attribute(xml, "numFmtId").c_str())] = attribute(xml, "formatCode");
        } else if (xml.name() == QLatin1String("cellXfs")) {
            isInCells = true;
        } else if (xml.name() == QLatin1String("xf") && isInCells) {
            const int id = std::atoi(attribute(xml, "numFmtId").c_str());
            const auto own = formats.find(id);
            m_dateStyles.push_back(own == formats.end() ? isBuiltInDate(id) : showsDate(own->second));
        } else if (xml.name() == QLatin1String("cellStyles")) {
            isInCells = false;
        }
    }
    return {};
}

Message Workbook::readRows(const WorkbookSheet& sheet, const std::function<bool(WorkbookRow&)>& take) const
{
    return readEntry(
        sheet.entry,
        [&](QXmlStreamReader& xml) { return RowReader(xml, m_shared, m_dateStyles, take).run(); }, true);
}

} // namespace mrl::exchange
