#include "combine/count.h"

#include <algorithm>
#include <map>
#include <set>

namespace mrl::combine {

namespace {

BigInt choices(const Plan& plan, const Graph& graph)
{
    if (graph.end < 0) {
        return 0;
    }
    std::vector<BigInt> reached(static_cast<std::size_t>(graph.nodes));
    reached[0] = 1;
    std::map<int, BigInt> waysOf;
    for (const Edge& edge : graph.edges) {
        BigInt& to = reached[static_cast<std::size_t>(edge.to)];
        const BigInt& from = reached[static_cast<std::size_t>(edge.from)];
        if (edge.act < 0) {
            to += from;
            continue;
        }
        const auto [place, isNew] = waysOf.try_emplace(edge.act);
        if (isNew) {
            const Act& act = plan.acts[static_cast<std::size_t>(edge.act)];
            place->second =
                ways(act.pattern, plan.prepared.members[static_cast<std::size_t>(act.member)].count);
        }
        to += from * place->second;
    }
    return reached[static_cast<std::size_t>(graph.end)];
}

/// A set of small numbers, ascending.
using Set = std::vector<int>;

/// A pattern that the factors read so far may belong to, and whether one of them was marked: 2 * place + mark.
using Reading = Set;

/// Counts different vectors by reading them load case by load case, in all ways at once: what is kept of a vector are
/// the nodes that it may have come to. Vectors that came to the same nodes are counted together.
class DistinctCounter
{
  public:
    DistinctCounter(const Plan& plan, std::vector<std::size_t> graphs)
        : m_plan(plan), m_graphs(std::move(graphs))
    {
    }

    BigInt count();

  private:
    void readUnit(std::size_t unit);
    Set actsOf(std::size_t unit) const;
    std::map<Set, BigInt> vectorsByActs(std::size_t unit, const Set& acts) const;
    Reading read(const Reading& reading, const Set& acts, int member, double factor) const;
    std::set<double> factorsOf(const Set& acts, int member) const;
    const Pattern& patternOf(int act, int member) const;

