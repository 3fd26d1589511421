#include <algorithm>
#include <random>
#include <thread>
#include <vector>

#include "bench/figure.h"
#include "combine/enumerate.h"
#include "combine/envelope.h"
#include "lcdata/values/situation_text.h"

namespace {

using namespace mrl::combine;

LCM_Situation persistent()
{
    return lcm_read_situations({{"persistent",
                                 {{"kind", "ultimate"},
                                  {"G", "KFI*Gamu | Gamf"},
                                  {"P", "Gamu | Gamf"},
                                  {"lead", "KFI*Gamu"},
                                  {"others", "KFI*Gamu*Psi0"},
                                  {"A", "none"},
                                  {"E", "none"}}}},
                               {"KFI"})
        .situations.front();
}

constexpr int ACTIONS = 50;

/// Load cases in 50 actions of all variable codes, three of them permanent.
Model modelOf(int loadCases)
{
    Model model;
    model.constants = {{"KFI", 1.0f}};
    const Superposition codes[] = {LC_SUPERPOSITION_COND, LC_SUPERPOSITION_EXCL, LC_SUPERPOSITION_UNSI,
                                   LC_SUPERPOSITION_USEX};
    for (int i = 0; i < ACTIONS; ++i) {
        const bool isPermanent = i < 3;
        model.actions.push_back(
            {"Q_" + std::to_string(i),
             isPermanent ? Category::Permanent : Category::Variable,
             isPermanent ? LC_SUPERPOSITION_PERC : codes[i % 4],
             0,
             {isPermanent ? 1.35f : 1.5f, isPermanent ? 1.0f : 0.0f, 1, 0.7f, 0.5f, 0.3f, 0}});
    }
    for (int i = 0; i < loadCases; ++i) {
        LoadCase loadCase;
        loadCase.number = i + 1;
        loadCase.action = model.actions[static_cast<std::size_t>(i * ACTIONS / loadCases)].name;
        model.loadCases.push_back(loadCase);
    }
    return model;
}

std::vector<int> columnsOf(int loadCases)
{
    std::vector<int> columns(static_cast<std::size_t>(loadCases));
    for (int i = 0; i < loadCases; ++i) {
        columns[static_cast<std::size_t>(i)] = i + 1;
    }
    return columns;
}

std::vector<double> randomRows(std::size_t numbers)
{
    std::vector<double> rows(numbers);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> response(-100, 100);
    std::generate(rows.begin(), rows.end(), [&] { return response(random); });
    return rows;
}

/// What a plain loop does: adds the matrix up, row by row.
void addUp(const std::vector<double>& rows, std::size_t columns)
{
    for (std::size_t row = 0; row < rows.size(); row += columns) {
        double sum = 0;
        for (std::size_t i = 0; i < columns; ++i) {
            sum += rows[row + i];
        }
        bench::keep(sum);
    }
}

/// Both extremes of n responses to 1,000 load cases, with value, expression, leading action and governing choice of
/// each. Raw: the sum of the same numbers.
class Responses
{
  public:
    explicit Responses(int n, unsigned threads = 1)
        : m_plan(plan(modelOf(LOAD_CASES), persistent())),
          m_rows(randomRows(static_cast<std::size_t>(n) * LOAD_CASES)), m_count(static_cast<std::size_t>(n)),
          m_threads(threads)
    {
    }
    void ours() { bench::keep(extremesOfAll(m_plan, m_columns, m_rows.data(), m_count, m_threads)); }
    void raw() { addUp(m_rows, LOAD_CASES); }

  protected:
    static constexpr int LOAD_CASES = 1000;
    Plan m_plan;
    std::vector<int> m_columns = columnsOf(LOAD_CASES);
    std::vector<double> m_rows;
    std::size_t m_count;
    unsigned m_threads;
};
const bench::Timed<Responses> responses("combine.responses", 4.0, {1000, 10000, 100000});

/// n load cases, 1,000 responses: what a response costs grows in step with the load cases.
class LoadCases
{
  public:
    explicit LoadCases(int n)
        : m_plan(plan(modelOf(n), persistent())), m_columns(columnsOf(n)),
          m_rows(randomRows(ROWS * static_cast<std::size_t>(n)))
    {
    }
    void ours() { bench::keep(extremesOfAll(m_plan, m_columns, m_rows.data(), ROWS, 1)); }
    void raw() { addUp(m_rows, m_columns.size()); }

