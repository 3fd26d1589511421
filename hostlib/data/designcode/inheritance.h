#pragma once

/// A design-code file that states its differences from another one: `base = en1990` in [DESIGN CODE].

#include <vector>

#include "hostlib/data/designcode/ini_file.h"

namespace mrl::designcode {

/// Lays the sections of a file over those of its base.
///
/// In [DESIGN CODE], [AVAILABILITY], [COMBINATIONS], [ACTIONS] and an [ACTION NAME] that the base has, each entry
/// replaces the one of its name. An [ACTION NAME] that the base lacks stands behind all, or behind the action that its
/// entry `after` names; `remove = yes` takes one away. A [SITUATION NAME] replaces the one of its name with all its
/// expressions; one that states nothing but clause, state and titles keeps the terms.
/// @param base [in,out] the base with its own bases already laid in
/// @param over the file's own sections
/// @return entries that can't be carried out
std::vector<IniError> layOver(IniFile& base, IniFile over);

} // namespace mrl::designcode
