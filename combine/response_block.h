#pragma once

/// The extremes of four responses at a time. One response alone fills all four lanes.

#include <array>
#include <vector>

#include "combine/lanes.h"
#include "combine/plan.h"

namespace mrl::combine {

enum class Direction { Max, Min };

/// What governs one response in one direction.
struct Governing
{
    double value = 0;      ///< the extreme itself, with its own sign
    int expression = -1;   ///< its place in the situation; -1: the situation has no combination at all
    int leading = -1;      ///< member that leads, the first of a load group; -1: nobody
    std::vector<int> acts; ///< by unit, in Plan::acts; -1 where the unit rests
};

/// Values responses, each a row of numbers with one for each load case. Costs one pass over the rows, and for each
/// direction one over the edges of the plan.
class ResponseBlock
{
  public:
    using Rows = std::array<const double*, LANES>;

    /// @param plan    outlives this object; nothing of it was refused
    /// @param columns of each of Prepared::numbers its place in a row
    ResponseBlock(const Plan& plan, std::vector<std::size_t> columns);

    /// Reads the responses. @return false when a number that takes part is not finite
    bool read(const Rows& rows);

    /// Finds the extremes of the responses that were read. Of equal combinations the first by expression, leading
    /// action and choice.
    /// @return valid until the next call
    const std::array<Governing, LANES>& solve(Direction direction);

  private:
    struct Node
    {
        Lanes reached;    ///< the greatest value of the ways to it
        LaneInts arrival; ///< the last step of that way
    };
    struct Step
    {
        int from;
        int act; ///< -1: the unit rests
    };
    /// A graph by node: each with the steps that lead to it, so that its best one is found without writing in between.
    struct Ways
    {
        std::vector<Step> steps;
        std::vector<int> ends; ///< behind the last step of each node but the start
        int end = -1;          ///< the node at which all combinations end; -1: there is none
    };
    static Ways waysOf(const Graph& graph);

    void valueActs(Direction direction);
    void relax(const Ways& ways);
    void takeBetter(int expression);
    void follow(const Ways& ways);

    const Plan& m_plan;
    std::vector<std::size_t> m_columns;
    std::vector<Rates> m_rates; // of the acts
    std::vector<int> m_leaders; // of the acts, behind that of rest: the member where it leads, otherwise -1
    std::vector<Ways> m_ways;   // one for each expression
    std::vector<LaneStats> m_stats;  // of the members
    std::vector<LaneValue> m_values; // of the acts, behind a 0 for rest
    std::vector<Node> m_nodes;
    std::array<Governing, LANES> m_best;
    std::array<Governing, LANES> m_followed; // the ways through the graph at hand
};

} // namespace mrl::combine
