#include "lcdata/stored_load_cases.h"

#include <array>
#include <cstring>

#include "lcdata/guards.h"

namespace {

/// Room for the longest record of the group, those of other modules included: a host may refuse a shorter
/// buffer as if there were no record.
constexpr int LONGEST_RECORD = 2060;

bool readFirst(int db, int number, tagCDB_LC_CTRL& record)
{
    const LCM_KeyGuard key(db, LC_KWH_CASES, number);
    std::array<unsigned char, LONGEST_RECORD> buffer;
    std::memset(buffer.data(), 0, sizeof record); // the rest is never looked at
    int length = LONGEST_RECORD;
    const int result = mrl_cdb_get(db, LC_KWH_CASES, number, buffer.data(), &length, 0);
    if (result == CD_END || result == CD_NONE) {
        return false;
    }
    std::memcpy(&record, buffer.data(), sizeof record);
    return true;
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
