#include "rules/finding.h"

namespace {

constexpr bool idsStandInTheOrderOfTheRules()
{
    for (std::size_t i = 0; i < LCM_RULE_IDS.size(); ++i) {
        if (static_cast<std::size_t>(LCM_RULE_IDS[i].first) != i) {
            return false;
        }
    }
    return static_cast<std::size_t>(LCM_Rule::SystemRecordSizeWrong) + 1 == LCM_RULE_IDS.size();
}

static_assert(idsStandInTheOrderOfTheRules());

} // namespace
