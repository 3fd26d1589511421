// Load cases and their actions: creating, binding, and the kind of loading.
#include <algorithm>

#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "lcdata/actions.h"
#include "lcdata/guards.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"

namespace {

/// 0 when the design code doesn't know the action.
int typeFamily(int db, const tagCDB_LC_CTRL& rec)
{
    const LCM_CurrentDatabaseGuard current;
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT action{};
    mrl_dlib_lcact_info(rec.action, &action);
    return lcm_type_family(action);
}

bool isOfFamily(int db, int lc, int family)
{
    tagCDB_LC_CTRL rec;
    return mrl_lc_get(db, lc, rec) && typeFamily(db, rec) == family;
}

/// The record of a new load case. @return false when its action isn't in the project or the number is taken
bool newLoadCase(int db, int lc, int code, tagCDB_LC_CTRL& rec)
{
    if (!mrl_lc_has_action(db, code) || mrl_lc_exists(db, lc)) {
        return false;
    }
    tagCDB_LC_ACT action{};
    if (!mrl_lc_getAction(db, code, action, false)) {
        return false;
    }
    lcm_load_case_from_action(action, rec, lcm_field_word(action.name));
    return true;
}

} // namespace

bool mrl_lc_init(int db, int lc, tagCDB_LC_CTRL& rec, bool dead, bool makeCurrent)
{
    if (mrl_lc_get(db, lc, rec)) {
        return false;
    }
    rec = {};
    mrl_lc_set_action(db, rec, mrl_lc_get_default_action(db, dead), true);
    rec.factor = 1.0f;
    mrl_lc_put(db, lc, rec);
    if (makeCurrent) {
        mrl_lc_set_current(db, lc);
    }
    return true;
}

void mrl_lc_init_action(int db, tagCDB_LC_CTRL& rec, bool create)
{
    tagCDB_LC_ACT action{};
    mrl_lc_getAction(db, rec.action, action, create);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        rec.*factor.loadCaseField = LC_UNDEFINED;
    }
    std::copy(std::begin(action.title), std::end(action.title), std::begin(rec.title));
}

void mrl_lc_set_action(int db, tagCDB_LC_CTRL& rec, int code, bool create)
{
    rec.action = mrl_dlib_lftype_enum(code);
    mrl_cdb_use(db, 0);
    tagCDB_LC_ACT action{};
    if (!mrl_lc_getAction(db, rec.action, action, create)) {
        rec.action = LC_ACTION_NONE;
    }
    mrl_lc_init_action(db, rec, create);
}

bool mrl_lc_create_load_case(int db, int lc, int code, const QString& title)
{
    const LCM_CurrentDatabaseGuard current;
    mrl_dlib_ini_switch(db);
    tagCDB_LC_CTRL rec{};
    if (code == LC_ACTION_IMPERFECTION) {
        rec.action = LC_ACTION_IMPERFECTION;
    } else if (!newLoadCase(db, lc, code, rec)) {
        return false;
    }
    lcm_title_pack(title, rec.title, LC_TITLE_WORDS);
    mrl_lc_put(db, lc, rec);
    return true;
}

bool mrl_lc_create_load_case(int db, int lc, const QString& action, const QString& title)
{
    return mrl_lc_create_load_case(db, lc, lcm_normalise_code(action), title);
}

bool mrl_lc_isdeadtype(int db, const tagCDB_LC_CTRL& rec)
{
    return typeFamily(db, rec) == LC_CATEGORY_PERMANENT;
}
bool mrl_lc_isdeadtype(int db, int lc) { return isOfFamily(db, lc, LC_CATEGORY_PERMANENT); }

bool mrl_lc_isprestresstype(int db, const tagCDB_LC_CTRL& rec)
{
    return typeFamily(db, rec) == LC_CATEGORY_PRESTRESS;
}
bool mrl_lc_isprestresstype(int db, int lc) { return isOfFamily(db, lc, LC_CATEGORY_PRESTRESS); }

bool mrl_lc_islivetype(int db, const tagCDB_LC_CTRL& rec)
{
    const int family = typeFamily(db, rec);
    return family != LC_CATEGORY_PERMANENT && family != LC_CATEGORY_PRESTRESS;
}

bool mrl_lc_islivetype(int db, int lc)
{
    return !mrl_lc_isdeadtype(db, lc) && !mrl_lc_isprestresstype(db, lc);
}
