#pragma once

/// Which factors a design code has, in the class that other modules see.

#include "lcdata/actions.h"
#include "lcdata/values/factors.h"

/// The boolean of a factor. A factor without one doesn't compile.
constexpr bool MRL_LC_Action_Info::*lcm_mark_of(LCM_FactorId id)
{
    switch (id) {
    case LCM_FactorId::Gamu:
        return &MRL_LC_Action_Info::gamu;
    case LCM_FactorId::Gamf:
        return &MRL_LC_Action_Info::gamf;
    case LCM_FactorId::Gama:
        return &MRL_LC_Action_Info::gama;
    case LCM_FactorId::Psi0:
        return &MRL_LC_Action_Info::psi0;
    case LCM_FactorId::Psi1:
        return &MRL_LC_Action_Info::psi1;
    case LCM_FactorId::Psi2:
        return &MRL_LC_Action_Info::psi2;
    case LCM_FactorId::Psi1s:
        return &MRL_LC_Action_Info::psi1s;
    }
    return nullptr;
}

/// Whether the design code has a factor.
inline bool lcm_has_factor(const MRL_LC_Action_Info& info, const LCM_Factor& factor)
{
    return info.*lcm_mark_of(factor.id);
}
