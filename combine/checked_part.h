#pragma once

/// How the checker sees an action that acts. Written apart from Pattern: it goes through the codes load case by load case.

#include <vector>

#include "combine/model.h"

namespace mrl::combine {

struct CheckedPart
{
    Superposition superposition = Superposition::Cond;
    double worse = 0;  ///< the unfavourable factor
    double better = 0; ///< the favourable one
    bool isPermanent = false;
    bool leads = false;
    double first = 0; ///< components: the first one; 0: the code holds
    double others = 0;
};

/// Whether the load cases of the action may have these factors.
bool partFits(const CheckedPart& part, const std::vector<double>& factors);

/// The greatest value of the action.
double partGreatest(const CheckedPart& part, const std::vector<double>& responses);

} // namespace mrl::combine
