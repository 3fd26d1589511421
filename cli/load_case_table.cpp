#include "cli/load_case_table.h"

#include "cli/stored_load_cases.h"
#include "cli/words.h"
#include "lcdata/packed_text.h"

namespace mrl::cli {

namespace {

constexpr std::size_t NUMBER_WIDTH = 7;
constexpr std::size_t ACTION_WIDTH = 6;
constexpr std::size_t TITLE_WIDTH = 33;
constexpr std::size_t VALUE_WIDTH = 7;
constexpr const char* VALUE_NAMES[] = {"DLX",  "DLY",  "DLZ",  "factor", "Gamu", "Gamf",
                                       "Gama", "Psi0", "Psi1", "Psi2",   "Psi1s"};

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
    for (const char* name : VALUE_NAMES) {
        out[name] = nullptr;
    }
    out["current"] = isCurrent;
    return out;
}

} // namespace

std::string loadCaseHead()
{
    std::string line = front(" ", "Number", "Action", "Title");
    for (const char* name : VALUE_NAMES) {
        line += " " + paddedLeft(name, VALUE_WIDTH);
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
    const LoadCaseFields fields = fieldsOf(record);
    std::string line =
        front(mark, number, actionWordText(fields.action), printable(lcm_title_text(record.title)));
    for (const float value : {record.dlx, record.dly, record.dlz, record.factor, fields.gamu, fields.gamf,
                              fields.gama, fields.psi0, fields.psi1, fields.psi2, fields.psi1s}) {
        line += " " + paddedLeft(factorText(value), VALUE_WIDTH);
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
    const LoadCaseFields fields = fieldsOf(record);
    const std::string action = actionWordText(fields.action);
    return {{"number", loadCase.number},
            {"title", lcm_title_text(record.title).toStdString()},
            {"action", action.empty() ? Json(nullptr) : Json(action)},
            {"kind", record.kind},
            {"DLX", jsonNumber(record.dlx)},
            {"DLY", jsonNumber(record.dly)},
            {"DLZ", jsonNumber(record.dlz)},
            {"factor", jsonNumber(record.factor)},
            {"Gamu", jsonFactor(fields.gamu)},
            {"Gamf", jsonFactor(fields.gamf)},
            {"Gama", jsonFactor(fields.gama)},
            {"Psi0", jsonFactor(fields.psi0)},
            {"Psi1", jsonFactor(fields.psi1)},
            {"Psi2", jsonFactor(fields.psi2)},
            {"Psi1s", jsonFactor(fields.psi1s)},
            {"current", isCurrent}};
}

} // namespace mrl::cli
