#include "lcdata/actions.h"

#include <algorithm>

#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "lcdata/default_actions.h"
#include "lcdata/guards.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/partition.h"

namespace {

/// Codes start here; smaller values are old action numbers.
constexpr int FIRST_CODE = 1000;

bool readAction(int db, int code, tagCDB_LC_ACT& action)
{
    int length = sizeof action;
    // Stricter than everywhere else: a record that had to be cut is not taken for an action.
    return mrl_cdb_get(db, LC_KWH_ACTIONS, code, &action, &length, 0) <= CD_OK;
}

void writeAction(int db, int code, const tagCDB_LC_ACT& action)
{
    const LCM_KeyGuard key(db, LC_KWH_ACTIONS, code);
    const int length = sizeof action;
    mrl_cdb_put(db, LC_KWH_ACTIONS, code, &action, &length, 0);
}

bool lookUp(int which, tagCDB_LC_ACT& action) { return mrl_dlib_lcact_info(which, &action) >= 0; }

/// The key that an old action number stands for. @return false when the design code knows not even the
/// fall-back
bool resolveOldNumber(int number, tagCDB_LC_ACT& action, int& code)
{
    const int fallBack = number >= 2 && number <= 6 ? LC_OLD_DEAD_ACTION : LC_OLD_LIVE_ACTION;
    if (!lookUp(number, action) && !lookUp(fallBack, action)) {
        return false;
    }
    code = lcm_action_code(action);
    return true;
}

} // namespace

bool mrl_lc_code_has_actions(int db)
{
    const LCM_CurrentDatabaseGuard current;
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT marks{};
    if (!lookUp(0, marks)) {
        return false;
    }
    return std::any_of(LCM_FACTORS.begin(), LCM_FACTORS.end(), [&](const LCM_Factor& factor) {
        return factor.kind != LCM_FactorKind::Accidental && marks.*factor.actionField > 0.0f;
    });
}

bool mrl_lc_has_action(int db, int code)
{
    tagCDB_LC_ACT action{};
    return readAction(db, code, action);
}

bool mrl_lc_getAction(int db, int code, tagCDB_LC_ACT& action, bool create)
{
    if (code == 0) {
        action = {};
        return true;
    }
    const LCM_CurrentDatabaseGuard current;
    mrl_dlib_ini_switch(db);
    int key = code;
    if (code < FIRST_CODE && !resolveOldNumber(code, action, key)) {
        return false;
    }
    if (readAction(db, key, action)) {
        return true;
    }

    const LCM_KeyGuard opened(db, LC_KWH_ACTIONS, key);
    // The caller's own number and not the one that it fell back to: an action that the design code doesn't
    // know is never made out of another one.
    if (!create || !lookUp(code, action)) {
        return false;
    }
    writeAction(db, key, action);
    return true;
}

int mrl_lc_get_default_action(int db, bool dead)
{
    tagCDB_LC_ACT action{};
    return mrl_lc_get_default_action(db, dead, action);
}

int mrl_lc_get_default_action(int db, bool dead, tagCDB_LC_ACT& action)
{
    const LCM_CurrentDatabaseGuard current;
    mrl_dlib_ini_switch(db);
    const int family = dead ? LC_CATEGORY_PERMANENT : LC_CATEGORY_VARIABLE;
    const bool found = lcm_enumerate_default_actions([&](const tagCDB_LC_ACT& candidate) {
        action = candidate;
        return lcm_type_family(candidate) == family;
    });
    if (!found) {
        action = {};
        lookUp(dead ? LC_OLD_DEAD_ACTION : LC_OLD_LIVE_ACTION, action);
    }
    return lcm_action_code(action);
}

bool mrl_lc_get_default_action_list(int db, std::vector<int>& out)
{
    const LCM_CurrentDatabaseGuard current;
    mrl_dlib_ini_switch(db);
    lcm_enumerate_default_actions([&](const tagCDB_LC_ACT& action) {
        out.push_back(lcm_action_code(action));
        return false;
    });
    return true;
}

bool mrl_lc_create_default_action(int db, int code)
{
    const LCM_CurrentDatabaseGuard current;
    mrl_dlib_ini_switch(db);
    return lcm_enumerate_default_actions([&](const tagCDB_LC_ACT& action) {
        if (lcm_action_code(action) != code) {
            return false;
        }
        writeAction(db, code, action);
        return true;
    });
}

bool mrl_lc_create_default_action(int db, const QString& name, int* code)
{
    const int wanted = lcm_normalise_code(name);
    if (code) {
        *code = wanted;
    }
    return mrl_lc_create_default_action(db, wanted);
}
