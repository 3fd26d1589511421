#include "combine/envelope.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>
#include <unordered_map>

#include "combine/decimal.h"

namespace mrl::combine {

namespace {

/// The place of each load case that takes part. @param missing [out] those that have no column
std::vector<std::size_t> placesOf(const Prepared& prepared, const std::vector<int>& columns,
                                  std::vector<int>& missing)
{
    std::unordered_map<int, std::size_t> places;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        places.emplace(columns[i], i);
    }
    std::vector<std::size_t> result;
    for (const int number : prepared.numbers) {
        const auto place = places.find(number);
        if (place == places.end()) {
            missing.push_back(number);
        } else {
            result.push_back(place->second);
        }
    }
    return result;
}

Extreme extremeOf(const Governing& governing)
{
    return {governing.value, governing.expression, governing.leading};
}

/// The places of the rows from `first` on, the last one again where they end.
ResponseBlock::Rows rowsFrom(const double* rows, std::size_t width, std::size_t first, std::size_t count)
{
    ResponseBlock::Rows result;
    for (std::size_t lane = 0; lane < LANES; ++lane) {
        result[lane] = rows + std::min(first + lane, count - 1) * width;
    }
    return result;
}

/// Solves rows and puts what comes of it in its place.
class Filler
{
  public:
    Filler(const Plan& plan, const std::vector<std::size_t>& columns, ManyExtremes& result)
        : m_block(plan, columns), m_result(result)
    {
    }

    /// @return false when a number is not finite
    bool fill(const ResponseBlock::Rows& rows, std::size_t first)
    {
        if (!m_block.read(rows)) {
            return false;
        }
        const std::size_t filled = std::min(LANES, m_result.extremes.size() - first);
        put(m_block.solve(Direction::Max), first, filled, Direction::Max);
        put(m_block.solve(Direction::Min), first, filled, Direction::Min);
        return true;
    }

  private:
    void put(const std::array<Governing, LANES>& best, std::size_t first, std::size_t filled,
             Direction direction)
    {
        const bool isMax = direction == Direction::Max;
        for (std::size_t lane = 0; lane < filled; ++lane) {
            Extremes& extremes = m_result.extremes[first + lane];
            (isMax ? extremes.max : extremes.min) = extremeOf(best[lane]);
            int* const choice =
                m_result.choices.data() + (2 * (first + lane) + (isMax ? 0 : 1)) * m_result.width;
            std::copy(best[lane].acts.begin(), best[lane].acts.end(), choice);
        }
    }

    ResponseBlock m_block;
    ManyExtremes& m_result;
};

} // namespace

Envelope::Envelope(const Plan& plan, const std::vector<int>& columns)
    : m_plan(plan), m_columns(placesOf(plan.prepared, columns, m_missing)), m_block(plan, m_columns)
{
}

std::vector<double> Envelope::responses(const Member& member, const double* row) const
{
    std::vector<double> result;
    result.reserve(static_cast<std::size_t>(member.count));
    for (int i = member.first; i < member.first + member.count; ++i) {
        result.push_back(row[m_columns[static_cast<std::size_t>(i)]]);
    }
    return result;
}

/// @return null when a number is not finite
const Governing* Envelope::governing(const double* row, Direction direction)
{
    return m_block.read({row, row, row, row}) ? &m_block.solve(direction).front() : nullptr;
}

std::optional<Extremes> Envelope::extremes(const double* row)
{
    const Governing* const max = governing(row, Direction::Max);
    if (!max) {
        return std::nullopt;
    }
    Extremes result;
    result.max = extremeOf(*max);
    result.min = extremeOf(m_block.solve(Direction::Min).front());
    return result;
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
    const Governing* const best = governing(row, direction);
    if (!best || best->expression < 0) {
        return std::nullopt;
    }
    return combination(row, direction, best->expression, best->acts);
}

Combination Envelope::combination(const double* row, Direction direction, int expression,
                                  const std::vector<int>& acts) const
{
    Combination result;
    result.expression = expression;
    for (const int place : acts) {
        if (place < 0) {
            continue;
        }
        const Act& act = m_plan.acts[static_cast<std::size_t>(place)];
        const Member& member = m_plan.prepared.members[static_cast<std::size_t>(act.member)];
        std::vector<double> rows = responses(member, row);
        for (double& each : rows) {
            each = direction == Direction::Max ? each : -each;
        }
        addShares(m_plan.prepared, member, chooseFactors(act.pattern, rows), result.key);
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

std::optional<ManyExtremes> extremesOfAll(const Plan& plan, const std::vector<int>& columns,
                                          const double* rows, std::size_t count, unsigned threads)
{
    constexpr std::size_t CHUNK = 64 * LANES; // rows that a thread takes at a time
    std::vector<int> missing;
    const std::vector<std::size_t> places = placesOf(plan.prepared, columns, missing);
    ManyExtremes result;
    result.extremes.resize(count);
    result.width = plan.prepared.units.size();
    result.choices.assign(2 * count * result.width, -1);
    std::atomic<std::size_t> next{0};
    std::atomic<bool> isFinite{true};
    const auto work = [&] {
        Filler filler(plan, places, result);
        for (std::size_t begin; (begin = next.fetch_add(CHUNK)) < count && isFinite;) {
            for (std::size_t i = begin; i < std::min(begin + CHUNK, count); i += LANES) {
                if (!filler.fill(rowsFrom(rows, columns.size(), i, count), i)) {
                    isFinite = false;
                }
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
    return isFinite ? std::make_optional(std::move(result)) : std::nullopt;
}

} // namespace mrl::combine
