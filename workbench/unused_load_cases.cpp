#include "workbench/unused_load_cases.h"

#include <limits>
#include <set>

#include "hostlib/data/cdb/project.h"
#include "lcdata/load_cases.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"

namespace mrl::workbench {

namespace {

/// The elements under which any other group than that of the load cases holds a record.
std::set<int> numbersOfOtherGroups(int db)
{
    std::set<int> numbers;
    int kwh = std::numeric_limits<int>::min();
    int kwl = std::numeric_limits<int>::min();
    while (mrl_cdb_kenq_ex(db, &kwh, &kwl, +1) == 0) {
        if (kwh != LC_KWH_CASES) {
            numbers.insert(kwl);
        }
    }
    return numbers;
}

bool isWithoutEffect(const tagCDB_LC_CTRL& record)
{
    return record.dlx == 0.0f && record.dly == 0.0f && record.dlz == 0.0f &&
           record.action != LC_ACTION_IMPERFECTION;
}

} // namespace

std::vector<UnusedLoadCase> unusedLoadCases(int db)
{
    const std::set<int> used = numbersOfOtherGroups(db);
    std::vector<UnusedLoadCase> unused;
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        const LCM_StoredLoadCase& loadCase = walk.current();
        if (loadCase.isOwn() && isWithoutEffect(loadCase.record) && used.count(loadCase.number) == 0) {
            unused.push_back({loadCase.number, lcm_title_text(loadCase.record.title)});
        }
    }
    return unused;
}

bool removeLoadCases(int db, const std::vector<UnusedLoadCase>& loadCases)
{
    cdb::Transaction transaction(db);
    for (const UnusedLoadCase& loadCase : loadCases) {
        if (!mrl_lc_remove(db, loadCase.number)) {
            return false; // the transaction rolls back
        }
    }
    return static_cast<bool>(transaction.commit());
}

} // namespace mrl::workbench
