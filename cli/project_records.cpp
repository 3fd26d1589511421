#include "cli/project_records.h"
#include "exchange/raw_records.h"

#include "cli/arguments.h"
#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

LCM_StoredAction requireAction(const Project& project, const std::string& name)
{
    const auto action = lcm_stored_action(project.db(), typedActionCode(project.db(), name));
    if (!action) {
        project.refuse("the project has no action " + name);
    }
    return *action;
}

bool isStored(int db, int code)
{
    const LCM_KeyGuard guard(db, LC_KWH_ACTIONS, code);
    tagCDB_LC_ACT record{};
    int length = sizeof record;
    return mrl_cdb_get(db, LC_KWH_ACTIONS, code, &record, &length, 0) < CD_END;
}

int typedActionCode(int db, const std::string& name)
{
    const int asTyped = lcm_pack_word(qtext(name));
    return isStored(db, asTyped) ? asTyped : lcm_normalise_code(qtext(name));
}

int typedActionWord(int db, const std::string& name)
{
    const QString upper = qtext(name).toUpper();
    if (upper == QLatin1String("IMP")) {
        return LC_ACTION_IMPERFECTION;
    }
    return upper == QLatin1String("NONE") ? LC_ACTION_NONE : typedActionCode(db, name);
}

bool rewriteAction(int db, const LCM_StoredAction& action)
{
    return exchange::overwriteRecord(db, LC_KWH_ACTIONS, action.code, action.position, &action.record,
                                     sizeof action.record);
}

LCM_StoredLoadCase requireLoadCase(const Project& project, int number)
{
    const auto loadCase = lcm_stored_load_case(project.db(), number);
    if (!loadCase) {
        project.refuse("there is no load case " + std::to_string(number));
    }
    return *loadCase;
}

int actionWordOf(const tagCDB_LC_CTRL& record)
{
    int word = record.action;
    if (word < LC_BLANK_WORD) {
        lcm_resolve_action_word(word);
    }
    return word;
}

} // namespace mrl::cli
