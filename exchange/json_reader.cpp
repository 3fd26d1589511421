#include "exchange/json_reader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

#include "exchange/decimals.h"
#include "exchange/raw_records.h"

namespace mrl::exchange {

namespace {

using Json = nlohmann::json;

constexpr std::size_t MAX_CELL_BYTES = 100000;
constexpr const char* NO_OBJECT = QT_TRANSLATE_NOOP("Exchange", "the file is no JSON object");
constexpr int SECTION = 1;      // depth of the names of the lists
constexpr int ENTRY = 3;        // depth within an object of a list
constexpr int FACT = 2;         // depth within the object of the facts
constexpr int RECORD_BYTES = 4; // depth within the list of a key's records

/// Goes through the file event by event.
class JsonHandler : public Json::json_sax_t
{
  public:
    JsonHandler(TableReceiver& receiver, ProjectContent* rest) : m_receiver(receiver), m_rest(rest) {}

    bool null() override { return value({}); }
    bool boolean(bool) override
    {
        return isSkipped() || fail(QT_TRANSLATE_NOOP("Exchange", "%1: \"%2\" is neither text nor number"));
    }
    bool number_integer(number_integer_t number) override { return value(std::to_string(number)); }
    bool number_unsigned(number_unsigned_t number) override { return value(std::to_string(number)); }
    bool number_float(number_float_t, const string_t& text) override
    {
        return value(text == "-0.0" ? "-0" : text);
    }
    bool string(string_t& text) override { return value(text); }
    bool binary(binary_t&) override { return false; }
    bool key(string_t& name) override
    {
        m_key = name;
        if (m_depth == SECTION) {
            m_section = sectionOf(name);
        }
        return true;
    }
    bool start_object(std::size_t) override { return open(true); }
    bool end_object() override
    {
        const bool isEntry = m_depth == ENTRY && m_section != Section::Facts;
        --m_depth;
        return !isEntry || finishEntry();
    }
    bool start_array(std::size_t) override { return open(false); }
    bool end_array() override
    {
        --m_depth;
        return true;
    }
    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override
    {
        return failWith({QT_TRANSLATE_NOOP("Exchange", "the file is no JSON: byte %1 is not expected"),
                         {std::to_string(position)}});
    }
    const Message& error() const { return m_error; }
    /// Whether any part of the file means something here.
    bool isOurs() const { return m_isOurs; }

  private:
    enum class Section { Actions, LoadCases, Facts, Records, Unknown };

    Section sectionOf(const std::string& name)
    {
        const bool wasOurs = m_isOurs;
        m_isOurs = true;
        if (name == nameOf(Sheet::Actions) || name == nameOf(Sheet::LoadCases)) {
            m_head.sheet = name == nameOf(Sheet::Actions) ? Sheet::Actions : Sheet::LoadCases;
            m_began = false;
            m_row.line = 0;
            return m_head.sheet == Sheet::Actions ? Section::Actions : Section::LoadCases;
        }
        if (name == "facts" || name == "records") {
            return name == "facts" ? Section::Facts : Section::Records;
        }
        m_isOurs = wasOurs;
        m_receiver.note({QT_TRANSLATE_NOOP("Exchange", "\"%1\" is passed over"), {name}});
        return Section::Unknown;
    }
    bool isSheet() const { return m_section == Section::Actions || m_section == Section::LoadCases; }
    bool isSkipped() const
    {
        return m_section == Section::Unknown || (!isSheet() && m_rest == nullptr && m_depth > SECTION);
    }

