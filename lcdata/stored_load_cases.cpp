#include "lcdata/stored_load_cases.h"

#include "lcdata/guards.h"

namespace {

bool readFirst(int db, int number, tagCDB_LC_CTRL& record)
{
    const LCM_KeyGuard key(db, LC_KWH_CASES, number);
    // Records of other modules may be longer; their beginning tells whose they are.
    int length = sizeof record;
    return mrl_cdb_get(db, LC_KWH_CASES, number, &record, &length, 0) < CD_END;
}

} // namespace

std::optional<LCM_StoredLoadCase> lcm_stored_load_case(int db, int number)
{
    LCM_StoredLoadCase loadCase;
    loadCase.number = number;
    return readFirst(db, number, loadCase.record) ? std::optional(loadCase) : std::nullopt;
}

bool LCM_LoadCaseWalk::next()
{
    while (m_keys.next()) {
        m_current.number = m_keys.kwl();
        if (readFirst(m_db, m_current.number, m_current.record)) {
            return true;
        }
    }
    return false;
}
