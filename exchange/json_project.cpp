#include <algorithm>

#include "exchange/decimals.h"
#include "exchange/json_reader.h"
#include "exchange/json_text.h"
#include "exchange/raw_records.h"
#include "exchange/record_cells.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::exchange {

namespace {

/// Makes records of rows, whatever the rules of the dialog would say.
class RecordMaker : public TableReceiver
{
  public:
    void begin(const TableHead& head) override
    {
        m_head = head;
        m_cells.assign(columnsOf(head.sheet).size(), {});
    }
    void take(Row& row) override
    {
        std::fill(m_cells.begin(), m_cells.end(), std::string());
        for (std::size_t i = 0; i < m_head.columns.size(); ++i) {
            m_cells[static_cast<std::size_t>(m_head.columns[i])] = row.cells[i];
        }
        m_rows.push_back({m_head.sheet, row.line, m_cells});
    }
    void note(const Message&) override {}

    /// Adds the rows to the records that stand in the file as bytes. Those say what a row can't.
    std::optional<FormatError> addTo(ProjectContent& content) const
    {
        for (const FullRow& row : m_rows) {
            const bool fine =
                row.sheet == Sheet::Actions ? addAction(row, content) : addLoadCase(row, content);
            if (!fine) {
                return FormatError{
                    {QT_TRANSLATE_NOOP("Exchange",
                                       "%1, entry %2 makes no record, or contradicts that under its key"),
                     {nameOf(row.sheet), std::to_string(row.line)}}};
            }
        }
        return std::nullopt;
    }

  private:
    struct FullRow
    {
        Sheet sheet;
        int line;
        Cells cells;
    };

    static bool addAction(const FullRow& row, ProjectContent& content)
    {
        const std::string& name = row.cells[ACTION_NAME];
        const int code = lcm_pack_word(QString::fromStdString(name));
        const auto told = std::find_if(content.keys.begin(), content.keys.end(), [&](const auto& key) {
            return key.first.kwh == LC_KWH_ACTIONS && lcm_code_name(key.first.kwl).toStdString() == name;
        });
        if (told != content.keys.end()) {
            return tellsTheSame<tagCDB_LC_ACT>(told->first.kwl, told->second, row.cells);
        }
        const auto record = actionOf(row.cells);
        return record &&
               content.keys
                   .emplace(RecordKey{LC_KWH_ACTIONS, code}, KeyRecords{std::string(bytesOf(*record))})
                   .second;
    }
    static bool addLoadCase(const FullRow& row, ProjectContent& content)
    {
        const auto number = wholeNumberOf(row.cells[CASE_NUMBER]);
        if (!number) {
            return false;
        }
        const auto told = content.keys.find({LC_KWH_CASES, *number});
        if (told != content.keys.end()) {
            return tellsTheSame<tagCDB_LC_CTRL>(*number, told->second, row.cells);
        }
        const auto record = loadCaseOf(row.cells);
        return record &&
               content.keys
                   .emplace(RecordKey{LC_KWH_CASES, *number}, KeyRecords{std::string(bytesOf(*record))})
                   .second;
    }
    /// Whether one of the records is shown as the row.
    template <class Record>
    static bool tellsTheSame(int id, const KeyRecords& records, const Cells& cells)
    {
        return std::any_of(records.begin(), records.end(), [&](const std::string& bytes) {
            Record record{};
            bytes.copy(reinterpret_cast<char*>(&record), sizeof record);
            return cellsOf(id, record) == cells;
        });
    }

    TableHead m_head;
    Cells m_cells;
    std::vector<FullRow> m_rows;
};

} // namespace

std::variant<ProjectContent, FormatError> projectOfJson(std::string_view bytes)
{
    RecordMaker rows;
    ProjectContent content;
    if (auto error = readJson(bytes, rows, &content)) {
        return std::move(*error);
    }
    if (auto error = rows.addTo(content)) {
        return std::move(*error);
    }
    return content;
}

} // namespace mrl::exchange
