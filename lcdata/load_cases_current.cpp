#include <cstdint>

#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/keys.h"

namespace {

struct CurrentRecord
{
    std::int32_t kind; ///< 0; a record of another kind counts as absent
    std::int32_t number;
    std::int32_t reserved; ///< carried along
};
static_assert(sizeof(CurrentRecord) == LC_CURRENT_BYTES);

bool readCurrent(int db, CurrentRecord& record)
{
    const LCM_KeyGuard key(db, LC_KWH_CURRENT, LC_KWL_CURRENT);
    int length = sizeof record;
    return mrl_cdb_get(db, LC_KWH_CURRENT, LC_KWL_CURRENT, &record, &length, 0) < CD_END && record.kind == 0;
}

} // namespace

int mrl_lc_current(int db)
{
    CurrentRecord record{};
    return readCurrent(db, record) ? record.number : 0;
}

void mrl_lc_set_current(int db, int lc)
{
    CurrentRecord record{};
    const bool present = readCurrent(db, record);
    if (present && record.number == lc) {
        return;
    }
    if (!present) {
        record = {};
    }
    record.number = lc;
    const LCM_KeyGuard key(db, LC_KWH_CURRENT, LC_KWL_CURRENT);
    const int length = sizeof record;
    // -1 overwrites the record just read and leaves others of this key alone.
    mrl_cdb_put(db, LC_KWH_CURRENT, LC_KWL_CURRENT, &record, &length, present ? -1 : 0);
}
