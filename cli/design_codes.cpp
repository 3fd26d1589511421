#include "cli/design_codes.h"

#include <algorithm>
#include <map>
#include <variant>

#include "check/design_code_check.h"
#include "check/finding_text.h"
#include "cli/failure.h"

namespace mrl::cli {

namespace {

struct Warned
{
    int line;
    const char* rule;
    std::string text;
};

/// What the rules of the dialog find. Like all that is wrong inside a file it is told in English.
/// @param action the action that it is about, null when it is about the file
Warned worded(const LCM_Finding& finding, const designcode::DefaultAction* action)
{
    const char* rule = lcm_rule_id(finding.rule);
    const std::string text = lcm_finding_english(finding).toStdString();
    return action == nullptr ? Warned{0, rule, text}
                             : Warned{action->line, rule, "action " + action->name + ": " + text};
}

LCM_DesignCodeData dataOf(const designcode::DesignCode& code)
{
    LCM_DesignCodeData data{code.availability, {code.ntcode, code.idcode, code.country, code.year}, {}};
    for (const designcode::DefaultAction& action : code.actions) {
        data.actions.push_back(action.record);
    }
    return data;
}

std::vector<Warned> warningsOf(const designcode::DesignCode& code)
{
    std::vector<Warned> all;
    for (const designcode::Warning& warning : designcode::warnings(code)) {
        all.push_back({warning.line, designcode::idOf(warning.rule), warning.text});
    }
    std::map<int, const designcode::DefaultAction*> actions;
    for (const designcode::DefaultAction& action : code.actions) {
        actions[action.code] = &action;
    }
    for (const LCM_Finding& finding : lcm_check_design_code(dataOf(code))) {
        const auto found = actions.find(finding.id);
        all.push_back(worded(finding, found == actions.end() ? nullptr : found->second));
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const Warned& a, const Warned& b) { return a.line < b.line; });
    return all;
}

} // namespace

designcode::DesignCode readDesignCode(const std::string& name)
{
    const auto file = designcode::find(name);
    if (!file) {
        throw Failure{ExitCode::File,
                      name + ": there is no such design code; 'mrl-lc codes' lists those on the path"};
    }
    auto result = designcode::read(*file);
    if (const auto* error = std::get_if<designcode::Error>(&result)) {
        throw Failure{ExitCode::File, error->text()};
    }
    return std::get<designcode::DesignCode>(std::move(result));
}

Json identityJson(const designcode::DesignCode& code)
{
    return {{"name", code.name},     {"file", code.file},     {"label", code.label},
            {"ntcode", code.ntcode}, {"idcode", code.idcode}, {"country", code.country},
            {"year", code.year}};
}

Json warningsJson(const designcode::DesignCode& code)
{
    Json list = Json::array();
    for (const Warned& warning : warningsOf(code)) {
        list.push_back({{"line", warning.line}, {"rule", warning.rule}, {"text", warning.text}});
    }
    return list;
}

void printWarnings(const designcode::DesignCode& code)
{
    Output out;
    for (const Warned& warning : warningsOf(code)) {
        out.line("warning: " + designcode::Error{code.file, warning.line, warning.text}.text());
    }
    out.finish();
}

} // namespace mrl::cli
