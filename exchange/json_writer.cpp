#include "exchange/json_writer.h"

#include <nlohmann/json.hpp>

#include <algorithm>

#include "exchange/all_keys.h"
#include "exchange/raw_records.h"
#include "exchange/record_cells.h"
#include "exchange/sheet_walk.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::exchange {

namespace {

using Json = nlohmann::json;
constexpr std::size_t BLOCK = 1 << 16;

bool isPlain(char c) { return (c >= ' ' && c < 127 && c != '"' && c != '\\'); }

void appendText(std::string& out, const std::string& text)
{
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        out.append(1, '"').append(text).append(1, '"');
    } else {
        out += Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
    }
}

/// A number in JSON; a text for not-a-number and the infinities, which JSON doesn't have.
void appendNumberCell(std::string& out, const std::string& cell)
{
    if (cell.empty()) {
        out += "null";
    } else if (cell.back() >= '0' && cell.back() <= '9') { // else "nan" or "inf"
        out += cell == "-0" ? "-0.0" : cell; // -0 would be read as a whole number, which has no such
    } else {
        appendText(out, cell);
    }
}

bool isNumber(Sheet sheet, const Column& column)
{
    return column.isNumeric() || (column.kind == Kind::Key && sheet == Sheet::LoadCases);
}

/// What stands ahead of a cell.
struct Lead
{
    std::string text;
    bool isNumber;
};

std::vector<Lead> leadsOf(Sheet sheet)
{
    std::vector<Lead> leads;
    for (const Column& column : columnsOf(sheet)) {
        leads.push_back(
            {(leads.empty() ? "{\"" : ", \"") + std::string(column.name) + "\": ", isNumber(sheet, column)});
    }
    return leads;
}

/// Writes a file in blocks; the first failure stays.
class JsonWriter
{
  public:
    JsonWriter(const Source& source, const Sink& sink) : m_source(source), m_sink(sink) {}

    bool run()
    {
        m_out += '{';
        for (const Sheet sheet : m_source.sheets) {
            beginSection(nameOf(sheet), '[');
            writeSheet(sheet);
            m_out += "\n ]";
        }
        if (m_source.whole) {
            beginSection("facts", '{');
            writeFacts();
            m_out += "\n }";
            beginSection("records", '[');
            writeRecords();
            m_out += "\n ]";
        }
        m_out += "\n}\n";
        return m_fine && m_sink(m_out);
    }

  private:
    void beginSection(const char* name, char bracket)
    {
        m_out += m_isFirstSection ? "\n " : ",\n ";
        m_isFirstSection = false;
        appendText(m_out, name);
        m_out += ": ";
        m_out += bracket;
        m_isFirstEntry = true;
    }
    void beginEntry()
    {
        m_out += m_isFirstEntry ? "\n  " : ",\n  ";
        m_isFirstEntry = false;
        if (m_out.size() > BLOCK && m_fine) {
            m_fine = m_sink(m_out);
            m_out.clear();
        }
    }
    void writeSheet(Sheet sheet)
    {
        const std::vector<Lead> leads = leadsOf(sheet);
        for (SheetWalk walk(m_source.db, sheet); walk.next() && m_fine;) {
            beginEntry();
            auto cell = walk.cells().begin();
            for (const Lead& lead : leads) {
                m_out += lead.text;
                if (lead.isNumber) {
                    appendNumberCell(m_out, *cell++);
                } else {
                    appendText(m_out, *cell++);
                }
            }
            m_out += '}';
        }
    }
    void writeFacts()
    {
        for (const auto& [name, value] : m_source.facts) {
            beginEntry();
            appendText(m_out, name);
            m_out += ": ";
            appendText(m_out, value);
        }
    }
    void writeRecords()
    {
        for (AllKeys walk(m_source.db); walk.next() && m_fine;) {
            if (!isToldByRow(walk.kwh(), walk.kwl())) {
                writeKey(walk.kwh(), walk.kwl());
            }
        }
    }
    void writeKey(int kwh, int kwl)
    {
        beginEntry();
        m_out += "{\"kwh\": " + std::to_string(kwh) + ", \"kwl\": " + std::to_string(kwl) + ", \"bytes\": [";
        const char* between = "\"";
        for (const std::string& record : readRecords(m_source.db, kwh, kwl)) {
            m_out.append(between).append(toHex(record)).append(1, '"');
            between = ", \"";
        }
        m_out += "]}";
    }
    /// Whether the row of a key says all that the key holds.
    bool isToldByRow(int kwh, int kwl) const
    {
        if (kwh == LC_KWH_CASES && kwl > 0) {
            const auto loadCase = lcm_stored_load_case(m_source.db, kwl);
            return loadCase && loadCase->isOwn() &&
                   isTold(kwh, kwl, loadCaseOf(cellsOf(kwl, loadCase->record)));
        }
        const auto action = kwh == LC_KWH_ACTIONS ? lcm_stored_action(m_source.db, kwl) : std::nullopt;
        return action && isTold(kwh, kwl, actionOf(cellsOf(kwl, action->record)));
    }
    template <class Record>
    bool isTold(int kwh, int kwl, const std::optional<Record>& record) const
    {
        return record && keyOf(*record, kwl) == kwl && holdsJust(m_source.db, kwh, kwl, bytesOf(*record));
    }
    static int keyOf(const tagCDB_LC_ACT& action, int) { return lcm_action_code(action); }
    static int keyOf(const tagCDB_LC_CTRL&, int number) { return number; }

    const Source& m_source;
    const Sink& m_sink;
    std::string m_out;
    bool m_isFirstSection = true;
    bool m_isFirstEntry = true;
    bool m_fine = true;
};

std::string jsonText(const std::string& text)
{
    std::string out;
    appendText(out, text);
    return out;
}

std::string orNull(const std::string& text) { return text.empty() ? "null" : jsonText(text); }

std::string combinationObject(const CombinationRow& row)
{
    std::string out = "{\"key\": " + jsonText(row.key) + ", \"leading\": " + orNull(row.leading) +
                      ", \"expression\": " + orNull(row.expression) + ", \"factors\": {";
    const char* between = "\"";
    for (const auto& [number, factor] : row.factors) {
        out.append(between).append(std::to_string(number)).append("\": ").append(factor);
        between = ", \"";
    }
    return out + "}}";
}

} // namespace

std::optional<FormatError> writeJson(const Source& source, const Sink& sink)
{
    return JsonWriter(source, sink).run()
               ? std::nullopt
               : std::optional(FormatError{{QT_TRANSLATE_NOOP("Exchange", "the file can't be written")}});
}

std::optional<FormatError> writeJson(const CombinationTable& table, const Sink& sink)
{
    std::string out = "{\n \"situation\": " + jsonText(table.situation) + ",\n \"combinations\": [";
    bool isFine = true;
    const char* between = "\n  ";
    table.tell([&](const CombinationRow& row) {
        out.append(between).append(combinationObject(row));
        between = ",\n  ";
        if (out.size() > BLOCK && isFine) {
            isFine = sink(out);
            out.clear();
        }
    });
    out += "\n ]\n}\n";
    return isFine && sink(out)
               ? std::nullopt
               : std::optional(FormatError{{QT_TRANSLATE_NOOP("Exchange", "the file can't be written")}});
}

} // namespace mrl::exchange
