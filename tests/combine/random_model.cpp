#include "tests/combine/random_model.h"

#include <cmath>
#include <set>
#include <sstream>

#include "combine/checker.h"
#include "combine/count.h"
#include "combine/decimal.h"
#include "combine/enumerate.h"
#include "combine/envelope.h"
#include "lcdata/values/situation_text.h"
#include "tests/combine/oracle.h"

namespace random_model {

using namespace mrl::combine;

namespace {

class Dice
{
  public:
    explicit Dice(std::mt19937& random) : m_random(random) {}

    int below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_random); }
    bool oneIn(int n) { return below(n) == 0; }
    template <class T>
    T of(const std::vector<T>& list)
    {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

  private:
    std::mt19937& m_random;
};

const std::vector<std::string> VARIABLE{"Q", "Q_A", "Q_B", "S", "S_H", "W", "T", "L_1", "L_2"};

Factors factorsOf(Dice& dice, Category category)
{
    const bool isPermanent = category == Category::Permanent || category == Category::Prestress;
    const float gamu = dice.of<float>({1.5f, 1.35f, 1.0f, 1.1f});
    const float gamf =
        isPermanent ? dice.of<float>({1.0f, 0.9f, gamu, 0.0f}) : dice.of<float>({0.0f, 0.0f, 1.0f, 0.5f});
    return {gamu,
            gamf,
            dice.of<float>({0.0f, 1.0f, 0.001f, 1.2f}),
            dice.of<float>({0.7f, 0.6f, 1.0f, 0.0f, 1.2f}),
            dice.of<float>({0.5f, 0.2f, 0.0f}),
            dice.of<float>({0.3f, 0.5f, 0.0f}),
            dice.of<float>({0.8f, 0.6f})};
}

void addActions(Dice& dice, int size, Model& model)
{
    const std::vector<Superposition> codes{
        LC_SUPERPOSITION_PERM, LC_SUPERPOSITION_COND, LC_SUPERPOSITION_EXCL, LC_SUPERPOSITION_UNSI,
        LC_SUPERPOSITION_USEX, LC_SUPERPOSITION_ALEX, LC_SUPERPOSITION_EXEX, LC_SUPERPOSITION_PERC};
    std::vector<std::pair<std::string, Category>> names{
        {"G", Category::Permanent},  {"G_1", Category::Permanent},  {"P", Category::Prestress},
        {"A", Category::Accidental}, {"A_F", Category::Accidental}, {"E", Category::Seismic}};
    for (const std::string& name : VARIABLE) {
        names.emplace_back(name, Category::Variable);
    }
    const bool areGrouped = dice.oneIn(2);
    for (const auto& [name, category] : names) {
        if (dice.below(size + 2) >= size) { // the larger, the more actions
            continue;
        }
        const bool isPool = name.rfind("L_", 0) == 0 && !dice.oneIn(3);
        Action action{name, category, isPool ? LC_SUPERPOSITION_EXEX : dice.of(codes), 0,
                      factorsOf(dice, category)};
        action.group = category == Category::Variable && areGrouped && dice.oneIn(2) ? 1 + dice.below(3) : 0;
        model.actions.push_back(action);
    }
}

void addLoadCases(Dice& dice, Model& model)
{
    int number = 1;
    for (const Action& action : model.actions) {
        const int count = dice.below(3) + (dice.oneIn(4) ? 1 : 0);
        for (int i = 0; i < count; ++i) {
            LoadCase loadCase;
            loadCase.number = number;
            loadCase.action = action.name;
            model.loadCases.push_back(loadCase);
            number += 1 + dice.below(3);
        }
    }
    if (dice.oneIn(5)) {
        LoadCase loadCase;
        loadCase.number = number++;
        loadCase.own = factorsOf(dice, dice.oneIn(2) ? Category::Permanent : Category::Variable);
        model.loadCases.push_back(loadCase);
    }
    if (dice.oneIn(5)) {
        LoadCase loadCase;
        loadCase.number = number++;
        loadCase.isImperfection = true;
        model.loadCases.push_back(loadCase);
    }
    for (std::size_t i = model.loadCases.size(); i > 1; --i) { // in any order
        std::swap(model.loadCases[i - 1],
                  model.loadCases[static_cast<std::size_t>(dice.below(static_cast<int>(i)))]);
    }
}

using Entries = std::vector<LCM_TextEntry>;

void variableEntries(Dice& dice, Entries& entries)
{
    const std::vector<std::pair<std::string, std::string>> kinds{{"KFI*Gamu", "KFI*Gamu*Psi0"},
                                                                 {"KFI*Gamu*Psi0", "KFI*Gamu*Psi0"},
                                                                 {"1", "Psi0"},
                                                                 {"Psi1", "Psi2"},
                                                                 {"Psi2", "Psi2"},
                                                                 {"Psi1s", "Psi1"},
                                                                 {"none", "Psi2"},
                                                                 {"none", "none"},
                                                                 {"Gamu | 0.5", "Gamu*Psi0 | 0.2"}};
    const auto& [lead, others] =
        kinds[static_cast<std::size_t>(dice.oneIn(2) ? 0 : dice.below(static_cast<int>(kinds.size())))];
    entries.push_back({"lead", lead});
    entries.push_back({"others", others});
    if (dice.oneIn(4)) {
        entries.push_back({"lead " + dice.of(VARIABLE), dice.of<std::string>({"none", "1.2*Gamu", "Psi2"})});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"others " + dice.of(VARIABLE), dice.of<std::string>({"none", "0.4", "Gamu*0.3"})});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"others " + dice.of(VARIABLE) + " when " + dice.of(VARIABLE) + " leads",
                           dice.of<std::string>({"0", "0.6*Gamu", "none"})});
        entries.push_back(
            {"others when " + dice.of(VARIABLE) + " leads", dice.of<std::string>({"0.1", "Gamu*0.8"})});
    }
    if (dice.oneIn(5)) {
        entries.push_back({"lead when A_F acts", dice.of<std::string>({"Psi2", "none", "0.9"})});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"short", dice.of<std::string>({"S, W, T", "Q, S, L_1", "W"})});
        entries.push_back({"second", dice.of<std::string>({"KFI*Gamu*0.3", "0", "none"})});
    }
}

