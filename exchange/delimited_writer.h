#pragma once

#include "exchange/format.h"

namespace mrl::exchange {

/// Writes the one sheet of a source as lines. @param options its separator is set
std::optional<FormatError> writeDelimited(const Source& source, const FormatOptions& options,
                                          const Sink& sink);

std::optional<FormatError> writeDelimited(const CombinationTable& table, const FormatOptions& options,
                                          const Sink& sink);

} // namespace mrl::exchange
