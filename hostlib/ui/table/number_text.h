#pragma once

/// Numbers as texts, and what a person types as numbers. The same in every locale.

#include <QString>

#include <cmath>
#include <optional>

#include "host/mrl_export.h"

namespace mrl::table {

/// Says in records and cells that nothing is set here.
inline constexpr double UNDEFINED_VALUE = -99999.0;

/// The number that a typed or pasted text names: either decimal sign, blanks around it and the other sign as
/// grouping are accepted ("1,35", "1.234,5"). @return none for a text that is no finite number
MRL_HOST_API std::optional<double> parseNumber(const QString& text);

/// The order of numbers; what is not a number comes first.
inline bool numberLess(double a, double b) { return a < b || (std::isnan(a) && !std::isnan(b)); }

/// A whole number as text; the undefined value gives an empty one.
QString wholeNumberText(double value);

} // namespace mrl::table
