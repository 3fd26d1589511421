#include "findings/project_findings.h"

#include "check/project_check.h"
#include "findings/code_findings.h"
#include "hostlib/data/designcode/kept.h"

namespace mrl::findings {

namespace {

LCM_Finding aboutCode(LCM_Rule rule, const std::string& text)
{
    return {rule, LCM_Subject::Project, 0, 0, {QString::fromStdString(text)}};
}

} // namespace

LCM_Findings ofProject(int db, bool globalDirections)
{
    LCM_Findings found;
    if (const designcode::KeptReport kept = designcode::keptReport(db); !kept.text.empty()) {
        found.push_back(aboutCode(LCM_Rule::DesignCodeNotAsKept, kept.text));
    }
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    if (!loaded.code) {
        found.push_back(aboutCode(LCM_Rule::DesignCodeUnreadable, loaded.reason));
    } else {
        for (const CodeFinding& finding : findingsOf(*loaded.code)) {
            found.push_back(aboutCode(LCM_Rule::DesignCodeTrap, textOf(finding)));
        }
    }
    const LCM_Findings ofRows = lcm_check_project(db, globalDirections);
    found.insert(found.end(), ofRows.begin(), ofRows.end());
    return found;
}

} // namespace mrl::findings
