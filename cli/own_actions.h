#pragma once

/// Actions of a project that the design code doesn't have, and actions that go.

#include "cli/arguments.h"
#include "cli/command_project.h"

namespace mrl::cli {

/// What an own action is made of.
struct OwnAction
{
    std::string name;
    std::optional<std::string> title;
    int partition = 0;
    int superposition = 0;
    FactorOptions factors;
};

/// Stores an own action. Refuses a name that the dialog would refuse, and factors that its rules condemn.
void createOwnAction(const OwnAction& action, const Project& project);

/// Removes an action. Refuses while load cases use it, and where other records stand under its key.
void removeAction(const std::string& name, const Project& project);

} // namespace mrl::cli
