#pragma once

/// The situations of a design code: read from its sections, and judged by what the code knows.

#include <string_view>
#include <vector>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/ini_file.h"

namespace mrl::designcode {

/// Whether a section is one of a situation: "SITUATION persistent", "SITUATION persistent / 6.10a".
bool isSituation(std::string_view section);

/// Reads the situations into the code. What is wrong with one is told among its warnings, and the situation is left
/// out: nobody should combine by half of it.
/// @param sections those of situations, in their order
void readSituations(const std::vector<const IniSection*>& sections, DesignCode& code);

/// Whether a term of a situation names a constant.
bool isNamed(const std::string& constant, const DesignCode& code);

/// Judges the situations that could be read against the actions, marks and constants of the code.
void checkSituations(const DesignCode& code, std::vector<Warning>& out);

} // namespace mrl::designcode
