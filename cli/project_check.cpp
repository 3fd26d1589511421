#include "cli/project_check.h"

#include "cli/words.h"
#include "hostlib/data/designcode/designcode.h"
#include "model/check/project_check.h"

namespace mrl::cli {

namespace {

Finding worded(const LCM_ProjectFinding& finding)
{
    const bool action = finding.subject == LCM_ProjectFinding::Subject::Action;
    return {action ? "action" : "loadcase", action ? actionName(finding.id) : std::to_string(finding.id),
            lcm_factor_key(finding.column).toStdString(), finding.message.toStdString()};
}

} // namespace

std::vector<Finding> checkProject(int db)
{
    std::vector<Finding> findings;
    if (const designcode::Loaded loaded = designcode::ofDatabase(db); !loaded.code)
        findings.push_back({"project", "", "", loaded.reason});
    for (const LCM_ProjectFinding& finding : lcm_check_project(db, false))
        findings.push_back(worded(finding));
    return findings;
}

} // namespace mrl::cli
