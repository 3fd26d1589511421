#include "cli/recode_report.h"

#include "check/finding_text.h"
#include "cli/arguments.h"
#include "cli/words.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/system_words.h"

namespace mrl::cli {

namespace {

const char* wordOf(LCM_RecodeFate fate)
{
    switch (fate) {
    case LCM_RecodeFate::TakesDefault:
        return "takes the new default";
    case LCM_RecodeFate::KeepsValues:
        return "keeps its values";
    case LCM_RecodeFate::BecomesOwn:
        break;
    }
    return "stays as an own action";
}

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

std::vector<std::string> changesOf(const LCM_RecodeRow& row)
{
    std::vector<std::string> changes;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float before = lcm_shown_factor(row.before, factor);
        const float after = lcm_shown_factor(row.after, factor);
        if (lcm_stored_factor(row.before, factor) != lcm_stored_factor(row.after, factor)) {
            changes.push_back(std::string(factor.key) + " " + factorText(before) + " > " + factorText(after));
        }
    }
    return changes;
}

std::vector<std::string> numbersOf(const std::vector<int>& numbers)
{
    std::vector<std::string> texts;
    for (const int number : numbers) {
        texts.push_back(std::to_string(number));
    }
    return texts;
}

std::vector<std::string> textsOf(const LCM_Findings& findings)
{
    std::vector<std::string> texts;
    for (const LCM_Finding& finding : findings) {
        texts.push_back(lcm_finding_english(finding).toStdString());
    }
    return texts;
}

/// What changes in the record of a load case.
std::vector<std::string> changesOf(const LCM_RecodeLoadCase& loadCase)
{
    std::vector<std::string> changes;
    if (loadCase.before.action != loadCase.after.action) {
        changes.push_back("action " + actionWordText(loadCase.before.action) + " > " +
                          actionWordText(loadCase.after.action));
    }
    const std::pair<const char*, float tagCDB_LC_CTRL::*> components[] = {
        {"DLX", &tagCDB_LC_CTRL::dlx}, {"DLY", &tagCDB_LC_CTRL::dly}, {"DLZ", &tagCDB_LC_CTRL::dlz}};
    for (const auto& [name, field] : components) {
        if (loadCase.before.*field != loadCase.after.*field) {
            changes.push_back(std::string(name) + " " + factorText(loadCase.before.*field) + " > " +
                              factorText(loadCase.after.*field));
        }
    }
    return changes;
}

std::string systemWord(int raw) { return lcm_word_of_id(LCM_SYSTEMS, lcm_class_of_raw_system(raw)); }

std::string gravityWord(int gravity) { return lcm_word_of_id(LCM_GRAVITY_AXES, gravity); }

} // namespace

void printPlan(const LCM_RecodePlan& plan, const LCM_RecodeProject& before)
{
    Table table({{"Action"}, {"Becomes"}, {"What"}, {"Changes"}, {"Lost on OK"}, {"Breaks"}, {"Load cases"}});
    for (const LCM_RecodeRow& row : plan.rows) {
        table.add({actionName(row.oldCode), actionName(row.newCode), wordOf(row.fate), joined(changesOf(row)),
                   joined(row.dropped), joined(textsOf(row.broken)), joined(numbersOf(row.loadCases))});
    }
    table.print();
    Output out;
    for (const LCM_RecodeLoadCase& loadCase : plan.loadCases) {
        out.line("load case " + std::to_string(loadCase.number) + ": " + joined(changesOf(loadCase)));
    }
    if (plan.changesSystem) {
        out.line("system " + systemWord(before.rawSystem) + " > " + systemWord(plan.rawSystem) +
                 ", gravity " + gravityWord(before.gravity) + " > " + gravityWord(plan.gravity));
    }
    out.finish();
}

Json planJson(const LCM_RecodePlan& plan, const LCM_RecodeProject& before)
{
    Json rows = Json::array();
    for (const LCM_RecodeRow& row : plan.rows) {
        rows.push_back({{"action", actionName(row.oldCode)},
                        {"becomes", actionName(row.newCode)},
                        {"what", wordOf(row.fate)},
                        {"changes", changesOf(row)},
                        {"dropped", row.dropped},
                        {"breaks", textsOf(row.broken)},
                        {"loadCases", row.loadCases}});
    }
    Json loadCases = Json::array();
    for (const LCM_RecodeLoadCase& loadCase : plan.loadCases) {
        loadCases.push_back({{"number", loadCase.number}, {"changes", changesOf(loadCase)}});
    }
    return {{"refusal", plan.refusal.empty() ? Json(nullptr) : Json(plan.refusal)},
            {"actions", rows},
            {"loadCases", loadCases},
            {"system", {{"before", systemWord(before.rawSystem)}, {"after", systemWord(plan.rawSystem)}}},
            {"gravity", {{"before", gravityWord(before.gravity)}, {"after", gravityWord(plan.gravity)}}}};
}

} // namespace mrl::cli
