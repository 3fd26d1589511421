#pragma once

/// How the load cases of one action take part in a combination. All superposition codes come down to this: each load
/// case takes one of the factors of `stay`, or one of `mark` and is marked; the number of marked ones is none, one,
/// or at least one. EXCL as the leading action is stay {0}, mark {1.5}, Marks::One; PERC is stay {1.35, 1}, Marks::None.

#include <boost/multiprecision/cpp_int.hpp>

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

/// The number of ways in which load cases can take part; the number of load cases is above 0.
BigInt ways(const Pattern& pattern, int loadCases);

/// What the load cases of a pattern take, by the sign of their response. The greatest sum is exact: the gain of marking
/// a load case is a convex function of its response, so the best one to mark is the greatest or the least.
struct Rates
{
    Marks marks = Marks::None;
    double high = 0; ///< what a positive response takes where no mark is asked for
    double low = 0;  ///< what a negative one takes
    double highMark = 0;
    double lowMark = 0;
};

Rates ratesOf(const Pattern& pattern);

/// The factors that give the greatest sum, by the responses of the load cases. Of equal ones the unfavourable factor,
/// no mark, and the first load case.
std::vector<double> chooseFactors(const Pattern& pattern, const std::vector<double>& responses);

} // namespace mrl::combine
