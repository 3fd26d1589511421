#pragma once

/// The situations of a design code: read from its sections, and judged by what the code knows.

#include <string_view>
#include <vector>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/ini_file.h"

namespace mrl::designcode {

/// Whether a section is one of a situation: "SITUATION persistent", "SITUATION persistent / 6.10a".
bool isSituation(std::string_view section);

/// The situation that such a section belongs to: "persistent" in both.
std::string situationOf(const std::string& section);

/// Where an entry of a situation stands, as one number for LCM_TextEntry::place: a file has at most 2^20 lines.
int placeOf(int file, int line);
int fileOfPlace(int place);
int lineOfPlace(int place);

/// Reads the situations into the code. What is wrong with one is told among its warnings, and the situation is left
/// out: nobody should combine by half of it.
/// @param sections those of situations, in their order
void readSituations(const std::vector<const IniSection*>& sections, const std::vector<FileText>& files,
                    DesignCode& code);

/// Whether a term of a situation names a constant.
bool isNamed(const std::string& constant, const DesignCode& code);

/// Judges the situations that could be read against the actions, marks and constants of the code.
void checkSituations(const DesignCode& code, std::vector<Warning>& out);

} // namespace mrl::designcode
