#pragma once

/// One section [ACTION NAME] as a default action.

#include "hostlib/data/designcode/entry_values.h"

namespace mrl::designcode {

/// Reads the section; what is wrong with it is among the reader's errors.
DefaultAction readAction(const IniSection& section, EntryReader& reader);

} // namespace mrl::designcode