  private:
    static constexpr std::size_t ROWS = 1000;
    Plan m_plan;
    std::vector<int> m_columns;
    std::vector<double> m_rows;
};
const bench::Timed<LoadCases> loadCases("combine.load_cases", 4.0, {1000, 4000, 16000});

/// All threads of the machine. Raw: the same on one. Only the wall clock shows it (bench/ratios --wall).
class Threads : public Responses
{
  public:
    explicit Threads(int n) : Responses(n, 0) {}
    void raw() { bench::keep(extremesOfAll(m_plan, m_columns, m_rows.data(), m_count, 1)); }
};
const bench::Timed<Threads> threads("combine.threads", 1.2, {10000});

/// A changed factor on an open page: 10,000 responses to 300 load cases, from the model on. Raw: the sum.
class ChangedFactor
{
  public:
    explicit ChangedFactor(int n)
        : m_model(modelOf(n)), m_columns(columnsOf(n)), m_rows(randomRows(ROWS * static_cast<std::size_t>(n)))
    {
    }
    void ours()
    {
        m_model.actions.back().factors[3] = m_model.actions.back().factors[3] == 0.7f ? 0.8f : 0.7f;
        bench::keep(extremesOfAll(plan(m_model, m_situation), m_columns, m_rows.data(), ROWS, 1));
    }
    void raw() { addUp(m_rows, m_columns.size()); }

  private:
    static constexpr std::size_t ROWS = 10000;
    Model m_model;
    LCM_Situation m_situation = persistent();
    std::vector<int> m_columns;
    std::vector<double> m_rows;
};
const bench::Timed<ChangedFactor> changedFactor("combine.changed_factor", 6.0, {300});

/// A response of a frame of n imposed load cases in one COND action, with three snows, eight winds and two
/// temperatures. Raw: the same by enumeration; the frame of the samples has ten, and some 15 million choices.
class Frame
{
  public:
    explicit Frame(int n)
        : m_plan(plan(model(n), persistent())), m_envelope(m_plan, numbers(n)), m_row(randomRows(200))
    {
    }
    void ours() { bench::keep(m_envelope.extremes(m_row.data())); }
    void raw()
    {
        double best = -1e300;
        enumerate(m_plan, BigInt(1) << 62, [&](const Combination& each) {
            double sum = 0;
            for (const Share& share : each.key) {
                sum += share.factor * m_row[static_cast<std::size_t>(share.number)];
            }
            best = std::max(best, sum);
            return true;
        });
        bench::keep(best);
    }

  private:
    static std::vector<int> numbers(int n) { return columnsOf(n + 16); }
    static Model model(int n)
    {
        Model model;
        model.constants = {{"KFI", 1.0f}};
        const std::vector<std::pair<std::string, int>> actions{
            {"G", 3}, {"Q", n}, {"S", 3}, {"W", 8}, {"T", 2}};
        int number = 0;
        for (const auto& [name, count] : actions) {
            const bool isPermanent = name == "G";
            model.actions.push_back(
                {name,
                 isPermanent ? Category::Permanent : Category::Variable,
                 isPermanent   ? LC_SUPERPOSITION_PERM
                 : name == "Q" ? LC_SUPERPOSITION_COND
                               : LC_SUPERPOSITION_EXCL,
                 0,
                 {isPermanent ? 1.35f : 1.5f, isPermanent ? 1.0f : 0.0f, 1, 0.7f, 0.5f, 0.3f, 0}});
            for (int i = 0; i < count; ++i) {
                LoadCase loadCase;
                loadCase.number = ++number;
                loadCase.action = name;
                model.loadCases.push_back(loadCase);
            }
        }
        return model;
    }

    Plan m_plan;
    Envelope m_envelope;
    std::vector<double> m_row;
};
const bench::Timed<Frame> frame("combine.frame_against_enumeration", 0.0001, {10});

} // namespace