    /// Which bracket stands at a depth of a section: a list of objects, an object of facts.
    bool open(bool isObject)
    {
        ++m_depth;
        if (m_depth == 1) {
            return isObject || failWith({NO_OBJECT});
        }
        if (isSkipped()) {
            return true;
        }
        if (isSheet() && m_depth > ENTRY) {
            return fail(QT_TRANSLATE_NOOP("Exchange", "%1: \"%2\" is neither text nor number"));
        }
        const bool wantsObject = m_depth == (m_section == Section::Facts ? FACT : ENTRY);
        if (isObject != wantsObject || m_depth > RECORD_BYTES) {
            return failWith({QT_TRANSLATE_NOOP("Exchange", "%1 is no object"), {place(1)}});
        }
        if (m_depth == ENTRY) {
            beginEntry();
        }
        return true;
    }
    void beginEntry()
    {
        ++m_row.line;
        m_row.cells.clear();
        m_columns.clear();
        m_recordKey = {};
        m_records.clear();
    }
    bool value(const std::string& text)
    {
        if (m_depth == 0) {
            return failWith({NO_OBJECT});
        }
        if (isSkipped()) {
            return true;
        }
        if (isSheet()) {
            return m_depth == ENTRY
                       ? cell(text)
                       : failWith({QT_TRANSLATE_NOOP("Exchange", "%1 is no object"), {place(1)}});
        }
        if (m_section == Section::Facts) {
            return m_depth == FACT ? (m_rest->facts[m_key] = text, true)
                                   : failWith({QT_TRANSLATE_NOOP("Exchange", "\"facts\" is no object")});
        }
        return recordValue(text);
    }
    bool cell(const std::string& text)
    {
        const int column = columnOf(m_key);
        if (column < 0) {
            return true;
        }
        if (text.size() > MAX_CELL_BYTES) {
            return failWith({QT_TRANSLATE_NOOP("Exchange", "%1: \"%2\" is longer than %3 bytes"),
                             {place(), m_key, std::to_string(MAX_CELL_BYTES)}});
        }
        if (std::find(m_columns.begin(), m_columns.end(), column) != m_columns.end()) {
            const Column& twice = columnsOf(m_head.sheet)[static_cast<std::size_t>(column)];
            return failWith(
                {QT_TRANSLATE_NOOP("Exchange", "%1: two entries mean \"%2\""), {place(), twice.name}});
        }
        m_columns.push_back(column);
        m_row.cells.push_back(text);
        return true;
    }
    bool recordValue(const std::string& text)
    {
        if (m_depth == RECORD_BYTES) {
            std::string bytes;
            if (!fromHex(text, bytes) || bytes.empty()) {
                return fail(
                    QT_TRANSLATE_NOOP("Exchange", "%1: \"%2\" is no even number of hexadecimal digits"));
            }
            m_records.push_back(std::move(bytes));
            return true;
        }
        const auto number = wholeNumberOf(text);
        if (m_depth != ENTRY || !number || (m_key != "kwh" && m_key != "kwl")) {
            return fail(QT_TRANSLATE_NOOP("Exchange", "%1: \"%2\" is no number of a key"));
        }
        (m_key == "kwh" ? m_recordKey.first : m_recordKey.second) = number;
        return true;
    }
    bool finishEntry()
    {
        if (isSheet()) {
            if (!m_began || m_head.columns != m_columns) {
                m_head.columns = m_columns;
                m_began = true;
                m_receiver.begin(m_head);
            }
            m_receiver.take(m_row);
        } else if (m_section == Section::Records && m_rest != nullptr) {
            if (!m_recordKey.first || !m_recordKey.second || m_records.empty()) {
                return failWith({QT_TRANSLATE_NOOP("Exchange", "%1 lacks kwh, kwl or bytes"), {place()}});
            }
            if (!m_rest->keys.emplace(RecordKey{*m_recordKey.first, *m_recordKey.second}, m_records).second) {
                return failWith({QT_TRANSLATE_NOOP("Exchange", "%1: the key stands twice"), {place()}});
            }
        }
        return true;
    }
    /// The column of an entry's name; one that means nothing is told once.
    int columnOf(const std::string& name)
    {
        const auto [at, isNew] = m_known[m_head.sheet == Sheet::Actions ? 0 : 1].emplace(name, 0);
        if (isNew) {
            at->second = columnOfHeading(m_head.sheet, name);
            if (at->second < 0) {
                m_receiver.note({QT_TRANSLATE_NOOP("Exchange", "entry \"%1\" is passed over"), {name}});
            }
        }
        return at->second;
    }
    std::string place(int ahead = 0) const
    {
        const char* section = isSheet()                     ? nameOf(m_head.sheet)
                              : m_section == Section::Facts ? "facts"
                                                            : "records";
        return std::string(section) + ", entry " + std::to_string(m_row.line + ahead);
    }
    /// @param pattern names the place and the entry
    bool fail(const char* pattern) { return failWith({pattern, {place(), m_key}}); }
    bool failWith(const Message& message)
    {
        m_error = m_error.empty() ? message : m_error;
        return false;
    }

    TableReceiver& m_receiver;
    ProjectContent* m_rest;
    int m_depth = 0;
    Section m_section = Section::Unknown;
    std::string m_key;
    TableHead m_head;
    bool m_began = false; ///< the receiver knows m_head
    std::vector<int> m_columns;
    Row m_row;
    std::pair<std::optional<int>, std::optional<int>> m_recordKey;
    KeyRecords m_records;
    std::map<std::string, int> m_known[2];
    bool m_isOurs = false;
    Message m_error;
};

} // namespace

std::optional<FormatError> readJson(std::string_view bytes, TableReceiver& receiver, ProjectContent* rest)
{
    JsonHandler handler(receiver, rest);
    const bool fine = Json::sax_parse(bytes.begin(), bytes.end(), &handler);
    if (fine && !handler.isOurs()) {
        return FormatError{
            {QT_TRANSLATE_NOOP("Exchange", R"(the file has neither "actions" nor "loadcases")")}};
    }
    if (fine) {
        return std::nullopt;
    }
    return FormatError{handler.error().empty() ? Message{NO_OBJECT} : handler.error()};
}

} // namespace mrl::exchange
