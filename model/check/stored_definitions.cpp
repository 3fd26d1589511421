#include "model/check/stored_definitions.h"

#include "host/mrl_dlib.h"
#include "lcdata/action_code.h"
#include "lcdata/actions.h"
#include "lcdata/guards.h"
#include "lcdata/key_walk.h"

namespace {

template <typename Record>
bool readRecord(int db, int kwh, int kwl, int position, Record& record)
{
    int length = sizeof record;
    return mrl_cdb_get(db, kwh, kwl, &record, &length, position) < CD_END;
}

} // namespace

std::map<int, tagCDB_LC_ACT> lcm_stored_actions(int db)
{
    std::map<int, tagCDB_LC_ACT> actions;
    // One step ahead of the walk of the dialog, so that an action without a name is met too.
    LCM_KeyWalk walk(db, LC_KWH_ACTIONS, LC_BLANK_WORD - 1);
    while (walk.next()) {
        const LCM_KeyGuard guard(db, LC_KWH_ACTIONS, walk.kwl());
        tagCDB_LC_ACT record{};
        for (int position = 0; readRecord(db, LC_KWH_ACTIONS, walk.kwl(), position, record); position = 1)
            if (record.kind == 1)
                actions[walk.kwl()] = record;
    }
    return actions;
}

std::optional<LCM_StoredLoadCase> lcm_stored_load_case(int db, int number)
{
    const LCM_KeyGuard guard(db, LC_KWH_CASES, number);
    LCM_StoredLoadCase loadCase;
    loadCase.number = number;
    const auto own = [](int kind) { return kind == 0 || kind == 1; };
    if (!readRecord(db, LC_KWH_CASES, number, 0, loadCase.record) || !own(loadCase.record.kind))
        return std::nullopt;
    int kind = 0;
    while (!loadCase.foreignKind && readRecord(db, LC_KWH_CASES, number, 1, kind))
        if (!own(kind))
            loadCase.foreignKind = kind;
    return loadCase;
}

std::set<int> lcm_design_code_keys()
{
    std::set<int> keys;
    tagCDB_LC_ACT action{};
    for (int which = -1; which >= -999 && mrl_dlib_lcact_info(which, &action) >= 0; --which) {
        keys.insert(lcm_action_code(action));
        action.suffix = 0;
        keys.insert(lcm_action_code(action));
    }
    return keys;
}
