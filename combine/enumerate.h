#pragma once

/// Lists of combinations, for those who need one.

#include <functional>
#include <set>
#include <vector>

#include "combine/envelope.h"

namespace mrl::combine {

/// Tells all choices of a plan, one after another, without keeping any: those of the first expression first. Choices
/// with equal factors are told each.
/// @param limit where there are more choices, none is told
/// @param visit takes the combination, which holds during the call only; false ends the list
/// @return whether there are at most `limit` choices
bool enumerate(const Plan& plan, const BigInt& limit, const std::function<bool(const Combination&)>& visit);

/// The different combinations that govern a response, each once, in the order in which they were met. They have the
/// same envelope as the whole situation for the responses that were given.
class GoverningList
{
  public:
    GoverningList(const Plan& plan, const std::vector<int>& columns) : m_envelope(plan, columns) {}

    /// Takes in the two combinations that govern a response.
    /// @return false when a number is not finite
    bool add(const double* row);

    const std::vector<Combination>& combinations() const { return m_combinations; }

  private:
    void add(const std::optional<Combination>& combination);

    Envelope m_envelope;
    std::set<Key> m_keys;
    std::vector<Combination> m_combinations;
};

} // namespace mrl::combine