std::string randomSum(Dice& dice)
{
    std::vector<std::string> names{"Q", "S", "W", "T", "L", "L_1", "Q_A"};
    std::string text;
    while (!names.empty() && !dice.oneIn(4)) {
        std::string bracket;
        for (int i = 0; i <= dice.below(3) && !names.empty(); ++i) {
            const auto at = static_cast<std::size_t>(dice.below(static_cast<int>(names.size())));
            bracket += (bracket.empty() ? "" : " or ") +
                       dice.of<std::string>({"1.6*", "0.5*", "KFI*Gamu*", ""}) + names[at];
            names.erase(names.begin() + static_cast<std::ptrdiff_t>(at));
        }
        const bool isBracket = bracket.find(" or ") != std::string::npos;
        text += (text.empty() ? "" : " + ") + (isBracket ? "(" + bracket + ")" : bracket);
    }
    return text.empty() ? "0" : text;
}

Entries expressionEntries(Dice& dice, bool isAccidental)
{
    Entries entries;
    entries.push_back(
        {"G", dice.of<std::string>({"KFI*Gamu | Gamf", "KFI*XSI*Gamu | Gamf", "1", "1.2 | 0.9", "none"})});
    if (dice.oneIn(4)) {
        entries.push_back({"G G_1", dice.of<std::string>({"1.4 | 0", "none"})});
    }
    entries.push_back({"P", dice.of<std::string>({"Gamu | Gamf", "1"})});
    entries.push_back({"A", isAccidental && !dice.oneIn(4) ? "Gama" : "none"});
    entries.push_back({"E", isAccidental && !dice.oneIn(4) ? "Gama" : "none"});
    if (dice.oneIn(3)) {
        entries.push_back({"I", "1"});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"sum", randomSum(dice)});
    } else {
        variableEntries(dice, entries);
    }
    return entries;
}

Entries wholeEntries(Dice& dice)
{
    Entries entries{{"kind", "ultimate"}};
    if (dice.oneIn(3)) {
        entries.push_back({"groups", dice.of<std::string>({"exclude", "apart", "together"})});
    }
    if (dice.oneIn(3)) {
        entries.push_back({"at-most", std::to_string(1 + dice.below(3))});
    }
    if (dice.oneIn(5)) {
        entries.push_back({"always", "yes"});
    }
    if (dice.oneIn(3)) {
        entries.push_back({"may-be-none", "yes"});
    }
    if (dice.oneIn(3)) {
        entries.push_back({"components", dice.of<std::string>({"1, 0.3", "1, 0", "0.5, 0.5"})});
    }
    return entries;
}

} // namespace

