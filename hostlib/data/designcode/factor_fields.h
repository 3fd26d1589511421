#pragma once

/// The seven factors by name, in the order of the documentation.

#include <array>

#include "lcdata/values/records.h"

namespace mrl::designcode {

struct FactorField
{
    const char* name;     ///< entry of a design-code file
    const char* labelKey; ///< entry of its section "ACTIONS"
    float tagCDB_LC_ACT::*field;
};

inline constexpr std::array<FactorField, 7> FACTOR_FIELDS{{
    {"Gamu", "TXT_GAMU", &tagCDB_LC_ACT::gamu},
    {"Gamf", "TXT_GAMF", &tagCDB_LC_ACT::gamf},
    {"Gama", "TXT_GAMA", &tagCDB_LC_ACT::gama},
    {"Psi0", "TXT_PSI0", &tagCDB_LC_ACT::psi0},
    {"Psi1", "TXT_PSI1", &tagCDB_LC_ACT::psi1},
    {"Psi2", "TXT_PSI2", &tagCDB_LC_ACT::psi2},
    {"Psi1s", "TXT_PSI1S", &tagCDB_LC_ACT::psi1s},
}};

} // namespace mrl::designcode
