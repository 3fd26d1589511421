#include "exchange/project_diff.h"

#include <cstring>
#include <map>

#include "exchange/raw_records.h"
#include "exchange/record_cells.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::exchange {

namespace {

int kindOf(const std::string& record)
{
    int kind = -1;
    if (record.size() >= sizeof kind) {
        std::memcpy(&kind, record.data(), sizeof kind);
    }
    return kind;
}

bool isLoadCase(const RecordKey& key, const KeyRecords& records)
{
    return key.kwh == LC_KWH_CASES && key.kwl > 0 && !records.empty() &&
           lcm_is_own_kind(kindOf(records.front()));
}

bool isAction(const RecordKey& key, const KeyRecords& records)
{
    return key.kwh == LC_KWH_ACTIONS && key.kwl >= LC_BLANK_WORD && !records.empty() &&
           kindOf(records.front()) == LC_KIND_ACTION;
}

template <class Record>
Record recordOf(const std::string& bytes)
{
    Record record{};
    bytes.copy(reinterpret_cast<char*>(&record), sizeof record);
    return record;
}

using Values = std::vector<std::pair<std::string, std::string>>;

template <class Record>
Values cellValues(Sheet sheet, int id, const std::string& bytes)
{
    const Cells cells = cellsOf(id, recordOf<Record>(bytes));
    Values values;
    for (std::size_t i = 1; i < cells.size(); ++i) {
        values.emplace_back(columnsOf(sheet)[i].name, cells[i]);
    }
    return values;
}

std::string hexOf(const KeyRecords& records)
{
    std::string text;
    for (const std::string& record : records) {
        text += (text.empty() ? "" : " ") + toHex(record);
    }
    return text;
}

template <class Record>
std::vector<DifferentValue> differentCells(Sheet sheet, int id, const std::string& before,
                                           const std::string& after)
{
    const Cells old = cellsOf(id, recordOf<Record>(before));
    const Cells now = cellsOf(id, recordOf<Record>(after));
    std::vector<DifferentValue> result;
    for (std::size_t i = 1; i < old.size(); ++i) {
        if (old[i] != now[i]) {
            result.push_back({columnsOf(sheet)[i].name, old[i], now[i]});
        }
    }
    return result;
}

/// The cells that differ; the bytes where none does, and where no cell tells.
std::vector<DifferentValue> differentValues(const RecordKey& key, const KeyRecords& before,
                                            const KeyRecords& after)
{
    std::vector<DifferentValue> result;
    if (isLoadCase(key, before) && isLoadCase(key, after)) {
        result = differentCells<tagCDB_LC_CTRL>(Sheet::LoadCases, key.kwl, before.front(), after.front());
    } else if (isAction(key, before) && isAction(key, after)) {
        result = differentCells<tagCDB_LC_ACT>(Sheet::Actions, key.kwl, before.front(), after.front());
    }
    if (result.empty()) {
        result.push_back({"bytes", hexOf(before), hexOf(after)});
    }
    return result;
}

/// One side lacks it.
ProjectDifference whole(Difference kind, const RecordKey& key, const KeyRecords& records)
{
    const KeySubject subject = subjectOf(key, records);
    ProjectDifference difference{kind, subject.subject, subject.name, {}};
    for (const auto& [name, text] : valuesOf(key, records)) {
        const bool isAdded = kind == Difference::Added;
        difference.values.push_back({name, isAdded ? std::string() : text, isAdded ? text : std::string()});
    }
    return difference;
}

void compareFacts(const ProjectContent& before, const ProjectContent& after,
                  std::vector<ProjectDifference>& out)
{
    std::map<std::string, std::pair<std::string, std::string>> facts;
    for (const auto& [name, value] : before.facts) {
        facts[name].first = value;
    }
    for (const auto& [name, value] : after.facts) {
        facts[name].second = value;
    }
    for (const auto& [name, values] : facts) {
        if (values.first != values.second) {
            const Difference kind = values.first.empty()    ? Difference::Added
                                    : values.second.empty() ? Difference::Removed
                                                            : Difference::Changed;
            out.push_back({kind, "fact", name, {{"value", values.first, values.second}}});
        }
    }
}

} // namespace

KeySubject subjectOf(const RecordKey& key, const KeyRecords& records)
{
    if (isLoadCase(key, records)) {
        return {"loadcase", std::to_string(key.kwl)};
    }
    if (isAction(key, records)) {
        return {"action", lcm_code_name(key.kwl).toStdString()};
    }
    return {"record", std::to_string(key.kwh) + "/" + std::to_string(key.kwl)};
}

std::vector<std::pair<std::string, std::string>> valuesOf(const RecordKey& key, const KeyRecords& records)
{
    if (isLoadCase(key, records)) {
        return cellValues<tagCDB_LC_CTRL>(Sheet::LoadCases, key.kwl, records.front());
    }
    if (isAction(key, records)) {
        return cellValues<tagCDB_LC_ACT>(Sheet::Actions, key.kwl, records.front());
    }
    return records.empty() ? Values() : Values{{"bytes", hexOf(records)}};
}

std::vector<ProjectDifference> differencesOf(const ProjectContent& before, const ProjectContent& after)
{
    std::vector<ProjectDifference> out;
    compareFacts(before, after, out);
    auto a = before.keys.begin();
    auto b = after.keys.begin();
    while (a != before.keys.end() || b != after.keys.end()) {
        if (b == after.keys.end() || (a != before.keys.end() && a->first < b->first)) {
            out.push_back(whole(Difference::Removed, a->first, a->second));
            ++a;
        } else if (a == before.keys.end() || b->first < a->first) {
            out.push_back(whole(Difference::Added, b->first, b->second));
            ++b;
        } else {
            if (a->second != b->second) {
                const KeySubject subject = subjectOf(a->first, a->second);
                out.push_back({Difference::Changed, subject.subject, subject.name,
                               differentValues(a->first, a->second, b->second)});
            }
            ++a;
            ++b;
        }
    }
    return out;
}

} // namespace mrl::exchange
