// Another program of the same host, on the archive: walks and rules that the shared library keeps to itself.
#include <optional>
#include <set>

#include "database.h"
#include "lcdata/load_cases.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "rules/load_case_numbers.h"

int main()
{
    const int db = openDatabase();
    tagCDB_LC_CTRL record{};
    mrl_lc_init(db, 1, record, false, true);
    mrl_lc_init(db, 3, record, true, true);

    std::set<int> used;
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        used.insert(walk.current().number);
    }
    const bool walked = used == std::set<int>({1, 3}) && lcm_stored_actions(db).size() == 2;
    const bool proposed = lcm_next_number({1, 3}, std::nullopt, used) == 4;
    return walked && proposed ? 0 : 1;
}
