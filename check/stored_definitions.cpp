#include "check/stored_definitions.h"

#include "lcdata/default_actions.h"
#include "lcdata/record_walk.h"
#include "lcdata/values/action_code.h"

std::optional<LCM_CheckedLoadCase> lcm_checked_load_case(int db, int number)
{
    // One walk for both, since a project may have very many load cases.
    LCM_RecordWalk<tagCDB_LC_CTRL> walk(db, LC_KWH_CASES, number);
    if (!walk.next() || !lcm_is_own_kind(walk.record().kind)) {
        return std::nullopt;
    }
    LCM_CheckedLoadCase loadCase{{number, walk.record()}, std::nullopt};
    while (!loadCase.foreignKind && walk.next()) {
        if (!lcm_is_own_kind(walk.record().kind)) {
            loadCase.foreignKind = walk.record().kind;
        }
    }
    return loadCase;
}

std::set<int> lcm_design_code_keys()
{
    std::set<int> keys;
    lcm_enumerate_default_actions([&keys](const tagCDB_LC_ACT& action) {
        tagCDB_LC_ACT parent = action;
        parent.suffix = 0;
        keys.insert({lcm_action_code(action), lcm_action_code(parent)});
        return false;
    });
    return keys;
}
