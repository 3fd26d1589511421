#include "combine/response_block.h"

#include <algorithm>
#include <limits>

namespace mrl::combine {

namespace {

constexpr double NOT_REACHED = -std::numeric_limits<double>::infinity();

/// Adds what the best load case gains by being marked, against what `value` has put in for it.
void addGain(const Rates& rates, const LaneStats& stats, Lanes& value)
{
    const auto gain = [&](const Lanes& response, Lanes& result) {
        const Lanes high = rates.highMark * response;
        const Lanes low = rates.lowMark * response;
        const Lanes without = response > 0 ? rates.high * response : rates.low * response;
        result = (high > low ? high : low) - without;
    };
    Lanes top;
    Lanes bottom;
    gain(stats.greatest, top);
    gain(stats.least, bottom);
    value += top > bottom ? top : bottom;
}

} // namespace

ResponseBlock::ResponseBlock(const Plan& plan, std::vector<std::size_t> columns)
    : m_plan(plan), m_columns(std::move(columns)), m_stats(plan.prepared.members.size()),
      m_values(plan.acts.size() + 1)
{
    m_leaders.push_back(-1);
    for (const Act& act : plan.acts) {
        m_rates.push_back(ratesOf(act.pattern));
        m_leaders.push_back(act.leads() ? act.member : -1);
    }
    std::size_t nodes = 1;
    for (const Graph& graph : plan.graphs) {
        m_ways.push_back(waysOf(graph));
        nodes = std::max(nodes, static_cast<std::size_t>(graph.nodes));
    }
    m_nodes.resize(nodes);
    m_nodes[0] = {Lanes{}, LaneInts{} - 1};
    for (std::size_t lane = 0; lane < LANES; ++lane) {
        m_best[lane].acts.resize(plan.prepared.units.size());
        m_followed[lane].acts.resize(plan.prepared.units.size());
    }
}

ResponseBlock::Ways ResponseBlock::waysOf(const Graph& graph)
{
    std::vector<Edge> edges = graph.edges;
    std::stable_sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.to < b.to; });
    Ways ways;
    ways.end = graph.end;
    int node = 1;
    for (const Edge& edge : edges) {
        for (; node < edge.to; ++node) {
            ways.ends.push_back(static_cast<int>(ways.steps.size()));
        }
        ways.steps.push_back({edge.from, edge.act});
    }
    for (; node < graph.nodes; ++node) {
        ways.ends.push_back(static_cast<int>(ways.steps.size()));
    }
    return ways;
}

MRL_COMBINE_FAST bool ResponseBlock::read(const Rows& rows)
{
    Lanes check = {};
    const std::size_t* column = m_columns.data();
    for (std::size_t i = 0; i < m_stats.size(); ++i) {
        LaneStats stats;
        for (const auto* const end = column + m_plan.prepared.members[i].count; column != end; ++column) {
            stats.add(Lanes{rows[0][*column], rows[1][*column], rows[2][*column], rows[3][*column]});
        }
        check += (stats.positive + stats.negative) * 0.0;
        m_stats[i] = stats;
    }
    return check[0] == 0 && check[1] == 0 && check[2] == 0 && check[3] == 0;
}

MRL_COMBINE_FAST void ResponseBlock::valueActs(Direction direction)
{
    for (std::size_t i = 0; i < m_rates.size(); ++i) {
        const Rates& rates = m_rates[i];
        const LaneStats& own = m_stats[static_cast<std::size_t>(m_plan.acts[i].member)];
        const LaneStats stats = direction == Direction::Max ? own : mirrored(own);
        Lanes& value = m_values[i + 1].at;
        value = rates.high * stats.positive + rates.low * stats.negative;
        if (rates.marks != Marks::None) {
            addGain(rates, stats, value);
        }
    }
}

/// Finds the greatest values of the ways to all nodes of a graph.
MRL_COMBINE_FAST void ResponseBlock::relax(const Ways& ways)
{
    Node* const nodes = m_nodes.data();
    Node* node = nodes;
    const LaneValue* const values = m_values.data() + 1;
    const Step* step = ways.steps.data();
    LaneInts place = {};
    for (const int last : ways.ends) {
        Node best{Lanes{} + NOT_REACHED, LaneInts{} - 1};
        for (const Step* const end = ways.steps.data() + last; step != end; ++step) {
            const Lanes value = nodes[step->from].reached + values[step->act].at;
            const auto isBetter = value > best.reached;
            best.reached = isBetter ? value : best.reached;
            best.arrival = isBetter ? place : best.arrival;
            place += 1;
        }
        *++node = best;
    }
}

/// Takes the ways through a graph that was just relaxed, where they are better than what was found so far.
void ResponseBlock::takeBetter(int expression)
{
    const Ways& ways = m_ways[static_cast<std::size_t>(expression)];
    follow(ways);
    const Lanes& reached = m_nodes[static_cast<std::size_t>(ways.end)].reached;
    for (std::size_t lane = 0; lane < LANES; ++lane) {
        Governing& best = m_best[lane];
        if (reached[lane] != NOT_REACHED && (best.expression < 0 || reached[lane] > best.value)) {
            best.value = reached[lane];
            best.expression = expression;
            best.leading = m_followed[lane].leading;
            best.acts.swap(m_followed[lane].acts);
        }
    }
}

/// Walks the best ways back, one step for each unit. All lanes go in step, so that none waits for what it reads. A lane
/// that found no way walks somewhere; nobody takes it.
void ResponseBlock::follow(const Ways& ways)
{
    std::array<int, LANES> nodes;
    nodes.fill(ways.end);
    for (Governing& each : m_followed) {
        each.leading = -1;
    }
    for (std::size_t unit = m_plan.prepared.units.size(); unit-- > 0;) {
        for (std::size_t lane = 0; lane < LANES; ++lane) {
            const auto arrival = m_nodes[static_cast<std::size_t>(nodes[lane])].arrival[lane];
            const Step step = ways.steps[static_cast<std::size_t>(std::max<std::int64_t>(arrival, 0))];
            const int leader = m_leaders[static_cast<std::size_t>(step.act + 1)];
            Governing& followed = m_followed[lane];
            followed.leading = leader < 0 ? followed.leading : leader;
            followed.acts[unit] = step.act;
            nodes[lane] = step.from;
        }
    }
}

const std::array<Governing, LANES>& ResponseBlock::solve(Direction direction)
{
    for (Governing& best : m_best) {
        best.value = 0;
        best.expression = -1;
        best.leading = -1;
    }
    valueActs(direction);
    for (std::size_t i = 0; i < m_ways.size(); ++i) {
        if (m_ways[i].end >= 0) {
            relax(m_ways[i]);
            takeBetter(static_cast<int>(i));
        }
    }
    for (Governing& best : m_best) {
        best.value = direction == Direction::Max ? best.value : 0.0 - best.value;
        if (best.expression < 0) {
            std::fill(best.acts.begin(), best.acts.end(), -1);
        }
    }
    return m_best;
}

} // namespace mrl::combine
