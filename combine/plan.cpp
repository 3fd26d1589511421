#include "combine/plan.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>

#include "combine/steps.h"

namespace mrl::combine {

namespace {

/// The acts of a plan, each once.
class ActList
{
  public:
    explicit ActList(std::vector<Act>& acts) : m_acts(acts) {}

    int place(const Act& act)
    {
        std::vector<int>& ofMember = m_places[act.member];
        for (const int place : ofMember) {
            const Act& known = m_acts[static_cast<std::size_t>(place)];
            if (known.role == act.role && known.pattern == act.pattern) {
                return place;
            }
        }
        ofMember.push_back(static_cast<int>(m_acts.size()));
        m_acts.push_back(act);
        return ofMember.back();
    }

  private:
    std::vector<Act>& m_acts;
    std::map<int, std::vector<int>> m_places;
};

/// Follows all ways of a walk, layer by layer, joining those between which nothing must be remembered.
class GraphBuilder
{
  public:
    GraphBuilder(const Walk& walk, const Prepared& prepared, ActList& acts)
        : m_walk(walk), m_prepared(prepared), m_acts(acts)
    {
    }

    Graph build();

  private:
    void layer(int unit);
    void addEdges(int from, const Step& step, int unit);
    void close();
    void prune();

    const Walk& m_walk;
    const Prepared& m_prepared;
    ActList& m_acts;
    Graph m_graph;
    std::map<State, int> m_nodes; // of the layer at hand
    std::map<State, int> m_next;
};

void GraphBuilder::addEdges(int from, const Step& step, int unit)
{
    const auto [place, isNew] = m_next.emplace(step.next, m_graph.nodes);
    m_graph.nodes += isNew ? 1 : 0;
    if (step.patterns.empty()) {
        m_graph.edges.push_back({from, place->second, -1});
    }
    for (const Pattern& pattern : step.patterns) {
        m_graph.edges.push_back({from, place->second, m_acts.place({unit, step.member, step.role, pattern})});
    }
}

void GraphBuilder::layer(int unit)
{
    m_graph.layerStart.push_back(static_cast<int>(m_graph.edges.size()));
    m_next.clear();
    for (const auto& [state, node] : m_nodes) {
        for (const Step& step : m_walk.steps(state, unit)) {
            addEdges(node, step, unit);
        }
    }
    m_nodes.swap(m_next);
}

/// Joins the nodes of the last layer at which a combination may end.
void GraphBuilder::close()
{
    std::vector<int> target(static_cast<std::size_t>(m_graph.nodes));
    std::iota(target.begin(), target.end(), 0);
    for (const auto& [state, node] : m_nodes) {
        if (m_walk.mayEnd(state)) {
            m_graph.end = m_graph.end < 0 ? node : m_graph.end;
            target[static_cast<std::size_t>(node)] = m_graph.end;
        }
    }
    for (Edge& edge : m_graph.edges) {
        edge.to = target[static_cast<std::size_t>(edge.to)];
    }
}

/// Drops what leads to no end, and numbers the rest anew.
void GraphBuilder::prune()
{
    std::vector<int> number(static_cast<std::size_t>(m_graph.nodes), -1);
    const auto isDropped = [&](const Edge& edge) { return number[static_cast<std::size_t>(edge.to)] < 0; };
    if (m_graph.end >= 0) {
        number[static_cast<std::size_t>(m_graph.end)] = 0;
    }
    for (auto edge = m_graph.edges.rbegin(); edge != m_graph.edges.rend(); ++edge) {
        if (!isDropped(*edge)) {
            number[static_cast<std::size_t>(edge->from)] = 0;
        }
    }
    int count = 0;
    for (int& each : number) {
        each = each < 0 ? -1 : count++;
    }
    Graph pruned;
    pruned.nodes = std::max(count, 1);
    pruned.end = m_graph.end < 0 ? -1 : number[static_cast<std::size_t>(m_graph.end)];
    for (std::size_t unit = 0; unit + 1 < m_graph.layerStart.size(); ++unit) {
        pruned.layerStart.push_back(static_cast<int>(pruned.edges.size()));
        for (int i = m_graph.layerStart[unit]; i < m_graph.layerStart[unit + 1]; ++i) {
            const Edge& edge = m_graph.edges[static_cast<std::size_t>(i)];
            if (!isDropped(edge)) {
                pruned.edges.push_back({number[static_cast<std::size_t>(edge.from)],
                                        number[static_cast<std::size_t>(edge.to)], edge.act});
            }
        }
    }
    pruned.layerStart.push_back(static_cast<int>(pruned.edges.size()));
    m_graph = std::move(pruned);
}

Graph GraphBuilder::build()
{
    m_nodes.emplace(m_walk.start(), 0);
    for (std::size_t unit = 0; unit < m_prepared.units.size(); ++unit) {
        layer(static_cast<int>(unit));
    }
    m_graph.layerStart.push_back(static_cast<int>(m_graph.edges.size()));
    close();
    prune();
    return std::move(m_graph);
}

void collectConstants(const std::optional<LCM_Term>& term, std::set<std::string>& names)
{
    if (term) {
        names.insert(term->constants.begin(), term->constants.end());
    }
}

/// The constants that a situation names.
std::set<std::string> constantsOf(const LCM_Situation& situation)
{
    std::set<std::string> names;
    for (const LCM_Expression& expression : situation.expressions) {
        for (const LCM_RoleEntry& entry : expression.entries) {
            collectConstants(entry.unfavourable, names);
            collectConstants(entry.favourable, names);
        }
        for (const LCM_Bracket& bracket : expression.sum.value_or(std::vector<LCM_Bracket>{})) {
            for (const LCM_SumTerm& term : bracket) {
                collectConstants(term.term, names);
            }
        }
    }
    return names;
}

std::vector<std::string> idleActions(const Plan& plan)
{
    std::vector<bool> acts(plan.prepared.members.size());
    for (const Graph& graph : plan.graphs) {
        for (const Edge& edge : graph.edges) {
            if (edge.act >= 0) {
                const Act& act = plan.acts[static_cast<std::size_t>(edge.act)];
                acts[static_cast<std::size_t>(act.member)] = true;
            }
        }
    }
    std::vector<std::string> names;
    for (std::size_t i = 0; i < acts.size(); ++i) {
        if (!acts[i]) {
            names.push_back(plan.prepared.members[i].name);
        }
    }
    return names;
}

} // namespace

std::size_t Plan::cost() const
{
    return std::accumulate(graphs.begin(), graphs.end(), std::size_t{0},
                           [](std::size_t sum, const Graph& graph) { return sum + graph.edges.size(); });
}

void addShares(const Prepared& prepared, const Member& member, const std::vector<double>& factors, Key& key)
{
    for (std::size_t i = 0; i < factors.size(); ++i) {
        if (factors[i] != 0) {
            key.push_back({prepared.numbers[static_cast<std::size_t>(member.first) + i], factors[i]});
        }
    }
}

Plan plan(const Model& model, const LCM_Situation& situation)
{
    Plan plan;
    plan.situation = situation.name;
    plan.prepared = prepare(model, situation);
    for (const std::string& name : constantsOf(situation)) {
        if (model.constants.count(name) == 0) {
            plan.prepared.refused.push_back({0, "the design code doesn't define " + name});
        }
    }
    if (!plan.prepared.refused.empty()) {
        return plan;
    }
    ActList acts(plan.acts);
    for (const LCM_Expression& expression : situation.expressions) {
        plan.expressions.push_back(expression.name);
        const ResolvedExpression resolved(situation, expression, plan.prepared, model.constants);
        plan.graphs.push_back(GraphBuilder(Walk(resolved), plan.prepared, acts).build());
    }
    plan.idle = idleActions(plan);
    return plan;
}

} // namespace mrl::combine
