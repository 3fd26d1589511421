#include "combine/enumerate.h"

#include <algorithm>

#include "combine/count.h"

namespace mrl::combine {

namespace {

/// Walks a graph edge by edge, and each act load case by load case.
class Enumerator
{
  public:
    Enumerator(const Plan& plan, const std::function<bool(const Combination&)>& visit)
        : m_plan(plan), m_visit(visit)
    {
    }

    bool graph(std::size_t number);

  private:
    bool node(int number, std::size_t unit);
    bool act(const Edge& edge, std::size_t unit);
    bool uniform(const Edge& edge, std::size_t unit);
    bool loadCase(const Edge& edge, std::size_t unit, int at, bool isMarked);
    bool tell();

    const Plan& m_plan;
    const std::function<bool(const Combination&)>& m_visit;
    const Graph* m_graph = nullptr;
    std::vector<std::pair<int, double>> m_path; // place in Prepared::numbers, factor
    std::vector<int> m_leading;                 // members
    int m_expression = 0;
};

bool Enumerator::graph(std::size_t number)
{
    m_graph = &m_plan.graphs[number];
    m_expression = static_cast<int>(number);
    return m_graph->end < 0 || node(0, 0);
}

bool Enumerator::tell()
{
    Combination combination;
    combination.expression = m_expression;
    for (const int member : m_leading) {
        combination.leading += (combination.leading.empty() ? "" : " + ") +
                               m_plan.prepared.members[static_cast<std::size_t>(member)].name;
    }
    for (const auto& [place, factor] : m_path) {
        combination.key.push_back({m_plan.prepared.numbers[static_cast<std::size_t>(place)], factor});
    }
    std::sort(combination.key.begin(), combination.key.end());
    return m_visit(combination);
}

bool Enumerator::node(int number, std::size_t unit)
{
    if (unit == m_plan.prepared.units.size()) {
        return tell();
    }
    for (int i = m_graph->layerStart[unit]; i < m_graph->layerStart[unit + 1]; ++i) {
        const Edge& edge = m_graph->edges[static_cast<std::size_t>(i)];
        if (edge.from == number && !(edge.act < 0 ? node(edge.to, unit + 1) : act(edge, unit))) {
            return false;
        }
    }
    return true;
}

bool Enumerator::act(const Edge& edge, std::size_t unit)
{
    const Act& act = m_plan.acts[static_cast<std::size_t>(edge.act)];
    if (act.leads()) {
        m_leading.push_back(act.member);
    }
    // A million load cases with one choice each are no reason to go a million calls deep.
    const bool isUniform = act.pattern.stay.size() == 1 && act.pattern.marks != Marks::Some;
    const bool goesOn = isUniform ? uniform(edge, unit) : loadCase(edge, unit, 0, false);
    if (act.leads()) {
        m_leading.pop_back();
    }
    return goesOn;
}

/// Load cases that have all the same factor, but for the one that may be marked.
bool Enumerator::uniform(const Edge& edge, std::size_t unit)
{
    const Act& act = m_plan.acts[static_cast<std::size_t>(edge.act)];
    const Member& member = m_plan.prepared.members[static_cast<std::size_t>(act.member)];
    const double stay = act.pattern.stay.front();
    const std::size_t before = m_path.size();
    const auto tellWith = [&](int marked, double mark) {
        for (int i = 0; i < member.count; ++i) {
            const double factor = i == marked ? mark : stay;
            if (factor != 0) {
                m_path.emplace_back(member.first + i, factor);
            }
        }
        const bool goesOn = node(edge.to, unit + 1);
        m_path.resize(before);
        return goesOn;
    };
    bool goesOn = act.pattern.marks == Marks::One || tellWith(-1, 0);
    for (int i = 0; act.pattern.marks == Marks::One && goesOn && i < member.count; ++i) {
        goesOn = std::all_of(act.pattern.mark.begin(), act.pattern.mark.end(),
                             [&](double mark) { return tellWith(i, mark); });
    }
    return goesOn;
}

bool Enumerator::loadCase(const Edge& edge, std::size_t unit, int at, bool isMarked)
{
    const Act& act = m_plan.acts[static_cast<std::size_t>(edge.act)];
    const Member& member = m_plan.prepared.members[static_cast<std::size_t>(act.member)];
    const Pattern& pattern = act.pattern;
    if (at == member.count) {
        return (pattern.marks != Marks::None && !isMarked) || node(edge.to, unit + 1);
    }
    const bool isLastChance = pattern.marks == Marks::One && !isMarked && at + 1 == member.count;
    const bool mayMark = pattern.marks == Marks::Some || (pattern.marks == Marks::One && !isMarked);
    const auto take = [&](double factor, bool marked) {
        if (factor == 0) {
            return loadCase(edge, unit, at + 1, marked);
        }
        m_path.emplace_back(member.first + at, factor);
        const bool goesOn = loadCase(edge, unit, at + 1, marked);
        m_path.pop_back();
        return goesOn;
    };
    return (isLastChance || std::all_of(pattern.stay.begin(), pattern.stay.end(),
                                        [&](double factor) { return take(factor, isMarked); })) &&
           (!mayMark || std::all_of(pattern.mark.begin(), pattern.mark.end(),
                                    [&](double factor) { return take(factor, true); }));
}

} // namespace

bool enumerate(const Plan& plan, const BigInt& limit, const std::function<bool(const Combination&)>& visit)
{
    if (countChoices(plan).all > limit) {
        return false;
    }
    Enumerator enumerator(plan, visit);
    for (std::size_t i = 0; i < plan.graphs.size() && enumerator.graph(i); ++i) {
    }
    return true;
}

void GoverningList::add(const std::optional<Combination>& combination)
{
    if (combination && m_keys.insert(combination->key).second) {
        m_combinations.push_back(*combination);
    }
}

bool GoverningList::add(const double* row)
{
    if (m_envelope.badColumn(row)) {
        return false;
    }
    add(m_envelope.combination(row, Envelope::Direction::Max));
    add(m_envelope.combination(row, Envelope::Direction::Min));
    return true;
}

} // namespace mrl::combine
