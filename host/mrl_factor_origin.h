#pragma once

/// Where the factors of the active design code come from.
///
/// A host may leave this header's function out: nobody is told of origins then, and nothing else depends on it.

#include <QString>

#include "host/mrl_export.h"

/// How far a value of a design code can be trusted.
enum class MRL_FactorState { Unverified, OneSource, Verified, OwnChoice };

/// What vouches for a factor of a default action.
struct MRL_FactorOrigin
{
    float value = 0.0f; ///< as the record of the default action holds it
    QString code;       ///< the name of the file that states it, which may be a base of the active code
    QString clause;     ///< of the standard; empty when none is stated
    MRL_FactorState state = MRL_FactorState::Unverified;
    QString note; ///< what one factor can't say; mostly empty
};

/// Where a factor of a default action comes from.
/// @param action an action code. @param factor its name in design-code files, such as "Psi0"
/// @param origin [out] as it was when the call fails
/// @return false when the active design code has no such default action or doesn't state the factor
MRL_HOST_API bool mrl_dlib_factor_origin(int action, const char* factor, MRL_FactorOrigin& origin)
    __attribute__((weak));
