#include "model/superposition_data.h"

#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/key_walk.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/records.h"

namespace {

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

bool lcm_has_superposition_keys(int db)
{
    LCM_KeyWalk walk(db, LC_KWH_ACTIONS);
    return walk.next() && walk.kwl() >= 1 && walk.kwl() < LC_BLANK_WORD;
}

bool lcm_has_superposition_content(int db)
{
    for (LCM_KeyWalk walk(db, LC_KWH_ACTIONS); walk.next() && walk.kwl() < LC_BLANK_WORD;) {
        if (hasSuperpositionData(db, walk.kwl())) {
            return true;
        }
    }
    return false;
}
