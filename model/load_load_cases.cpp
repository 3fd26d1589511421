// The project's load cases, as the model reads them once.
#include <algorithm>
#include <list>

#include "host/mrl_cdb.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/stored_load_cases.h"
#include "model/working_model.h"

void LCM_DataClass::loadLoadCases()
{
    LCM_ActionWords words;
    loadcases.reserve(readNumbers.size());
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        if (!walk.current().isOwn()) {
            continue;
        }
        LCM_LoadcaseEntry& entry = loadcases.emplace_back();
        entry.number = walk.current().number;
        entry.record = walk.current().record;
        entry.record.action = words.resolved(entry.record.action);
    }
}

void LCM_DataClass::readLoadCaseNumbers()
{
    mrl::dbo::getKwls(db, LC_KWH_CASES, 0, 999, &readNumbers, nullptr);
}

std::set<int>& LCM_DataClass::usedNumbers()
{
    if (!readNumbers.empty()) {
        usedLoadcaseNumbers = std::set<int>(readNumbers.begin(), readNumbers.end());
    }
    readNumbers.clear();
    return usedLoadcaseNumbers;
}

std::set<int> LCM_DataClass::getUsedLoadcaseNumbers() { return knownLoadCaseNumbers(); }

const std::set<int>& LCM_DataClass::knownLoadCaseNumbers()
{
    if (usedNumbers().empty()) {
        readLoadCaseNumbers();
    }
    return usedNumbers();
}

void LCM_DataClass::removeUsedLoadcaseNumber(int number) { usedNumbers().erase(number); }
