#include "model/rules/loadcase_numbers.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <unordered_set>

#include "lcdata/load_case_rules.h"

int lcm_next_number(const std::vector<int>& rows, std::optional<int> selected, const std::set<int>& used)
{
    if (rows.empty())
        return 1;
    int number = selected.value_or(std::max(1, *std::max_element(rows.begin(), rows.end())));
    // One step up for each taken number that is met: at most one per row and one per used number.
    const std::unordered_set<int> taken(rows.begin(), rows.end());
    auto nextUsed = used.lower_bound(number);
    while (number < std::numeric_limits<int>::max()) {
        while (nextUsed != used.end() && *nextUsed < number)
            ++nextUsed;
        const bool isUsed = nextUsed != used.end() && *nextUsed == number;
        if (!isUsed && taken.count(number) == 0)
            break;
        ++number;
    }
    return number;
}

int lcm_proposed_target(int target, const std::set<int>& taken)
{
    auto next = taken.lower_bound(target);
    for (int number = target; number < LC_MAX_NUMBER; ++number, ++next)
        if (next == taken.end() || *next != number)
            return number;
    return target;
}

LCM_DefaultAction lcm_default_action_of_new(int rowCount)
{
    switch (rowCount) {
    case 0:
        return LCM_DefaultAction::Dead;
    case 1:
        return LCM_DefaultAction::Live;
    default:
        return LCM_DefaultAction::Keep;
    }
}

void lcm_bind_default_action(const tagCDB_LC_ACT& action, bool exists, tagCDB_LC_CTRL& record)
{
    tagCDB_LC_ACT bound = action;
    if (!exists)
        std::memset(bound.name, 0, sizeof bound.name);
    int word = 0;
    std::memcpy(&word, bound.name, sizeof word);
    lcm_default_factors(word, bound);
    lcm_load_case_from_action(bound, record, word);
}
