#include <cmath>
#include <set>
#include <sstream>

#include "combine/checker.h"
#include "combine/count.h"
#include "combine/decimal.h"
#include "combine/enumerate.h"
#include "combine/envelope.h"
#include "tests/combine/dice.h"
#include "tests/combine/oracle.h"
#include "tests/combine/random_model.h"

namespace random_model {

using namespace mrl::combine;

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
