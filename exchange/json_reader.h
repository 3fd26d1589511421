#pragma once

#include "exchange/format.h"
#include "exchange/project_content.h"

namespace mrl::exchange {

/// Reads the lists of actions and load cases in one pass. Objects may lack what others have.
/// @param rest [out] may be null; receives facts and records, which are passed over otherwise
std::optional<FormatError> readJson(std::string_view bytes, TableReceiver& receiver, ProjectContent* rest);

} // namespace mrl::exchange