Case make(std::mt19937& random, int size)
{
    Dice dice(random);
    Case each;
    each.model.constants = {{"KFI", dice.of<float>({1.0f, 1.1f})}, {"XSI", 0.85f}};
    addActions(dice, size, each.model);
    addLoadCases(dice, each.model);
    const bool isAccidental = dice.oneIn(3);
    std::vector<LCM_SituationSection> sections{{"s", wholeEntries(dice)}};
    const int expressions = 1 + (dice.oneIn(3) ? 1 + dice.below(2) : 0);
    for (int i = 0; i < expressions; ++i) {
        sections.push_back({"s / " + std::to_string(i), expressionEntries(dice, isAccidental)});
    }
    const LCM_SituationsRead read = lcm_read_situations(sections, {"KFI", "XSI"});
    for (const LCM_SituationFinding& finding : read.findings) {
        each.text.push_back("FINDING " + finding.message);
    }
    for (const LCM_SituationSection& section : sections) {
        each.text.push_back("[SITUATION " + section.name + "]");
        for (const LCM_TextEntry& entry : section.entries) {
            each.text.push_back(entry.key + " = " + entry.value);
        }
    }
    each.situation = read.situations.front();
    return each;
}

std::string describe(const Case& each)
{
    std::ostringstream out;
    for (const std::string& line : each.text) {
        out << line << '\n';
    }
    for (const Action& action : each.model.actions) {
        out << action.name << " category " << static_cast<int>(action.category) << " code "
            << static_cast<int>(action.superposition) << " group " << action.group << " factors";
        for (const float factor : action.factors) {
            out << ' ' << factor;
        }
        out << " cases";
        for (const LoadCase& loadCase : each.model.loadCases) {
            if (loadCase.action == action.name) {
                out << ' ' << loadCase.number;
            }
        }
        out << '\n';
    }
    return out.str();
}

namespace {

struct Truth
{
    std::vector<std::vector<double>> choices;
    std::vector<BigInt> ofExpressions;
    std::vector<std::set<std::vector<double>>> distinct;
    std::set<std::vector<double>> all;
};

Truth truthOf(const Case& each)
{
    Truth truth;
    truth.ofExpressions.resize(each.situation.expressions.size());
    truth.distinct.resize(each.situation.expressions.size());
    oracle::all(each.model, each.situation, [&](const oracle::Found& found) {
        const auto place = static_cast<std::size_t>(found.expression);
        ++truth.ofExpressions[place];
        truth.distinct[place].insert(found.factors);
        truth.all.insert(found.factors);
        truth.choices.push_back(found.factors);
    });
    return truth;
}

std::vector<double> factorsOf(const Model& model, const Key& key)
{
    std::vector<double> factors;
    for (const LoadCase& loadCase : model.loadCases) {
        double factor = 0;
        for (const Share& share : key) {
            factor += share.number == loadCase.number ? share.factor : 0;
        }
        factors.push_back(factor);
    }
    return factors;
}

std::string compareCounts(const Plan& plan, const Truth& truth)
{
    const Count choices = countChoices(plan);
    const Count distinct = countDistinct(plan);
    std::ostringstream out;
    for (std::size_t i = 0; i < truth.distinct.size(); ++i) {
        if (choices.ofExpressions[i] != truth.ofExpressions[i]) {
            out << "expression " << i << ": choices " << choices.ofExpressions[i] << ", enumerated "
                << truth.ofExpressions[i];
            return out.str();
        }
        if (distinct.ofExpressions[i] != truth.distinct[i].size()) {
            out << "expression " << i << ": distinct " << distinct.ofExpressions[i] << ", enumerated "
                << truth.distinct[i].size();
            return out.str();
        }
    }
    if (distinct.all != truth.all.size()) {
        out << "distinct " << distinct.all << ", enumerated " << truth.all.size();
    }
    return out.str();
}

std::string compareList(const Case& each, const Plan& plan, const Truth& truth)
{
    std::multiset<std::vector<double>> listed;
    enumerate(plan, 1000000, [&](const Combination& combination) {
        listed.insert(factorsOf(each.model, combination.key));
        return true;
    });
    return listed == std::multiset<std::vector<double>>(truth.choices.begin(), truth.choices.end())
               ? ""
               : "the list differs";
}

double valueOf(const std::vector<double>& factors, const std::vector<double>& row)
{
    double sum = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        sum += factors[i] * row[i];
    }
    return sum;
}

