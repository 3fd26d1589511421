#include "findings/code_findings.h"

#include <algorithm>
#include <map>

#include "check/finding_text.h"

namespace mrl::findings {

namespace {

/// What the rules of the dialog find. Like all that is wrong inside a file it is told in English.
/// @param action the action that it is about, null when it is about the file
CodeFinding worded(const LCM_Finding& finding, const designcode::DesignCode& code,
                   const designcode::DefaultAction* action)
{
    CodeFinding out{code.file, 0, 0, lcm_rule_id(finding.rule), lcm_finding_english(finding).toStdString(),
                    {}};
    if (action == nullptr) {
        return out;
    }
    out.text = "action " + action->name + ": " + out.text;
    out.file = action->file;
    out.line = action->line;
    const LCM_Factor* factor = lcm_factor_of_action_column(finding.column);
    if (factor != nullptr && action->origins[factor->id].isStated()) {
        const designcode::Origin& origin = action->origins[factor->id];
        out.file = origin.file;
        out.line = origin.line;
        out.column = origin.column;
    }
    return out;
}

} // namespace

LCM_DesignCodeData dataOf(const designcode::DesignCode& code)
{
    LCM_DesignCodeData data{code.availability, {code.ntcode, code.idcode, code.country, code.year}, {}};
    for (const designcode::DefaultAction& action : code.actions) {
        data.actions.push_back(action.record);
    }
    return data;
}

std::vector<CodeFinding> findingsOf(const designcode::DesignCode& code)
{
    std::vector<CodeFinding> all;
    for (const designcode::Warning& warning : designcode::warnings(code)) {
        all.push_back({warning.file, warning.line, warning.column, designcode::idOf(warning.rule),
                       warning.text, warning.cure});
    }
    std::map<int, const designcode::DefaultAction*> actions;
    for (const designcode::DefaultAction& action : code.actions) {
        actions[action.code] = &action;
    }
    for (const LCM_Finding& finding : lcm_check_design_code(dataOf(code))) {
        const auto found = actions.find(finding.id);
        all.push_back(worded(finding, code, found == actions.end() ? nullptr : found->second));
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const CodeFinding& a, const CodeFinding& b) { return a.line < b.line; });
    return all;
}

std::string textOf(const CodeFinding& finding)
{
    return designcode::Error{finding.file, finding.line, finding.column, finding.text, finding.cure}.text();
}

} // namespace mrl::findings
