#include "combine/envelope.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <thread>
#include <unordered_map>

#include "combine/decimal.h"

namespace mrl::combine {

namespace {

constexpr std::size_t LANES = 4; // sums side by side, so that an addition need not wait for the one before it
constexpr double NOT_REACHED = -std::numeric_limits<double>::infinity();

/// The stats of numbers in a run. A number that isn't finite makes a sum that isn't either.
Stats statsOf(const double* at, std::size_t count)
{
    double positive[LANES] = {};
    double negative[LANES] = {};
    double greatest[LANES];
    double least[LANES];
    std::fill(greatest, greatest + LANES, at[0]);
    std::fill(least, least + LANES, at[0]);
    const auto take = [&](std::size_t lane, double response) {
        positive[lane] += response < 0 ? 0 : response;
        negative[lane] += response < 0 ? response : 0;
        greatest[lane] = response > greatest[lane] ? response : greatest[lane];
        least[lane] = response < least[lane] ? response : least[lane];
    };
    std::size_t i = 0;
    for (; i + LANES <= count; i += LANES) {
        for (std::size_t lane = 0; lane < LANES; ++lane) {
            take(lane, at[i + lane]);
        }
    }
    for (; i < count; ++i) {
        take(0, at[i]);
    }
    return {(positive[0] + positive[1]) + (positive[2] + positive[3]),
            (negative[0] + negative[1]) + (negative[2] + negative[3]),
            std::max(std::max(greatest[0], greatest[1]), std::max(greatest[2], greatest[3])),
            std::min(std::min(least[0], least[1]), std::min(least[2], least[3]))};
}

} // namespace

Envelope::Envelope(const Plan& plan, const std::vector<int>& columns)
    : m_plan(plan), m_stats(plan.prepared.members.size()), m_values(plan.acts.size() + 1)
{
    std::unordered_map<int, std::size_t> places;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        places.emplace(columns[i], i);
    }
    for (const int number : plan.prepared.numbers) {
        const auto place = places.find(number);
        if (place == places.end()) {
            m_missing.push_back(number);
        } else {
            m_columns.push_back(place->second);
        }
    }
    for (const Member& member : plan.prepared.members) {
        bool isRun = m_missing.empty();
        for (int i = 1; isRun && i < member.count; ++i) {
            const auto at = static_cast<std::size_t>(member.first + i);
            isRun = m_columns[at] == m_columns[at - 1] + 1;
        }
        m_isRun.push_back(isRun);
    }
    for (const Act& act : plan.acts) {
        m_valuers.emplace_back(act.pattern);
    }
}

std::vector<double> Envelope::responses(const Member& member, const double* row) const
{
    std::vector<double> result;
    for (int i = 0; i < member.count; ++i) {
        result.push_back(row[m_columns[static_cast<std::size_t>(member.first + i)]]);
    }
    return result;
}

bool Envelope::readStats(const double* row)
{
    double check = 0;
    for (std::size_t i = 0; i < m_stats.size(); ++i) {
        const Member& member = m_plan.prepared.members[i];
        const auto first = static_cast<std::size_t>(member.first);
        const auto count = static_cast<std::size_t>(member.count);
        const double* at = row + m_columns[first];
        if (!m_isRun[i]) {
            m_gathered.resize(count);
            for (std::size_t j = 0; j < count; ++j) {
                m_gathered[j] = row[m_columns[first + j]];
            }
            at = m_gathered.data();
        }
        m_stats[i] = statsOf(at, count);
        check += (m_stats[i].positive + m_stats[i].negative) * 0.0;
    }
    return check == 0;
}

void Envelope::valueActs(Direction direction)
{
    for (std::size_t i = 0; i < m_valuers.size(); ++i) {
        const Stats& stats = m_stats[static_cast<std::size_t>(m_plan.acts[i].member)];
        m_values[i + 1] = m_valuers[i].best(direction == Direction::Max ? stats : mirrored(stats));
    }
}

/// The greatest value of the ways through a graph; not reached: there is no way.
double Envelope::relax(const Graph& graph)
{
    if (graph.end < 0) {
        return NOT_REACHED;
    }
    const auto nodes = static_cast<std::size_t>(graph.nodes);
    m_reached.assign(nodes, NOT_REACHED);
    m_arrival.assign(nodes, -1);
    m_reached[0] = 0;
    double* const reached = m_reached.data();
    int* const arrival = m_arrival.data();
    const double* const values = m_values.data();
    const int count = static_cast<int>(graph.edges.size());
    const Edge* edge = graph.edges.data();
    for (int i = 0; i < count; ++i, ++edge) {
        const double value = reached[edge->from] + values[edge->act + 1];
        const bool isBetter = value > reached[edge->to];
        reached[edge->to] = isBetter ? value : reached[edge->to];
        arrival[edge->to] = isBetter ? i : arrival[edge->to];
    }
    return reached[graph.end];
}

