#pragma once

#include "hostlib/data/designcode/designcode.h"
#include "lcdata/actions.h"

namespace mrl::cli {

/// The factors that the dialog has columns for: those that the design code marks, without the safety factors
/// whose label is "none".
MRL_LC_Action_Info columnsOf(const designcode::DesignCode& code);

} // namespace mrl::cli
