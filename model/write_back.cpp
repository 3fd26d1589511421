#include "model/write_back.h"

#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/key_walk.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/gama.h"

namespace {

template <class Record>
void put(int db, int kwh, int kwl, const Record& record)
{
    const LCM_KeyGuard key(db, kwh, kwl);
    const int length = sizeof record;
    mrl_cdb_put(db, kwh, kwl, &record, &length, 0);
}

void putAction(int db, LCM_SubAction& entry)
{
    entry.record.gama = lcm_gama_to_store(entry.record.gama);
    put(db, LC_KWH_ACTIONS, entry.code, entry.record);
}

void deleteActions(int db)
{
    for (LCM_KeyWalk walk = lcm_walk_actions(db); walk.next();) {
        if (lcm_is_reserved_action(walk.kwl())) {
            continue;
        }
        const LCM_KeyGuard key(db, LC_KWH_ACTIONS, walk.kwl());
        mrl_cdb_del(db, LC_KWH_ACTIONS, walk.kwl());
    }
}

void deleteOwnLoadCases(int db)
{
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        if (walk.current().isOwn()) {
            mrl_cdb_del(db, LC_KWH_CASES, walk.current().number);
        }
    }
}

} // namespace

void lcm_replace_actions(int db, const std::vector<LCM_ActionEntry*>& tree)
{
    deleteActions(db);
    // The tests differ on purpose: a placeholder isn't written, but a child is unless it is free.
    for (LCM_ActionEntry* parent : tree) {
        if (parent->state == LCM_STATE_ACTIVE) {
            putAction(db, *parent);
        }
        for (LCM_SubAction* child : parent->subActions) {
            if (child->state != LCM_STATE_FREE) {
                putAction(db, *child);
            }
        }
    }
}

void lcm_replace_load_cases(int db, const std::vector<LCM_LoadcaseEntry>& entries)
{
    deleteOwnLoadCases(db);
    for (const LCM_LoadcaseEntry& entry : entries) {
        put(db, LC_KWH_CASES, entry.number, entry.record);
    }
}
