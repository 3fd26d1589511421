#include "cli/load_case_table.h"

#include "cli/project_records.h"
#include "cli/words.h"
#include "lcdata/values/packed_text.h"
#include "rules/load_case_row.h"

namespace mrl::cli {

namespace {

constexpr std::size_t NUMBER_WIDTH = 7;
constexpr std::size_t ACTION_WIDTH = 6;
constexpr std::size_t TITLE_WIDTH = 33;
constexpr std::size_t VALUE_WIDTH = 7;

/// A number of a load case and its name.
struct Value
{
    const char* name;
    float value;
    bool isFactor; ///< of the action too, and undefined where the action's holds
};

std::vector<Value> valuesOf(const tagCDB_LC_CTRL& record)
{
    std::vector<Value> values{{"DLX", record.dlx, false},
                              {"DLY", record.dly, false},
                              {"DLZ", record.dlz, false},
                              {"factor", record.factor, false}};
    const LCM_LoadCaseFactors factors = lcm_stored_factors(record);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        values.push_back({factor.key, factors[factor.id], true});
    }
    return values;
}

std::string front(const std::string& mark, const std::string& number, const std::string& action,
                  const std::string& title)
{
    return mark + paddedLeft(number, NUMBER_WIDTH) + "  " + padded(action, ACTION_WIDTH) + " " +
           padded(title, TITLE_WIDTH);
}

std::string withoutTrailingBlanks(std::string line)
{
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

Json foreignJson(const LCM_StoredLoadCase& loadCase, bool isCurrent)
{
    Json out = {
        {"number", loadCase.number}, {"title", nullptr}, {"action", nullptr}, {"kind", loadCase.record.kind}};
    for (const Value& value : valuesOf({})) {
        out[value.name] = nullptr;
    }
    out["current"] = isCurrent;
    return out;
}

} // namespace

std::string loadCaseHead()
{
    std::string line = front(" ", "Number", "Action", "Title");
    for (const Value& value : valuesOf({})) {
        line += " " + paddedLeft(value.name, VALUE_WIDTH);
    }
    return line;
}

std::string loadCaseLine(const LCM_StoredLoadCase& loadCase, int currentNumber)
{
    const std::string mark = loadCase.number == currentNumber ? "*" : " ";
    const std::string number = std::to_string(loadCase.number);
    const tagCDB_LC_CTRL& record = loadCase.record;
    if (!loadCase.isOwn()) {
        return withoutTrailingBlanks(
            front(mark, number, "", "(other module, kind " + std::to_string(record.kind) + ")"));
    }
    std::string line =
        front(mark, number, actionWordText(actionWordOf(record)), printable(lcm_title_text(record.title)));
    for (const Value& value : valuesOf(record)) {
        line += " " + paddedLeft(factorText(value.value), VALUE_WIDTH);
    }
    return line;
}

Json loadCaseJson(const LCM_StoredLoadCase& loadCase, int currentNumber)
{
    const bool isCurrent = loadCase.number == currentNumber;
    if (!loadCase.isOwn()) {
        return foreignJson(loadCase, isCurrent);
    }
    const tagCDB_LC_CTRL& record = loadCase.record;
    const std::string action = actionWordText(actionWordOf(record));
    Json out = {{"number", loadCase.number},
                {"title", lcm_title_text(record.title).toStdString()},
                {"action", action.empty() ? Json(nullptr) : Json(action)},
                {"kind", record.kind}};
    for (const Value& value : valuesOf(record)) {
        out[value.name] = value.isFactor ? jsonFactor(value.value) : jsonNumber(value.value);
    }
    out["current"] = isCurrent;
    return out;
}

} // namespace mrl::cli
