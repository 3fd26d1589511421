#pragma once

#include "exchange/format.h"

namespace mrl::exchange {

/// Writes load groups and load cases with ids that stay the same from one writing of a project to the next.
/// @param combinations written behind them; null: none
std::optional<FormatError> writeSaf(const Source& source, const std::string& version,
                                    const CombinationTable* combinations, const Sink& sink);

/// What such a file doesn't tell of the project.
std::vector<Message> safLosses(const Source& source);

} // namespace mrl::exchange
