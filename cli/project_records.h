#pragma once

/// The actions and load cases of a project as commands name, find and change them.

#include <string>

#include "cli/command_project.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"

namespace mrl::cli {

/// Whether a key holds a record at all, of whatever kind.
bool isStored(int db, int code);

/// The action of a typed name. Refuses when the project has none.
LCM_StoredAction requireAction(const Project& project, const std::string& name);

/// The code that a typed name means: as it stands when the project has that, else in upper case.
int typedActionCode(int db, const std::string& name);

/// The action word that a typed name means: 70 for IMP, 0 for NONE, otherwise the code.
int typedActionWord(int db, const std::string& name);

/// Overwrites the definition of an action and leaves the other records of its key alone.
/// @param action as it was found, with its record changed
/// @return false when it can't be written
bool rewriteAction(int db, const LCM_StoredAction& action);

/// The load case under a number, also one of another module. Refuses when there is none.
LCM_StoredLoadCase requireLoadCase(const Project& project, int number);

/// The action word of a load case, an old number replaced by the code of its action.
int actionWordOf(const tagCDB_LC_CTRL& record);

} // namespace mrl::cli
