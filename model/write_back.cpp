// How the model replaces the project's actions and load cases. Other modules' keys in the same groups stay.
#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/key_walk.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/gama.h"
#include "model/action_tree.h"
#include "model/working_model.h"

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

/// Whether a record behind the one read last on a key is of kind 2 with a second word above 0.
bool hasLaterSuperpositionRecord(int db, int kwl)
{
    for (;;) {
        tagCDB_LC_ACT record{};
        int length = sizeof record;
        if (mrl_cdb_get(db, LC_KWH_ACTIONS, kwl, &record, &length, 1) >= CD_END) {
            return false;
        }
        if (record.kind == 2 && lcm_field_word(record.name) > 0) {
            return true;
        }
    }
}

/// Whether a key of the superposition module holds data. Leaves the key open when its first record tells so.
bool hasSuperpositionData(int db, int kwl)
{
    tagCDB_LC_ACT record{};
    int length = sizeof record;
    const int result = mrl_cdb_get(db, LC_KWH_ACTIONS, kwl, &record, &length, 0);
    if (result < CD_END && record.kind > 0) {
        return true;
    }
    const LCM_KeyGuard key(db, LC_KWH_ACTIONS, kwl);
    return result < CD_END && hasLaterSuperpositionRecord(db, kwl);
}

} // namespace

void LCM_DataClass::storeAction(int code, const tagCDB_LC_ACT& record, bool mayCreate)
{
    const LCM_ActionTargets targets = lcm_action_targets(actions, code);
    targets.store(record);
    if (targets.empty() && mayCreate) {
        actions.push_back(newEntry(record, LCM_STATE_ACTIVE, false));
    }
}

void LCM_DataClass::storeActions(const std::vector<LCM_CodedAction>& rows, bool mayCreate)
{
    LCM_ActionIndex index(actions);
    for (const LCM_CodedAction& row : rows) {
        const LCM_ActionTargets& targets = index.at(row.code);
        targets.store(row.record);
        if (!targets.empty() || !mayCreate) {
            continue;
        }
        actions.push_back(newEntry(row.record, LCM_STATE_ACTIVE, false));
        index.add(actions.back());
    }
}

void LCM_DataClass::writeActions(int database)
{
    deleteActions(database);
    // The tests differ on purpose: a placeholder isn't written, but a child is unless it is free.
    for (LCM_ActionEntry* parent : actions) {
        if (parent->state == LCM_STATE_ACTIVE) {
            putAction(database, *parent);
        }
        for (LCM_SubAction* child : parent->subActions) {
            if (child->state != LCM_STATE_FREE) {
                putAction(database, *child);
            }
        }
    }
}

void LCM_DataClass::writeLoadcases(int database)
{
    deleteOwnLoadCases(database);
    for (const LCM_LoadcaseEntry& entry : loadcases) {
        put(database, LC_KWH_CASES, entry.number, entry.record);
    }
}

bool LCM_DataClass::hasSuperpositionKeys() const
{
    LCM_KeyWalk walk(db, LC_KWH_ACTIONS);
    return walk.next() && walk.kwl() >= 1 && walk.kwl() < LC_BLANK_WORD;
}

bool LCM_DataClass::hasSuperpositionContent() const
{
    for (LCM_KeyWalk walk(db, LC_KWH_ACTIONS); walk.next() && walk.kwl() < LC_BLANK_WORD;) {
        if (hasSuperpositionData(db, walk.kwl())) {
            return true;
        }
    }
    return false;
}