void Envelope::follow(const Graph& graph, std::vector<int>& acts) const
{
    acts.clear();
    for (int node = graph.end; node != 0;) {
        const Edge& edge = graph.edges[static_cast<std::size_t>(m_arrival[static_cast<std::size_t>(node)])];
        if (edge.act >= 0) {
            acts.push_back(edge.act);
        }
        node = edge.from;
    }
}

Envelope::Path Envelope::longest(Direction direction)
{
    valueActs(direction);
    Path path;
    for (std::size_t i = 0; i < m_plan.graphs.size(); ++i) {
        const double value = relax(m_plan.graphs[i]);
        if (value != NOT_REACHED && (path.graph < 0 || value > path.value)) {
            path.value = value;
            path.graph = static_cast<int>(i);
            follow(m_plan.graphs[i], path.acts);
        }
    }
    std::reverse(path.acts.begin(), path.acts.end());
    return path;
}

Extreme Envelope::extreme(Direction direction)
{
    const Path path = longest(direction);
    Extreme result{direction == Direction::Max ? path.value : 0.0 - path.value, path.graph, -1};
    for (const int act : path.acts) {
        const Act& each = m_plan.acts[static_cast<std::size_t>(act)];
        if (each.leads()) {
            result.leading = each.member;
            break;
        }
    }
    return result;
}

std::optional<Extremes> Envelope::extremes(const double* row)
{
    if (!readStats(row)) {
        return std::nullopt;
    }
    return Extremes{extreme(Direction::Max), extreme(Direction::Min)};
}

std::optional<std::size_t> Envelope::badColumn(const double* row) const
{
    for (const std::size_t column : m_columns) {
        if (!std::isfinite(row[column])) {
            return column;
        }
    }
    return std::nullopt;
}

std::optional<Combination> Envelope::combination(const double* row, Direction direction)
{
    if (!readStats(row)) {
        return std::nullopt;
    }
    const Path path = longest(direction);
    if (path.graph < 0) {
        return std::nullopt;
    }
    Combination result;
    result.expression = path.graph;
    for (const int place : path.acts) {
        const Act& act = m_plan.acts[static_cast<std::size_t>(place)];
        const Member& member = m_plan.prepared.members[static_cast<std::size_t>(act.member)];
        std::vector<double> rows = responses(member, row);
        for (double& each : rows) {
            each = direction == Direction::Max ? each : -each;
        }
        const std::vector<double> factors = m_valuers[static_cast<std::size_t>(place)].choose(rows);
        addShares(m_plan.prepared, member, factors, result.key);
        result.parts.push_back({act.member, act.role});
        if (act.leads()) {
            result.leading += (result.leading.empty() ? "" : " + ") + member.name;
        }
    }
    std::sort(result.key.begin(), result.key.end());
    return result;
}

double Envelope::value(const Key& key, const double* row) const
{
    std::unordered_map<int, std::size_t> places;
    double sum = 0;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        places.emplace(m_plan.prepared.numbers[i], m_columns[i]);
    }
    for (const Share& share : key) {
        sum += share.factor * row[places.at(share.number)];
    }
    return sum;
}

std::vector<Extremes> extremesOfAll(const Plan& plan, const std::vector<int>& columns, const double* rows,
                                    std::size_t count, unsigned threads)
{
    constexpr std::size_t CHUNK = 256; // rows that a thread takes at a time
    std::vector<Extremes> result(count);
    std::atomic<std::size_t> next{0};
    std::atomic<bool> isFinite{true};
    const auto work = [&] {
        Envelope envelope(plan, columns);
        for (std::size_t begin; (begin = next.fetch_add(CHUNK)) < count && isFinite;) {
            for (std::size_t i = begin; i < std::min(begin + CHUNK, count); ++i) {
                const auto extremes = envelope.extremes(rows + i * columns.size());
                isFinite = isFinite && extremes.has_value();
                result[i] = extremes.value_or(Extremes{});
            }
        }
    };
    std::vector<std::thread> others;
    for (unsigned i = 1; i < (threads == 0 ? std::thread::hardware_concurrency() : threads); ++i) {
        others.emplace_back(work);
    }
    work();
    for (std::thread& each : others) {
        each.join();
    }
    return isFinite ? result : std::vector<Extremes>{};
}

} // namespace mrl::combine
