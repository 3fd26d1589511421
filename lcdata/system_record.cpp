#include "lcdata/system_record.h"

#include <cstdint>

#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/system_words.h"

namespace {

struct SystemRecord
{
    std::int32_t rawClass;
    std::int32_t gravity;
    unsigned char others[LC_SYSTEM_BYTES - 8]; ///< not ours
};
static_assert(sizeof(SystemRecord) == LC_SYSTEM_BYTES);

bool readSystem(int db, SystemRecord& record)
{
    const LCM_KeyGuard key(db, LC_KWH_SYSTEM, 0);
    int length = sizeof record;
    return mrl_cdb_get(db, LC_KWH_SYSTEM, 0, &record, &length, 0) < CD_END;
}

} // namespace

int lcm_system_class(int db)
{
    SystemRecord record{};
    return readSystem(db, record) ? lcm_class_of_raw_system(record.rawClass) : LC_SYSTEM_SPATIAL;
}

int lcm_gravity_direction(int db)
{
    SystemRecord record{};
    return readSystem(db, record) ? record.gravity : 1;
}

bool lcm_write_system(int db, int rawClass, int gravity)
{
    const SystemRecord record{rawClass, gravity, {}};
    const LCM_KeyGuard key(db, LC_KWH_SYSTEM, 0);
    const int length = sizeof record;
    return mrl_cdb_put(db, LC_KWH_SYSTEM, 0, &record, &length, 0) < CD_END;
}
