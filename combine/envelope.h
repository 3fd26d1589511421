#pragma once

/// The greatest and the least value of a response over all combinations of a situation.

#include <optional>
#include <vector>

#include "combine/plan.h"
#include "combine/response_block.h"

namespace mrl::combine {

/// An extreme of one response. The combination itself is told on demand, by Envelope::combination.
struct Extreme
{
    double value = 0;
    int expression = -1; ///< its place in the situation; -1: the situation has no combination at all
    int leading = -1;    ///< member that leads, the first of a load group; -1: nobody
};

struct Extremes
{
    Extreme max;
    Extreme min;
};

/// Values one response after another. A response is a row of numbers, one for each load case. Many are valued faster
/// by extremesOfAll.
class Envelope
{
  public:
    /// @param plan    outlives this object; nothing of it was refused
    /// @param columns the load-case number of each column of a row
    Envelope(const Plan& plan, const std::vector<int>& columns);

    /// Load cases that take part and have no column. Nothing may be valued while there are any.
    const std::vector<int>& missing() const { return m_missing; }

    /// @return nothing when a number that takes part is not finite; badColumn tells which
    std::optional<Extremes> extremes(const double* row);
    std::optional<std::size_t> badColumn(const double* row) const;

    using Direction = combine::Direction;
    /// The governing combination. Of equal ones that of the first expression, with nobody leading or the first action
    /// that can lead, with as few load cases as can be, and permanent actions with the unfavourable factor.
    /// @return nothing when there is no combination, or a number is not finite
    std::optional<Combination> combination(const double* row, Direction direction);

    /// The combination of a choice that was made for this response.
    Combination combination(const double* row, Direction direction, int expression,
                            const std::vector<int>& acts) const;

    /// The value of a response under a combination: the sum of its terms.
    double value(const Key& key, const double* row) const;

  private:
    const Governing* governing(const double* row, Direction direction);
    std::vector<double> responses(const Member& member, const double* row) const;

    const Plan& m_plan;
    std::vector<int> m_missing;
    std::vector<std::size_t> m_columns; // of Prepared::numbers
    ResponseBlock m_block;
};

/// The extremes of many responses, with what governs them in a compact form.
struct ManyExtremes
{
    std::vector<Extremes> extremes;
    std::size_t width = 0; ///< numbers of one choice: the units of the plan
    /// For each response the choice of the maximum, then that of the minimum: by unit the place in Plan::acts, -1 where
    /// the unit rests. Envelope::combination makes a key of one.
    std::vector<int> choices;
};

/// The extremes of many responses, row behind row, on several threads.
/// @param threads 0: as many as the machine has
/// @return nothing when a number is not finite
std::optional<ManyExtremes> extremesOfAll(const Plan& plan, const std::vector<int>& columns,
                                          const double* rows, std::size_t count, unsigned threads = 0);

} // namespace mrl::combine
