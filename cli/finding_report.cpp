#include "cli/finding_report.h"

#include "check/finding_text.h"
#include "cli/output.h"
#include "cli/words.h"
#include "lcdata/values/factors.h"

namespace mrl::cli {

namespace {

const char* subjectOf(const LCM_Finding& finding)
{
    switch (finding.subject) {
    case LCM_Subject::Project:
        return "project";
    case LCM_Subject::DesignCode:
        return "designcode";
    case LCM_Subject::Action:
        return "action";
    case LCM_Subject::LoadCase:
        return "loadcase";
    case LCM_Subject::Key:
        break;
    }
    return "key";
}

/// Name of the action, number of the load case, "KWH/KWL" of the key; empty for the whole project.
std::string nameOf(const LCM_Finding& finding)
{
    switch (finding.subject) {
    case LCM_Subject::Action:
        return actionName(finding.id);
    case LCM_Subject::LoadCase:
        return std::to_string(finding.id);
    case LCM_Subject::Key:
        return std::to_string(finding.group) + "/" + std::to_string(finding.id);
    default:
        return {};
    }
}

/// The factor that a finding is about, such as "Gamf"; empty for the whole.
std::string fieldOf(const LCM_Finding& finding)
{
    const LCM_Factor* factor = finding.subject == LCM_Subject::LoadCase
                                   ? lcm_factor_of_load_case_column(finding.column)
                                   : lcm_factor_of_action_column(finding.column);
    return factor ? factor->key : "";
}

std::string lineOf(const LCM_Finding& finding)
{
    std::string line = subjectOf(finding);
    for (const std::string& part : {nameOf(finding), fieldOf(finding)}) {
        line += part.empty() ? "" : " " + part;
    }
    return line + ": " + lcm_finding_text(finding).toStdString();
}

Json jsonOf(const LCM_Finding& finding)
{
    const auto orNull = [](const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); };
    return {{"subject", subjectOf(finding)},
            {"name", orNull(nameOf(finding))},
            {"field", orNull(fieldOf(finding))},
            {"rule", lcm_rule_id(finding.rule)},
            {"message", lcm_finding_english(finding).toStdString()}};
}

} // namespace

ExitCode report(const LCM_Findings& findings, const std::string& file, bool json)
{
    Output out;
    if (json) {
        Json list = Json::array();
        for (const LCM_Finding& finding : findings) {
            list.push_back(jsonOf(finding));
        }
        out.line(jsonText({{"file", file}, {"findings", list}}, 2));
    } else {
        for (const LCM_Finding& finding : findings) {
            out.line(lineOf(finding));
        }
        const std::size_t count = findings.size();
        out.line(count == 0 ? "No findings."
                            : std::to_string(count) + (count == 1 ? " finding." : " findings."));
    }
    out.finish();
    return findings.empty() ? ExitCode::Done : ExitCode::Refused;
}

} // namespace mrl::cli
