#pragma once

/// What a load case takes from its action.

#include <cstdint>
#include <unordered_map>

#include "lcdata/values/records.h"

/// Copies the factors of an action into a load case, the two pairs packed, and sets its action word.
/// @param word the action word when it is 0 or 70; for any other word the action's code is set
void lcm_load_case_from_action(const tagCDB_LC_ACT& action, tagCDB_LC_CTRL& rec, std::int32_t word);

/// Sets all factors of an action record to 0.0 if the action word is 0 or 70, else to the undefined value.
void lcm_default_factors(std::int32_t word, tagCDB_LC_ACT& action);

/// Replaces an old action number by the code of its action, as the active design code knows it. The words 0
/// and 70 and a word that can't be looked up stay.
void lcm_resolve_action_word(std::int32_t& word);

/// The same for many load cases. Asks the design code once for each word: projects have many load cases and
/// few actions.
class LCM_ActionWords
{
  public:
    std::int32_t resolved(std::int32_t word);

  private:
    std::unordered_map<std::int32_t, std::int32_t> m_resolved;
};
