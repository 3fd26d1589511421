#pragma once

/// Situations and counts in the words and signs of engineers.

#include <QString>

#include "combine/pattern.h"
#include "lcdata/values/situation.h"

namespace mrl::report {

/// A count as one can read it: "900", "15.2 million", "3.4·10^17".
QString readableCount(const combine::BigInt& count);

/// What an expression takes of each kind of action: "Σ {K_FI·γ | γ_inf}·G + K_FI·γ·Q₁ + Σ K_FI·γ·ψ₀·Qᵢ".
QString expressionFormula(const LCM_Expression& expression);

/// The formulas of a situation, a line each; with several expressions their names ahead.
QString situationFormula(const LCM_Situation& situation);

/// What a formula can't show: entries for single actions, and limits. Empty: there is nothing.
QString situationRemarks(const LCM_Situation& situation);

/// The title in the language of the program, else in English, else the name.
QString situationTitle(const LCM_Situation& situation);

/// What an action is in a combination: "leading", "permanent" ...
QString roleName(LCM_Role role);

} // namespace mrl::report
