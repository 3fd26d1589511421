#include "model/used_numbers.h"

#include "host/mrl_cdb.h"
#include "lcdata/values/keys.h"

void LCM_UsedNumbers::read() { mrl::dbo::getKwls(m_db, LC_KWH_CASES, 0, 999, &m_read, nullptr); }

std::set<int>& LCM_UsedNumbers::numbers()
{
    if (!m_read.empty()) {
        m_numbers = std::set<int>(m_read.begin(), m_read.end());
    }
    m_read.clear();
    return m_numbers;
}

const std::set<int>& LCM_UsedNumbers::known()
{
    if (numbers().empty()) {
        read();
    }
    return numbers();
}
