#include "rules/load_case_numbers.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "lcdata/load_case_factors.h"
#include "lcdata/values/action_code.h"

LCM_FreeNumbers::LCM_FreeNumbers(std::vector<int> rows, std::optional<int> selected,
                                 const std::set<int>& used)
    : m_rows(std::move(rows)), m_used(used), m_empty(m_rows.empty()), m_fixedStart(selected.has_value())
{
    if (!std::is_sorted(m_rows.begin(), m_rows.end())) { // most tables are sorted by number
        std::sort(m_rows.begin(), m_rows.end());
    }
    if (selected) {
        m_number = *selected;
    } else if (!m_empty) {
        m_number = std::max(1, m_rows.back());
    }
}

int LCM_FreeNumbers::next()
{
    if (m_empty) {
        return 1;
    }
    while (m_number < std::numeric_limits<int>::max() && !isFree(m_number)) {
        ++m_number;
    }
    return m_number;
}

void LCM_FreeNumbers::take(int number)
{
    m_taken.insert(number);
    m_empty = false;
    if (!m_fixedStart) {
        m_number = std::max(m_number, number);
    }
}

bool LCM_FreeNumbers::isFree(int number) const
{
    return !std::binary_search(m_rows.begin(), m_rows.end(), number) && m_used.count(number) == 0 &&
           m_taken.count(number) == 0;
}

int lcm_next_number(const std::vector<int>& rows, std::optional<int> selected, const std::set<int>& used)
{
    return LCM_FreeNumbers(rows, selected, used).next();
}

int lcm_proposed_target(int target, const std::set<int>& taken)
{
    auto next = taken.lower_bound(target);
    for (int number = target; number < LC_MAX_NUMBER; ++number, ++next) {
        if (next == taken.end() || *next != number) {
            return number;
        }
    }
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
    if (!exists) {
        std::memset(bound.name, 0, sizeof bound.name);
    }
    const int word = lcm_field_word(bound.name);
    lcm_default_factors(word, bound);
    lcm_load_case_from_action(bound, record, word);
}
