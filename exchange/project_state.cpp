#include "exchange/project_state.h"

#include "host/mrl_dlib.h"
#include "lcdata/actions.h"
#include "lcdata/default_actions.h"
#include "lcdata/guards.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/action_code.h"
#include "rules/design_code_label.h"
#include "rules/project_setup.h"

namespace mrl::exchange {

namespace {

void readDesignCode(int db, ProjectState& state)
{
    const LCM_CurrentDatabaseGuard guard;
    MRL_LC_Action_Info info;
    info.init(db);
    mrl_dlib_lcact_info(0, &state.limits);
    state.identity = lcm_active_design_code();
    state.setup.factorColumns = lcm_factor_columns(info, lcm_design_code_file(db).value_or(QString()));
    lcm_read_system(db, state.setup);
    lcm_enumerate_default_actions([&](const tagCDB_LC_ACT& action) {
        state.defaultActions.emplace(lcm_action_code(action), action);
        state.defaultOrder.push_back(lcm_action_code(action));
        return false;
    });
}

} // namespace

ProjectState stateOf(int db)
{
    ProjectState state;
    readDesignCode(db, state);
    for (const LCM_StoredAction& action : lcm_stored_actions(db)) {
        state.actions.emplace(action.code, action);
    }
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        const LCM_StoredLoadCase& loadCase = walk.current();
        if (loadCase.isOwn()) {
            state.loadCases.emplace_hint(state.loadCases.end(), loadCase.number, loadCase.record);
        } else {
            state.foreignNumbers.insert(loadCase.number);
        }
    }
    return state;
}

} // namespace mrl::exchange
