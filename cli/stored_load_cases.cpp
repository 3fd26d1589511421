#include "cli/stored_load_cases.h"

#include "lcdata/load_case_factors.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

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
