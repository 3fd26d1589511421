#include "lcdata/stored_load_cases.h"

#include <array>
#include <cstring>

#include "lcdata/guards.h"

namespace {

/// Records of other modules may be longer than a load case.
constexpr int BUFFER_BYTES = 2060;

bool readFirst(int db, int number, tagCDB_LC_CTRL& record)
{
    std::array<char, BUFFER_BYTES> buffer;
    const LCM_KeyGuard key(db, LC_KWH_CASES, number);
    int length = BUFFER_BYTES;
    if (mrl_cdb_get(db, LC_KWH_CASES, number, buffer.data(), &length, 0) >= CD_END)
        return false;
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
        if (readFirst(m_db, m_current.number, m_current.record))
            return true;
    }
    return false;
}
