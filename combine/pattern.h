#pragma once

/// How the load cases of one action take part in a combination. All superposition codes come down to this: each load
/// case takes one of the factors of `stay`, or one of `mark` and is marked; the number of marked ones is none, one,
/// or at least one. EXCL as the leading action is stay {0}, mark {1.5}, Marks::One; PERC is stay {1.35, 1}, Marks::None.

#include <boost/multiprecision/cpp_int.hpp>

#include <limits>
#include <vector>

namespace mrl::combine {

/// A whole number of any size.
using BigInt =
    boost::multiprecision::number<boost::multiprecision::cpp_int_backend<>, boost::multiprecision::et_off>;

enum class Marks { None, One, Some };

struct Pattern
{
    std::vector<double> stay;
    std::vector<double> mark;
    Marks marks = Marks::None;
};
inline bool operator==(const Pattern& a, const Pattern& b)
{
    return a.stay == b.stay && a.mark == b.mark && a.marks == b.marks;
}

/// What the best of a pattern needs to know of the load cases of one action, by the sign of their responses.
struct Stats
{
    double positive = 0; ///< sum of the responses above 0
    double negative = 0; ///< sum of those below
    double greatest = -std::numeric_limits<double>::infinity();
    double least = std::numeric_limits<double>::infinity();
};

/// The stats of the same responses with the other sign.
inline Stats mirrored(const Stats& stats)
{
    return {-stats.negative, -stats.positive, -stats.least, -stats.greatest};
}

/// The number of ways in which load cases can take part; the number of load cases is above 0.
BigInt ways(const Pattern& pattern, int loadCases);

/// A pattern, ready to be valued.
class Valuer
{
  public:
    explicit Valuer(const Pattern& pattern);

    /// The greatest sum of factor times response. Exact, since the gain of marking a load case is a convex function of
    /// its response: the best one is the greatest or the least.
    double best(const Stats& stats) const
    {
        const double all = m_high * stats.positive + m_low * stats.negative;
        if (m_marks == Marks::None) {
            return all;
        }
        const double top = gain(stats.greatest);
        const double bottom = gain(stats.least);
        return all + (top > bottom ? top : bottom);
    }

    /// The factors that give the greatest sum, by the responses of the load cases. Of equal ones the unfavourable
    /// factor, no mark, and the first load case.
    std::vector<double> choose(const std::vector<double>& responses) const;

  private:
    /// What a load case of this response gains by being marked, against what `best` has put in for it.
    double gain(double response) const
    {
        const double high = m_highMark * response;
        const double low = m_lowMark * response;
        return (high > low ? high : low) - (response > 0 ? m_high : m_low) * response;
    }

    Pattern m_pattern;
    Marks m_marks;
    double m_high; ///< what a positive response takes where no mark is asked for
    double m_low;  ///< what a negative one takes
    double m_highMark = 0;
    double m_lowMark = 0;
};

} // namespace mrl::combine
