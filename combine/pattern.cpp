#include "combine/pattern.h"

#include <algorithm>

namespace mrl::combine {

namespace {

/// The factor of a list that gives most; of equal ones the first.
double bestOf(const std::vector<double>& factors, double response)
{
    return *std::max_element(factors.begin(), factors.end(),
                             [&](double a, double b) { return a * response < b * response; });
}

double high(const std::vector<double>& factors) { return *std::max_element(factors.begin(), factors.end()); }
double low(const std::vector<double>& factors) { return *std::min_element(factors.begin(), factors.end()); }

/// What a load case of this response gains by being marked, against what it takes without.
double gain(const Rates& rates, double response)
{
    const double marked = std::max(rates.highMark * response, rates.lowMark * response);
    return marked - (response > 0 ? rates.high : rates.low) * response;
}

} // namespace

BigInt ways(const Pattern& pattern, int loadCases)
{
    const BigInt stay = pattern.stay.size();
    const BigInt mark = pattern.mark.size();
    const auto n = static_cast<unsigned>(loadCases);
    switch (pattern.marks) {
    case Marks::None:
        return pow(stay, n);
    case Marks::One:
        return pow(stay, n - 1) * (mark * n);
    case Marks::Some:
        break;
    }
    return pow(BigInt(stay + mark), n) - pow(stay, n);
}

Rates ratesOf(const Pattern& pattern)
{
    Rates rates{pattern.marks, high(pattern.stay), low(pattern.stay), 0, 0};
    if (rates.marks != Marks::None) {
        rates.highMark = high(pattern.mark);
        rates.lowMark = low(pattern.mark);
    }
    if (rates.marks == Marks::Some) {
        rates.high = std::max(rates.high, rates.highMark);
        rates.low = std::min(rates.low, rates.lowMark);
    }
    return rates;
}

std::vector<double> chooseFactors(const Pattern& pattern, const std::vector<double>& responses)
{
    const Rates rates = ratesOf(pattern);
    std::vector<double> factors(responses.size());
    std::size_t best = 0;
    bool isMarked = false;
    for (std::size_t i = 0; i < responses.size(); ++i) {
        const double response = responses[i];
        factors[i] = bestOf(pattern.stay, response);
        if (rates.marks == Marks::Some) {
            const double mark = bestOf(pattern.mark, response);
            if (mark * response > factors[i] * response) {
                factors[i] = mark;
                isMarked = true;
            }
        }
        best = gain(rates, response) > gain(rates, responses[best]) ? i : best;
    }
    if (rates.marks == Marks::One || (rates.marks == Marks::Some && !isMarked)) {
        factors[best] = bestOf(pattern.mark, responses[best]);
    }
    return factors;
}

} // namespace mrl::combine
