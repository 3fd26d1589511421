#include "lcdata/default_actions.h"

#include <vector>

#include "lcdata/actions.h"

bool lcm_store_default_actions(int db)
{
    std::vector<int> codes;
    mrl_lc_get_default_action_list(db, codes);
    bool all = true;
    for (const int code : codes) {
        all = mrl_lc_create_default_action(db, code) && all;
    }
    return all;
}
