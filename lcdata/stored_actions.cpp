#include "lcdata/stored_actions.h"

#include "lcdata/key_walk.h"
#include "lcdata/record_walk.h"

std::vector<LCM_StoredAction> lcm_stored_actions(int db)
{
    std::vector<LCM_StoredAction> actions;
    // One step ahead of the walk of the dialog, so that an action without a name is met too.
    for (LCM_KeyWalk walk(db, LC_KWH_ACTIONS, LC_BLANK_WORD - 1); walk.next();) {
        if (auto action = lcm_stored_action(db, walk.kwl())) {
            actions.push_back(*action);
        }
    }
    return actions;
}

std::optional<LCM_StoredAction> lcm_stored_action(int db, int code)
{
    if (code < LC_BLANK_WORD) {
        return std::nullopt;
    }
    std::optional<LCM_StoredAction> action;
    for (LCM_RecordWalk<tagCDB_LC_ACT> walk(db, LC_KWH_ACTIONS, code); walk.next();) {
        if (walk.record().kind == LC_KIND_ACTION) {
            action = {code, walk.record(), walk.position()};
        }
    }
    return action;
}