    const Plan& m_plan;
    std::vector<std::size_t> m_graphs;
    std::map<Set, BigInt> m_vectors; // by nodes: node * graphs + graph
};

/// The pattern by which an act, or rest, gives factors to the load cases of a member.
const Pattern& DistinctCounter::patternOf(int act, int member) const
{
    static const Pattern REST{{0}, {}, Marks::None};
    const bool isOther = act < 0 || m_plan.acts[static_cast<std::size_t>(act)].member != member;
    return isOther ? REST : m_plan.acts[static_cast<std::size_t>(act)].pattern;
}

Set DistinctCounter::actsOf(std::size_t unit) const
{
    std::set<int> acts;
    for (const std::size_t graph : m_graphs) {
        const Graph& each = m_plan.graphs[graph];
        for (int i = each.layerStart[unit]; i < each.layerStart[unit + 1]; ++i) {
            acts.insert(each.edges[static_cast<std::size_t>(i)].act);
        }
    }
    return {acts.begin(), acts.end()};
}

std::set<double> DistinctCounter::factorsOf(const Set& acts, int member) const
{
    std::set<double> factors;
    for (const int act : acts) {
        const Pattern& pattern = patternOf(act, member);
        factors.insert(pattern.stay.begin(), pattern.stay.end());
        factors.insert(pattern.mark.begin(), pattern.mark.end());
    }
    return factors;
}

/// What remains possible once a load case of a member has this factor.
Reading DistinctCounter::read(const Reading& reading, const Set& acts, int member, double factor) const
{
    std::set<int> next;
    for (const int each : reading) {
        const Pattern& pattern = patternOf(acts[static_cast<std::size_t>(each / 2)], member);
        const auto holds = [&](const std::vector<double>& list) {
            return std::find(list.begin(), list.end(), factor) != list.end();
        };
        const bool isMarked = each % 2 == 1;
        if (holds(pattern.stay)) {
            next.insert(each);
        }
        if (holds(pattern.mark) && (!isMarked || pattern.marks == Marks::Some)) {
            next.insert(each | 1);
        }
    }
    return {next.begin(), next.end()};
}

/// The number of vectors of a unit, by the acts that can give them.
std::map<Set, BigInt> DistinctCounter::vectorsByActs(std::size_t unit, const Set& acts) const
{
    Reading all;
    for (std::size_t i = 0; i < acts.size(); ++i) {
        all.push_back(static_cast<int>(2 * i));
    }
    std::map<Reading, BigInt> readings{{all, 1}};
    for (const int member : m_plan.prepared.units[unit].members) {
        const std::set<double> factors = factorsOf(acts, member);
        for (int i = 0; i < m_plan.prepared.members[static_cast<std::size_t>(member)].count; ++i) {
            std::map<Reading, BigInt> next;
            for (const auto& [reading, count] : readings) {
                for (const double factor : factors) {
                    Reading read = this->read(reading, acts, member, factor);
                    if (!read.empty()) {
                        next[std::move(read)] += count;
                    }
                }
            }
            readings = std::move(next);
        }
    }
    std::map<Set, BigInt> result;
    for (const auto& [reading, count] : readings) {
        Set possible;
        for (const int each : reading) {
            const int act = acts[static_cast<std::size_t>(each / 2)];
            const bool needsMark =
                act >= 0 && m_plan.acts[static_cast<std::size_t>(act)].pattern.marks != Marks::None;
            if ((each % 2 == 1 || !needsMark) && (possible.empty() || possible.back() != act)) {
                possible.push_back(act);
            }
        }
        if (!possible.empty()) {
            result[possible] += count;
        }
    }
    return result;
}

void DistinctCounter::readUnit(std::size_t unit)
{
    const auto graphs = static_cast<int>(m_graphs.size());
    std::multimap<std::pair<int, int>, int> targets; // of a node and an act
    for (int graph = 0; graph < graphs; ++graph) {
        const Graph& each = m_plan.graphs[m_graphs[static_cast<std::size_t>(graph)]];
        for (int i = each.layerStart[unit]; i < each.layerStart[unit + 1]; ++i) {
            const Edge& edge = each.edges[static_cast<std::size_t>(i)];
            targets.emplace(std::pair(edge.from * graphs + graph, edge.act), edge.to * graphs + graph);
        }
    }
    const std::map<Set, BigInt> byActs = vectorsByActs(unit, actsOf(unit));
    std::map<Set, BigInt> next;
    for (const auto& [nodes, vectors] : m_vectors) {
        for (const auto& [acts, count] : byActs) {
            std::set<int> reached;
            for (const int node : nodes) {
                for (const int act : acts) {
                    const auto range = targets.equal_range({node, act});
                    for (auto target = range.first; target != range.second; ++target) {
                        reached.insert(target->second);
                    }
                }
            }
            if (!reached.empty()) {
                next[Set(reached.begin(), reached.end())] += vectors * count;
            }
        }
    }
    m_vectors = std::move(next);
}

BigInt DistinctCounter::count()
{
    Set start;
    for (std::size_t graph = 0; graph < m_graphs.size(); ++graph) {
        if (m_plan.graphs[m_graphs[graph]].end >= 0) {
            start.push_back(static_cast<int>(graph)); // node 0
        }
    }
    if (start.empty()) {
        return 0;
    }
    m_vectors = {{start, 1}};
    for (std::size_t unit = 0; unit < m_plan.prepared.units.size(); ++unit) {
        readUnit(unit);
    }
    BigInt sum = 0;
    for (const auto& [nodes, vectors] : m_vectors) {
        sum += vectors; // a node of the last layer is the end
    }
    return sum;
}

} // namespace

Count countChoices(const Plan& plan)
{
    Count count;
    for (const Graph& graph : plan.graphs) {
        count.ofExpressions.push_back(choices(plan, graph));
        count.all += count.ofExpressions.back();
    }
    return count;
}

Count countDistinct(const Plan& plan)
{
    Count count;
    std::vector<std::size_t> all;
    for (std::size_t i = 0; i < plan.graphs.size(); ++i) {
        count.ofExpressions.push_back(DistinctCounter(plan, {i}).count());
        all.push_back(i);
    }
    count.all = all.size() == 1 ? count.ofExpressions.front() : DistinctCounter(plan, all).count();
    return count;
}

} // namespace mrl::combine
