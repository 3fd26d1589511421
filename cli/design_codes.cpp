#include "cli/design_codes.h"

#include <QDir>
#include <algorithm>
#include <map>
#include <variant>

#include "check/design_code_check.h"
#include "check/finding_text.h"
#include "cli/arguments.h"
#include "cli/failure.h"

namespace mrl::cli {

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

LCM_RecodeCode recodeCodeOf(const designcode::DesignCode& code)
{
    LCM_RecodeCode result{dataOf(code), {}};
    for (const designcode::DefaultAction& action : code.actions) {
        for (const int number : action.oldNumbers) {
            result.oldNumbers.emplace(number, action.code);
        }
    }
    return result;
}

std::string storedCodeName(const std::string& code)
{
    return code.find('/') == std::string::npos ? code : QDir().absoluteFilePath(qtext(code)).toStdString();
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

std::string textOf(const designcode::Errors& errors)
{
    std::string text;
    for (const designcode::Error& error : errors) {
        text += (text.empty() ? "" : "\nmrl-lc: ") + error.text();
    }
    return text;
}

designcode::DesignCode readDesignCode(const std::string& name)
{
    const auto file = designcode::find(name);
    if (!file) {
        throw Failure{ExitCode::File,
                      name + ": there is no such design code; 'mrl-lc codes' lists those on the path"};
    }
    auto result = designcode::read(*file);
    if (const auto* errors = std::get_if<designcode::Errors>(&result)) {
        throw Failure{ExitCode::File, textOf(*errors)};
    }
    return std::get<designcode::DesignCode>(std::move(result));
}

Json identityJson(const designcode::DesignCode& code)
{
    return {{"name", code.name},     {"file", code.file},     {"label", code.label},
            {"ntcode", code.ntcode}, {"idcode", code.idcode}, {"country", code.country},
            {"year", code.year}};
}

Json findingJson(const CodeFinding& finding)
{
    return {{"line", finding.line}, {"rule", finding.rule},     {"text", finding.text},
            {"file", finding.file}, {"column", finding.column}, {"cure", finding.cure}};
}

Json warningsJson(const designcode::DesignCode& code)
{
    Json list = Json::array();
    for (const CodeFinding& finding : findingsOf(code)) {
        list.push_back(findingJson(finding));
    }
    return list;
}

void printWarnings(const designcode::DesignCode& code)
{
    Output out;
    for (const CodeFinding& finding : findingsOf(code)) {
        out.line("warning: " + textOf(finding));
    }
    out.finish();
}

} // namespace mrl::cli
