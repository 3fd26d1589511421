#pragma once

/// Names of actions as a design-code file writes them: "G", or "Q_A" with a suffix.

#include <optional>
#include <string>
#include <string_view>

#include "lcdata/values/records.h"

namespace mrl::designcode {

/// Writes a joined name into the name fields of a record.
/// @return why the text is no name of an action; nothing when it is one
std::optional<std::string> setName(std::string_view joined, tagCDB_LC_ACT& record);

} // namespace mrl::designcode
