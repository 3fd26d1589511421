#pragma once

#include "exchange/format.h"

namespace mrl::exchange {

/// Reads lines of fields as one table; finds out encoding, separator and decimal sign unless told.
std::optional<FormatError> readDelimited(std::string_view bytes, const FormatOptions& options,
                                         TableReceiver& receiver);

} // namespace mrl::exchange
