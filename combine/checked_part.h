#pragma once

/// How the checker sees an action that acts, and what it takes the superposition codes for. Written apart from Pattern and
/// from the meanings in LCM_SUPERPOSITIONS: it goes by the codes themselves, load case by load case.

#include <vector>

#include "combine/model.h"

namespace mrl::combine {

struct CheckedPart
{
    Superposition superposition = LC_SUPERPOSITION_COND;
    double worse = 0;  ///< the unfavourable factor
    double better = 0; ///< the favourable one
    bool isPermanent = false;
    bool leads = false;
    double first = 0; ///< components: the first one; 0: the code holds
    double others = 0;
};

/// The code that a variable action has where `always = yes`.
Superposition codeThatAlwaysActs(Superposition code);
/// Whether a variable action acts also where it is favourable.
bool isAlwaysThere(Superposition code);
/// Whether a permanent action may rest as a whole, beside what its load cases may have.
bool permanentMayRest(Superposition code);
/// Whether actions with one first part exclude each other.
bool excludesSuffixes(Superposition code);

/// Whether the load cases of the action may have these factors.
bool partFits(const CheckedPart& part, const std::vector<double>& factors);

/// The greatest value of the action.
double partGreatest(const CheckedPart& part, const std::vector<double>& responses);

} // namespace mrl::combine
