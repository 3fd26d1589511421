#pragma once

/// The greatest and the least value of a response over all combinations of a situation.

#include <optional>
#include <vector>

#include "combine/plan.h"

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

/// Values one response after another. A response is a row of numbers, one for each load case; its cost is one pass
/// over them and one over the edges of the plan.
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

    enum class Direction { Max, Min };
    /// The governing combination. Of equal ones that of the first expression, with nobody leading or the first action
    /// that can lead, with as few load cases as can be, and permanent actions with the unfavourable factor.
    /// @return nothing when there is no combination, or a number is not finite
    std::optional<Combination> combination(const double* row, Direction direction);

    /// The value of a response under a combination: the sum of its terms.
    double value(const Key& key, const double* row) const;

  private:
    struct Path
    {
        double value = 0;
        int graph = -1;
        std::vector<int> acts; ///< by unit; left out where a unit rests
    };

    bool readStats(const double* row);
    void valueActs(Direction direction);
    double relax(const Graph& graph);
    Path longest(Direction direction);
    void follow(const Graph& graph, std::vector<int>& acts) const;
    Extreme extreme(Direction direction);
    std::vector<double> responses(const Member& member, const double* row) const;

    const Plan& m_plan;
    std::vector<std::size_t> m_columns; // of Prepared::numbers
    std::vector<bool> m_isRun;          // the columns of a member follow each other
    std::vector<int> m_missing;
    std::vector<Valuer> m_valuers; // of the acts
    std::vector<Stats> m_stats;    // of the members
    std::vector<double> m_values;  // of the acts, behind a 0 for rest
    std::vector<double> m_reached; // of the nodes: the greatest value of the ways to it
    std::vector<int> m_arrival;    // of the nodes: the last edge of that way
    std::vector<double> m_gathered;
};

/// The extremes of many responses, row behind row, on several threads.
/// @param threads 0: as many as the machine has
/// @return empty when a number is not finite
std::vector<Extremes> extremesOfAll(const Plan& plan, const std::vector<int>& columns, const double* rows,
                                    std::size_t count, unsigned threads = 0);

} // namespace mrl::combine
