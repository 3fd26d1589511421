#include "cli/project_check.h"

#include "check/project_check.h"
#include "cli/words.h"
#include "hostlib/data/designcode/designcode.h"
#include "rules/action_columns.h"

namespace mrl::cli {

namespace {

Finding worded(const LCM_ProjectFinding& finding)
{
    const bool action = finding.subject == LCM_ProjectFinding::Subject::Action;
    const LCM_ActionFactor* factor = lcm_factor_of_column(finding.column);
    return {action ? "action" : "loadcase", action ? actionName(finding.id) : std::to_string(finding.id),
            factor ? factor->key : "", finding.message.toStdString()};
}

} // namespace

std::vector<Finding> checkProject(int db)
{
    std::vector<Finding> findings;
    if (const designcode::Loaded loaded = designcode::ofDatabase(db); !loaded.code) {
        findings.push_back({"project", "", "", loaded.reason});
    }
    for (const LCM_ProjectFinding& finding : lcm_check_project(db, false)) {
        findings.push_back(worded(finding));
    }
    return findings;
}

} // namespace mrl::cli
