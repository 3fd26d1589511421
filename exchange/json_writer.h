#pragma once

#include "exchange/format.h"

namespace mrl::exchange {

/// Writes the sheets of a source, one line for each row, and of a whole project what they leave out. What is written
/// depends on the content alone.
std::optional<FormatError> writeJson(const Source& source, const Sink& sink);

/// An object with the situation and an array of combinations.
std::optional<FormatError> writeJson(const CombinationTable& table, const Sink& sink);

} // namespace mrl::exchange
