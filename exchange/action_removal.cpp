#include "exchange/action_removal.h"

#include <vector>

#include "exchange/raw_records.h"
#include "host/mrl_cdb.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/keys.h"

namespace mrl::exchange {

namespace {

constexpr std::size_t NAMED_USERS = 5; // of the load cases that keep an action

/// The load cases of an action, also those that name it by its old number.
std::vector<int> usersOf(int db, int code)
{
    std::vector<int> users;
    LCM_ActionWords words;
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        if (walk.current().isOwn() && words.resolved(walk.current().record.action) == code) {
            users.push_back(walk.current().number);
        }
    }
    return users;
}

} // namespace

std::string removeAction(int db, const LCM_StoredAction& action, const std::string& name)
{
    if (const std::vector<int> users = usersOf(db, action.code); !users.empty()) {
        std::string numbers;
        for (std::size_t i = 0; i < users.size() && i < NAMED_USERS; ++i) {
            numbers += (i == 0 ? "" : ", ") + std::to_string(users[i]);
        }
        return "load cases use the action " + name + ": " + numbers +
               (users.size() > NAMED_USERS ? ", ..." : "");
    }
    if (readRecords(db, LC_KWH_ACTIONS, action.code).size() > 1) {
        return "other records stand under the key of the action " + name + "; 'mrl-lc del' removes all";
    }
    return mrl_cdb_del(db, LC_KWH_ACTIONS, action.code) == 0 ? std::string()
                                                             : "action " + name + " could not be removed";
}

} // namespace mrl::exchange
