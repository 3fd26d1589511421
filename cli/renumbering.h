#pragma once

/// New numbers for load cases, all at once, so that numbers can be swapped.

#include <map>
#include <string>
#include <vector>

#include "cli/command_project.h"

namespace mrl::cli {

/// Old and new numbers.
using Moves = std::map<int, int>;

/// The moves of texts such as 5=12, 10-20=110 (the range, from 110 on) and 10-20:+100 or 10-20:-5 (the load cases of the
/// range by an offset). Of a range only numbers that load cases have move. Throws wrong usage for anything else.
Moves movesOf(const std::vector<std::string>& texts, const Project& project);

/// The keys of other groups by their element, such as loads of a load case; they don't go along when it moves.
class StrandedKeys
{
  public:
    explicit StrandedKeys(const Project& project);
    /// Those under a number that moves, as a person names them.
    std::vector<std::string> of(const Moves& moves) const;

  private:
    std::multimap<int, std::string> m_keys;
};

/// Gives the load cases their new numbers; the current load case goes along. Refuses a number that is none, a load case
/// that isn't there or belongs to another module, and a target that is taken and doesn't move away.
void renumber(const Moves& moves, const Project& project);

} // namespace mrl::cli
