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

Valuer::Valuer(const Pattern& pattern)
    : m_pattern(pattern), m_marks(pattern.marks), m_high(high(pattern.stay)), m_low(low(pattern.stay))
{
    if (m_marks != Marks::None) {
        m_highMark = high(pattern.mark);
        m_lowMark = low(pattern.mark);
    }
    if (m_marks == Marks::Some) {
        m_high = std::max(m_high, m_highMark);
        m_low = std::min(m_low, m_lowMark);
    }
}

std::vector<double> Valuer::choose(const std::vector<double>& responses) const
{
    std::vector<double> factors(responses.size());
    std::size_t best = 0;
    bool isMarked = false;
    for (std::size_t i = 0; i < responses.size(); ++i) {
        const double response = responses[i];
        factors[i] = bestOf(m_pattern.stay, response);
        if (m_marks == Marks::Some) {
            const double mark = bestOf(m_pattern.mark, response);
            if (mark * response > factors[i] * response) {
                factors[i] = mark;
                isMarked = true;
            }
        }
        best = gain(response) > gain(responses[best]) ? i : best;
    }
    if (m_marks == Marks::One || (m_marks == Marks::Some && !isMarked)) {
        factors[best] = bestOf(m_pattern.mark, responses[best]);
    }
    return factors;
}

} // namespace mrl::combine
