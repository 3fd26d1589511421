#pragma once

#include <string>

#include "hostlib/data/designcode/designcode.h"

namespace mrl::designcode {

/// The text of a new file that stands upon a code: it reads as it is, says nothing of its own yet, and shows in comments
/// what can be stated, each action with the values of the base.
MRL_HOST_API std::string templateText(const DesignCode& base);

} // namespace mrl::designcode