/// One extreme of a response; the minimum as the maximum of the response with the other sign.
std::string compareExtreme(const Case& each, const Truth& truth, const std::vector<double>& row,
                           const Extreme& extreme, const std::optional<Combination>& combination, bool isMax)
{
    const double sign = isMax ? 1 : -1;
    double best = -INFINITY;
    double largest = 1;
    for (const std::vector<double>& factors : truth.all) {
        best = std::max(best, sign * valueOf(factors, row));
    }
    std::map<int, double> responses;
    for (std::size_t i = 0; i < row.size(); ++i) {
        largest = std::max(largest, 2 * std::fabs(row[i]));
        responses[each.model.loadCases[i].number] = sign * row[i];
    }
    const Checker checker(each.model, each.situation);
    std::ostringstream out;
    if (truth.all.empty()) {
        const bool isNone =
            extreme.expression < 0 && !combination && checker.greatest(responses) == -INFINITY;
        return isNone ? "" : "a value where there is no combination";
    }
    if (!combination || std::fabs(sign * extreme.value - best) > 1e-9 * largest) {
        out << (isMax ? "max " : "min ") << extreme.value << ", enumerated " << sign * best;
        return out.str();
    }
    const std::vector<double> factors = factorsOf(each.model, combination->key);
    if (std::fabs(sign * valueOf(factors, row) - best) > 1e-11 * largest || truth.all.count(factors) == 0) {
        return "key " + keyText(combination->key) + " isn't the governing one";
    }
    if (readKey(keyText(combination->key)) != combination->key) {
        return "key " + keyText(combination->key) + " doesn't read back";
    }
    if (!checker.allows(combination->key)) {
        return "the checker doesn't allow " + keyText(combination->key);
    }
    if (std::fabs(checker.greatest(responses) - best) > 1e-9 * largest) {
        out << "the checker finds " << checker.greatest(responses) << ", enumerated " << best << " key "
            << keyText(combination->key);
    }
    return out.str();
}

/// The checker allows exactly the keys that there are: those of the list changed a little are looked up in it.
std::string compareChecker(const Case& each, const Truth& truth, Dice& dice)
{
    if (truth.choices.empty() || each.model.loadCases.empty()) {
        return "";
    }
    const Checker checker(each.model, each.situation);
    for (int i = 0; i < 20; ++i) {
        std::vector<double> factors = dice.of(truth.choices);
        const std::vector<double> other = dice.of(truth.choices);
        const auto at = static_cast<std::size_t>(dice.below(static_cast<int>(factors.size())));
        factors[at] = other[at];
        Key key;
        for (std::size_t k = 0; k < factors.size(); ++k) {
            if (factors[k] != 0) {
                key.push_back({each.model.loadCases[k].number, factors[k]});
            }
        }
        if (checker.allows(key) != (truth.all.count(factors) > 0)) {
            return "the checker is wrong about " + keyText(key);
        }
    }
    return "";
}

} // namespace

std::string compare(const Case& each, const Plan& plan, std::mt19937& random)
{
    Dice dice(random);
    if (!plan.prepared.refused.empty()) {
        return "refused: " + plan.prepared.refused.front().reason;
    }
    const Truth truth = truthOf(each);
    std::string wrong = compareCounts(plan, truth);
    wrong = wrong.empty() && truth.choices.size() < 100000 ? compareList(each, plan, truth) : wrong;
    wrong = wrong.empty() ? compareChecker(each, truth, dice) : wrong;
    std::vector<int> columns;
    for (const LoadCase& loadCase : each.model.loadCases) {
        columns.push_back(loadCase.number);
    }
    Envelope envelope(plan, columns);
    for (int i = 0; i < 4 && wrong.empty(); ++i) {
        std::vector<double> row(columns.size());
        for (double& response : row) {
            response = dice.oneIn(6)   ? 0
                       : dice.oneIn(3) ? dice.below(5) - 2
                                       : (dice.below(20001) - 10000) / 1000.0;
        }
        const Extremes extremes = envelope.extremes(row.data()).value_or(Extremes{});
        wrong = compareExtreme(each, truth, row, extremes.max,
                               envelope.combination(row.data(), Envelope::Direction::Max), true);
        if (wrong.empty()) {
            wrong = compareExtreme(each, truth, row, extremes.min,
                                   envelope.combination(row.data(), Envelope::Direction::Min), false);
        }
    }
    return wrong;
}

} // namespace random_model
