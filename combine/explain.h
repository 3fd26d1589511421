#pragma once

/// Where the factors of a combination come from, load case by load case.

#include <string>
#include <vector>

#include "combine/plan.h"

namespace mrl::combine {

/// One term of a combination.
struct Origin
{
    int number = 0; ///< the load case
    double factor = 0;
    std::string action;
    LCM_Role role = LCM_Role::Others;
    std::string
        term; ///< as the situation states it: "KFI*Gamu*Psi0", "-1*Gamu" for the other sign, "0.3*Gama"
    std::string values; ///< the same with numbers: "1*1.5*0.7"
};

/// The terms of a governing combination in the order of its key.
/// @param plan of this model and situation, @param combination of this plan, by Envelope::combination
std::vector<Origin> explain(const Model& model, const LCM_Situation& situation, const Plan& plan,
                            const Combination& combination);

/// A term as a file states it: "KFI*Gamu*Psi0", "1" without any factor.
std::string termText(const LCM_Term& term);

} // namespace mrl::combine
