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

void LCM_UsedNumbers::remove(int number)
{
    if (numbers().erase(number) != 0) {
        m_removed.numbers.push_back(number);
        m_removed.wereLast = m_numbers.empty();
    }
}

void LCM_UsedNumbers::restore(const LCM_RemovedNumbers& removed)
{
    std::set<int>& known = numbers();
    if (removed.wereLast) {
        known.clear();
    }
    known.insert(removed.numbers.begin(), removed.numbers.end());
}

const std::set<int>& LCM_UsedNumbers::known()
{
    if (numbers().empty()) {
        read();
    }
    return numbers();
}
