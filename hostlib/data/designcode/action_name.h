#pragma once

/// Names of actions as a design-code file writes them: "G", or "Q_A" with a suffix.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "lcdata/values/records.h"

namespace mrl::designcode {

/// The word of four blanks. A code is never below it, which tells codes from old numbers.
constexpr std::int32_t BLANK_WORD = 0x20202020;

/// Four bytes of a text as a word, first byte lowest, blank-padded; later bytes are dropped.
std::int32_t packWord(std::string_view text);

/// Writes a joined name into the name fields of a record.
/// @return why the text is no name of an action; nothing when it is one
std::optional<std::string> setName(std::string_view joined, tagCDB_LC_ACT& record);

} // namespace mrl::designcode
