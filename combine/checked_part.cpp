#include "combine/checked_part.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace mrl::combine {

namespace {

constexpr double TOLERANCE = 1e-12; // of factors that were typed

bool same(double a, double b) { return std::fabs(a - b) <= TOLERANCE; }

/// The factors of one action, and what can be asked of them.
struct FactorList
{
    const std::vector<double>& all;

    bool areOf(std::vector<double> wanted) const
    {
        return std::all_of(all.begin(), all.end(), [&](double factor) {
            return std::any_of(wanted.begin(), wanted.end(), [&](double each) { return same(each, factor); });
        });
    }
    long count(double wanted) const
    {
        return std::count_if(all.begin(), all.end(), [&](double factor) { return same(wanted, factor); });
    }
    /// At least one load case acts, the others are absent.
    bool areSome(double factor) const { return areOf({0, factor}) && count(factor) > 0; }
    bool areOne(double factor) const { return areSome(factor) && (same(factor, 0) || count(factor) == 1); }
    bool areSigned(double factor) const
    {
        return areOf({0, factor, -factor}) && count(factor) + count(-factor) > 0;
    }
    bool areOneSigned(double factor) const { return areOne(factor) || areOne(-factor); }
    bool areComponents(double first, double others) const
    {
        for (std::size_t i = 0; i < all.size(); ++i) {
            std::vector<double> rest = all;
            rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
            if (same(std::fabs(all[i]), first) && FactorList{rest}.areOf({others, -others})) {
                return true;
            }
        }
        return false;
    }
};

double sum(const std::vector<double>& responses, const std::function<double(double)>& each)
{
    double total = 0;
    for (const double response : responses) {
        total += each(response);
    }
    return total;
}

double most(const std::vector<double>& responses, const std::function<double(double)>& each)
{
    double best = -std::numeric_limits<double>::infinity();
    for (const double response : responses) {
        best = std::max(best, each(response));
    }
    return best;
}

} // namespace

Superposition codeThatAlwaysActs(Superposition code)
{
    switch (code) {
    case LC_SUPERPOSITION_COND:
        return LC_SUPERPOSITION_PERM;
    case LC_SUPERPOSITION_EXCL:
    case LC_SUPERPOSITION_EXEX:
        return LC_SUPERPOSITION_ALEX;
    default:
        return code;
    }
}

bool isAlwaysThere(Superposition code)
{
    return code == LC_SUPERPOSITION_PERM || code == LC_SUPERPOSITION_PERC || code == LC_SUPERPOSITION_ALEX;
}

bool permanentMayRest(Superposition code) { return !isAlwaysThere(code) && code != LC_SUPERPOSITION_COND; }

bool excludesSuffixes(Superposition code) { return code == LC_SUPERPOSITION_EXEX; }

bool partFits(const CheckedPart& part, const std::vector<double>& factors)
{
    const FactorList are{factors};
    const double u = part.worse;
    const double f = part.better;
    if (part.first > 0) {
        return are.areComponents(std::fabs(u) * part.first, std::fabs(u) * part.others);
    }
    switch (part.superposition) {
    case LC_SUPERPOSITION_COND:
        return part.isPermanent ? are.areOf({0, u}) : are.areSome(u);
    case LC_SUPERPOSITION_EXCL:
    case LC_SUPERPOSITION_EXEX:
        return are.areOne(u) || (part.isPermanent && are.areOne(f));
    case LC_SUPERPOSITION_ALEX:
        return are.areOne(u) || (!part.leads && are.areOne(f));
    case LC_SUPERPOSITION_UNSI:
        return are.areSigned(u) || (part.isPermanent && are.areSigned(f));
    case LC_SUPERPOSITION_USEX:
        return are.areOneSigned(u) || (part.isPermanent && are.areOneSigned(f));
    case LC_SUPERPOSITION_PERM:
        return are.areOf({u}) || (!part.leads && are.areOf({f}));
    case LC_SUPERPOSITION_PERC:
    case LC_SUPERPOSITION_OLD_PERC:
        break;
    }
    return are.areOf({u, f}) && (!part.leads || are.count(u) > 0);
}

double partGreatest(const CheckedPart& part, const std::vector<double>& responses)
{
    const double u = part.worse;
    const double f = part.better;
    const double worst = part.isPermanent ? std::max(std::fabs(u), std::fabs(f)) : std::fabs(u);
    const auto either = [&](double r) { return std::max(u * r, f * r); };
    const auto unfavourable = [&](double r) { return u * r; };
    if (part.first > 0) {
        return sum(responses, [&](double r) { return std::fabs(u * part.others * r); }) +
               most(responses, [&](double r) { return std::fabs(u * r) * (part.first - part.others); });
    }
    switch (part.superposition) {
    case LC_SUPERPOSITION_COND: {
        const double best = most(responses, unfavourable);
        const double all = sum(responses, [&](double r) { return std::max(0.0, u * r); });
        return part.isPermanent || best >= 0 ? all : best;
    }
    case LC_SUPERPOSITION_EXCL:
    case LC_SUPERPOSITION_EXEX:
        return part.isPermanent ? most(responses, either) : most(responses, unfavourable);
    case LC_SUPERPOSITION_ALEX:
        return part.leads ? most(responses, unfavourable) : most(responses, either);
    case LC_SUPERPOSITION_UNSI:
        return sum(responses, [&](double r) { return worst * std::fabs(r); });
    case LC_SUPERPOSITION_USEX:
        return most(responses, [&](double r) { return worst * std::fabs(r); });
    case LC_SUPERPOSITION_PERM: {
        const double all = sum(responses, [](double r) { return r; });
        return part.leads ? u * all : either(all);
    }
    case LC_SUPERPOSITION_PERC:
    case LC_SUPERPOSITION_OLD_PERC:
        break;
    }
    const double loss = part.leads ? most(responses, [&](double r) { return u * r - either(r); }) : 0;
    return sum(responses, either) + loss;
}

} // namespace mrl::combine
