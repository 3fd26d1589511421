#pragma once

/// The words for where a factor comes from.

#include <QString>

#include "lcdata/values/factors.h"

struct LCM_FactorOrigin
{
    QString text;         ///< "Q_B ψ0 0.7: en1990, Table A1.1, verified"; empty where nothing can be told
    bool differs = false; ///< the design code has another value
};

/// Where a factor of an action comes from, by the active design code and in the language of the program.
/// @param action its code. @param symbol the name of the factor for people
/// @param shown the value as tables show it; nothing is told of the undefined one
LCM_FactorOrigin lcm_factor_origin(int action, const LCM_Factor& factor, const QString& symbol, float shown);

/// A factor for people, in six digits at most.
QString lcm_factor_text(float value);
