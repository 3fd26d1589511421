// The project's load cases, as the model reads them once.
#include <algorithm>
#include <list>
#include <unordered_map>

#include "host/mrl_cdb.h"
#include "lcdata/key_walk.h"
#include "lcdata/load_case_rules.h"
#include "model/data_class.h"
#include "model/foreign_record.h"

namespace {

/// Replaces old action numbers by codes and asks the design code once for each word: projects have many load
/// cases and few actions.
class ActionWords
{
  public:
    std::int32_t resolved(std::int32_t word)
    {
        const auto [at, isNew] = m_resolved.try_emplace(word, word);
        if (isNew)
            lcm_resolve_action_word(at->second);
        return at->second;
    }

  private:
    std::unordered_map<std::int32_t, std::int32_t> m_resolved;
};

} // namespace

void LCM_DataClass::loadLoadcases()
{
    ActionWords words;
    LCM_ForeignRecord buffer;
    for (LCM_KeyWalk walk(db, LC_KWH_CASES); walk.next();) {
        if (!buffer.read(db, walk.kwl()) || !buffer.isOurs())
            continue;
        LCM_LoadcaseEntry& entry = loadcases.emplace_back();
        entry.number = walk.kwl();
        entry.record = buffer.loadcase();
        entry.record.action = words.resolved(entry.record.action);
    }
}

std::set<int> LCM_DataClass::getUsedLoadcaseNumbers()
{
    if (usedLoadcaseNumbers.empty())
        fillUsedLoadcaseNumbers();
    return usedLoadcaseNumbers;
}

void LCM_DataClass::fillUsedLoadcaseNumbers()
{
    std::list<int> numbers;
    mrl::dbo::getKwls(db, LC_KWH_CASES, 0, 999, &numbers, nullptr);
    usedLoadcaseNumbers = std::set<int>(numbers.begin(), numbers.end());
}

void LCM_DataClass::removeUsedLoadcaseNumber(int number) { usedLoadcaseNumbers.erase(number); }
