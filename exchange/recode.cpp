#include "exchange/recode.h"

#include <array>
#include <cstring>

#include "exchange/raw_records.h"
#include "lcdata/system_record.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::exchange {

namespace {

using SystemWords = std::array<std::int32_t, 2>; ///< class and gravity

std::string applyActions(int db, const LCM_RecodePlan& plan)
{
    for (const LCM_RecodeRow& row : plan.rows) {
        const auto stored = row.isChanged() ? lcm_stored_action(db, row.oldCode) : std::nullopt;
        if (stored && !overwriteRecord(db, LC_KWH_ACTIONS, row.oldCode, stored->position, &row.after,
                                       sizeof row.after)) {
            return "action " + lcm_code_name(row.oldCode).toStdString();
        }
    }
    return {};
}

std::string applyLoadCases(int db, const LCM_RecodePlan& plan)
{
    for (const LCM_RecodeLoadCase& loadCase : plan.loadCases) {
        if (!overwriteRecord(db, LC_KWH_CASES, loadCase.number, 0, &loadCase.after, sizeof loadCase.after)) {
            return "load case " + std::to_string(loadCase.number);
        }
    }
    return {};
}

std::string applySystem(int db, const LCM_RecodePlan& plan)
{
    if (!plan.changesSystem) {
        return {};
    }
    const SystemWords words{plan.rawSystem, plan.gravity};
    const bool isWritten = readRecords(db, LC_KWH_SYSTEM, 0).empty()
                               ? lcm_write_system(db, plan.rawSystem, plan.gravity)
                               : overwriteRecord(db, LC_KWH_SYSTEM, 0, 0, words.data(), sizeof words);
    return isWritten ? std::string() : "the system";
}

} // namespace

LCM_RecodeProject recodeProjectOf(int db)
{
    LCM_RecodeProject project;
    project.actions = lcm_stored_actions(db);
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        if (walk.current().isOwn()) {
            project.loadCases.push_back(walk.current());
        }
    }
    const std::vector<std::string> system = readRecords(db, LC_KWH_SYSTEM, 0);
    SystemWords words{project.rawSystem, project.gravity};
    if (!system.empty() && system.front().size() >= sizeof words) {
        std::memcpy(words.data(), system.front().data(), sizeof words);
    }
    project.rawSystem = words[0];
    project.gravity = words[1];
    return project;
}

std::string applyRecode(int db, const LCM_RecodePlan& plan)
{
    for (const auto apply : {applyActions, applyLoadCases, applySystem}) {
        if (std::string failed = apply(db, plan); !failed.empty()) {
            return failed;
        }
    }
    return {};
}

} // namespace mrl::exchange
