#pragma once

/// The actions and load cases of a project, ready to be combined.

#include <map>
#include <string>
#include <vector>

#include "combine/prepare.h"

namespace mrl::combine {

struct ProjectModel
{
    Model model;
    std::vector<Remark> leftOut; ///< records that never take part, whatever the situation is
};

/// Reads the actions and load cases of a project. Nothing is refused here: a load case with a finding, or whose action has
/// one, bears it, and `prepare` refuses it with its number. An action keeps its factors as they are stored; a load case
/// has factors of its own only where it has no action.
/// @param db        an open database, whose design code becomes the active one
/// @param constants KFI, XSI and others of the design code
/// @note Leaves the current database as it was. Texts are in the language of the program.
ProjectModel projectModel(int db, std::map<std::string, float> constants);

} // namespace mrl::combine
