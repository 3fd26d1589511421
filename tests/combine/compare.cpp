#include <algorithm>
#include <climits>
#include <cmath>
#include <sstream>
#include <stdexcept>

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

/// The factors of a combination: a letter for each load case.
using Word = std::string;

class Alphabet
{
  public:
    Word word(const std::vector<double>& factors)
    {
        Word word;
        for (const double factor : factors) {
            word += letter(factor);
        }
        return word;
    }
    double factor(char letter) const { return m_factors[static_cast<unsigned char>(letter)]; }
    const std::vector<double>& factors() const { return m_factors; }

  private:
    char letter(double factor)
    {
        const auto found = std::find(m_factors.begin(), m_factors.end(), factor);
        const auto place = static_cast<std::size_t>(found - m_factors.begin());
        if (found == m_factors.end()) {
            m_factors.push_back(factor);
        }
        if (place > UCHAR_MAX) {
            throw std::length_error("a model has more than 256 factors");
        }
        return static_cast<char>(place);
    }

    std::vector<double> m_factors;
};

struct Truth
{
    Alphabet alphabet;
    std::vector<std::vector<Word>> ofExpressions; ///< all choices, sorted
    std::vector<Word> all;                        ///< the different ones, sorted

    bool holds(const Word& word) const { return std::binary_search(all.begin(), all.end(), word); }
    std::size_t choices() const
    {
        std::size_t sum = 0;
        for (const std::vector<Word>& words : ofExpressions) {
            sum += words.size();
        }
        return sum;
    }
};

std::vector<Word> different(std::vector<Word> sorted)
{
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    return sorted;
}

Truth truthOf(const Case& each)
{
    Truth truth;
    truth.ofExpressions.resize(each.situation.expressions.size());
    oracle::all(each.model, each.situation, [&](const oracle::Found& found) {
        truth.ofExpressions[static_cast<std::size_t>(found.expression)].push_back(
            truth.alphabet.word(found.factors));
    });
    for (std::vector<Word>& words : truth.ofExpressions) {
        std::sort(words.begin(), words.end());
        const std::vector<Word> once = different(words);
        truth.all.insert(truth.all.end(), once.begin(), once.end());
    }
    std::sort(truth.all.begin(), truth.all.end());
    truth.all = different(std::move(truth.all));
    return truth;
}

std::vector<double> factorsOf(const Model& model, const Key& key)
{
    std::map<int, double> byNumber;
    for (const Share& share : key) {
        byNumber[share.number] += share.factor;
    }
    std::vector<double> factors;
    for (const LoadCase& loadCase : model.loadCases) {
        const auto found = byNumber.find(loadCase.number);
        factors.push_back(found == byNumber.end() ? 0 : found->second);
    }
    return factors;
}

std::string compareCounts(const Plan& plan, const Truth& truth)
{
    const Count choices = countChoices(plan);
    const Count distinct = countDistinct(plan);
    std::ostringstream out;
    for (std::size_t i = 0; i < truth.ofExpressions.size(); ++i) {
        const std::vector<Word>& words = truth.ofExpressions[i];
        if (choices.ofExpressions[i] != words.size()) {
            out << "expression " << i << ": choices " << choices.ofExpressions[i] << ", enumerated "
                << words.size();
            return out.str();
        }
        const std::size_t once = different(words).size();
        if (distinct.ofExpressions[i] != once) {
            out << "expression " << i << ": distinct " << distinct.ofExpressions[i] << ", enumerated "
                << once;
            return out.str();
        }
    }
    if (distinct.all != truth.all.size()) {
        out << "distinct " << distinct.all << ", enumerated " << truth.all.size();
    }
    return out.str();
}

std::string compareList(const Case& each, const Plan& plan, Truth& truth)
{
    std::vector<std::vector<Word>> listed(truth.ofExpressions.size());
    enumerate(plan, 1000000, [&](const Combination& combination) {
        listed[static_cast<std::size_t>(combination.expression)].push_back(
            truth.alphabet.word(factorsOf(each.model, combination.key)));
        return true;
    });
    for (std::vector<Word>& words : listed) {
        std::sort(words.begin(), words.end());
    }
    return listed == truth.ofExpressions ? "" : "the list differs";
}

/// The greatest value of a response.
double greatestOf(const Truth& truth, const std::vector<double>& row)
{
    const std::size_t letters = truth.alphabet.factors().size();
    std::vector<double> terms;
    for (const double response : row) {
        for (const double factor : truth.alphabet.factors()) {
            terms.push_back(factor * response);
        }
    }
    double best = -INFINITY;
    for (const Word& word : truth.all) {
        double sum = 0;
        for (std::size_t i = 0; i < word.size(); ++i) {
            sum += terms[i * letters + static_cast<unsigned char>(word[i])];
        }
        best = std::max(best, sum);
    }
    return best;
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
std::string compareExtreme(const Case& each, Truth& truth, const std::vector<double>& row,
                           const Extreme& extreme, const std::optional<Combination>& combination, bool isMax)
{
    const double sign = isMax ? 1 : -1;
    double largest = 1;
    std::vector<double> signedRow;
    std::map<int, double> responses;
    for (std::size_t i = 0; i < row.size(); ++i) {
        largest = std::max(largest, 2 * std::fabs(row[i]));
        signedRow.push_back(sign * row[i]);
        responses[each.model.loadCases[i].number] = sign * row[i];
    }
    const double best = greatestOf(truth, signedRow);
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
    if (std::fabs(sign * valueOf(factors, row) - best) > 1e-11 * largest ||
        !truth.holds(truth.alphabet.word(factors))) {
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
std::string compareChecker(const Case& each, Truth& truth, Dice& dice)
{
    if (truth.all.empty() || each.model.loadCases.empty()) {
        return "";
    }
    const Checker checker(each.model, each.situation);
    for (int i = 0; i < 20; ++i) {
        Word word = dice.of(truth.all);
        const Word other = dice.of(truth.all);
        const auto at = static_cast<std::size_t>(dice.below(static_cast<int>(word.size())));
        word[at] = other[at];
        Key key;
        for (std::size_t k = 0; k < word.size(); ++k) {
            if (const double factor = truth.alphabet.factor(word[k]); factor != 0) {
                key.push_back({each.model.loadCases[k].number, factor});
            }
        }
        if (checker.allows(key) != truth.holds(word)) {
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
    Truth truth = truthOf(each);
    std::string wrong = compareCounts(plan, truth);
    wrong = wrong.empty() && truth.choices() < 100000 ? compareList(each, plan, truth) : wrong;
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
