#pragma once

#include "cli/project.h"
#include "lcdata/stored_load_cases.h"

namespace mrl::cli {

/// The load case under a number, also one of another module. Refuses when there is none.
LCM_StoredLoadCase requireLoadCase(const Project& project, int number);

/// The action word of a load case, an old number replaced by the code of its action.
int actionWordOf(const tagCDB_LC_CTRL& record);

} // namespace mrl::cli
