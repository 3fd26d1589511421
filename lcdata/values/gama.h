#pragma once

/// How the accidental factor of an action is stored. A stored 0 means that the factor was never set and is
/// shown as 1.0; a stored 0.001 is shown as 0.0. The way back isn't symmetric: 0.0 is stored as 0.001, and
/// nothing stores 0.

#include <cmath>

constexpr float LC_GAMA_TOLERANCE = 1.1920929e-7f;
constexpr float LC_GAMA_ZERO = 0.001f; ///< bits 0x3A83126F

/// The value to store for a `Gama`.
inline float lcm_gama_to_store(float value)
{
    return std::fabs(value) < LC_GAMA_TOLERANCE ? LC_GAMA_ZERO : value;
}

/// The `Gama` that a stored value is shown as.
inline float lcm_shown_gama(float stored)
{
    if (std::fabs(stored) < LC_GAMA_TOLERANCE) {
        return 1.0f;
    }
    return std::fabs(stored - LC_GAMA_ZERO) < LC_GAMA_TOLERANCE ? 0.0f : stored;
}
