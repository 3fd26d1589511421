#include "cli/stored_load_cases.h"

#include "lcdata/keys.h"
#include "lcdata/load_case_rules.h"
#include "lcdata/packing.h"

namespace mrl::cli {

LCM_StoredLoadCase requireLoadCase(const Project& project, int number)
{
    const auto loadCase = lcm_stored_load_case(project.db(), number);
    if (!loadCase) {
        project.refuse("there is no load case " + std::to_string(number));
    }
    return *loadCase;
}

LoadCaseFields fieldsOf(const tagCDB_LC_CTRL& record)
{
    LoadCaseFields fields;
    fields.action = record.action;
    if (fields.action < LC_BLANK_WORD) {
        lcm_resolve_action_word(fields.action);
    }
    const auto pair = [](float field, float& main, float& minor) {
        const LCM_FactorPair unpacked = lcm_unpack_pair(field);
        main = unpacked.main;
        minor = unpacked.main == LC_UNDEFINED ? LC_UNDEFINED : unpacked.minor;
    };
    pair(record.gamu, fields.gamu, fields.gama);
    pair(record.psi1, fields.psi1, fields.psi1s);
    fields.gamf = record.gamf;
    fields.psi0 = record.psi0;
    fields.psi2 = record.psi2;
    return fields;
}

} // namespace mrl::cli
