#pragma once

/// Actions of a project and of its design code, one complete operation a call. `db` is the index of an open
/// database, `code` an action code.
///
/// An action can stand in two places: as a default action in the design code, and as a record of the project.
/// The functions leave the current database as they found it, except MRL_LC_Action_Info::init.

#include <QString>

#include <vector>

#include "lcdata/export.h"
#include "lcdata/values/records.h"

/// Whether the design code has any of the factors `Gamu`, `Gamf`, `Psi0`, `Psi1`, `Psi2`, `Psi1s`.
MRL_LC_API bool mrl_lc_code_has_actions(int db);

/// Whether the project holds an action. A record longer than an action doesn't count.
/// @note Leaves the key open.
MRL_LC_API bool mrl_lc_has_action(int db, int code);

/// Reads an action of the project.
/// @param code below 1000 it is an old action number, which the design code resolves; a number that it
/// doesn't know stands for 2 (2 to 6) or 7 (all others). 0 gives a zeroed record.
/// @param action [out] on failure whatever the last look-up wrote
/// @param create writes the design code's action to the project when it is missing there
/// @return whether the action was found or written
/// @note Leaves the key open when it was found.
MRL_LC_API bool mrl_lc_getAction(int db, int code, tagCDB_LC_ACT& action, bool create);

/// The first default action of a kind: plain permanent (`dead`) or plain variable. Without one the old
/// numbers 2 and 7 stand in. @return its code, the word of four blanks when there is none at all
MRL_LC_API int mrl_lc_get_default_action(int db, bool dead);
/// @param action [out] the action, zero when there is none at all
MRL_LC_API int mrl_lc_get_default_action(int db, bool dead, tagCDB_LC_ACT& action);

/// Appends the codes of all default actions of the design code, in its order. @return always true
MRL_LC_API bool mrl_lc_get_default_action_list(int db, std::vector<int>& out);

/// Writes the default action with a code to the project, over a stored one. @return false when there is none
MRL_LC_API bool mrl_lc_create_default_action(int db, int code);
/// The same for a name, in upper or lower case.
/// @param code [out] may be null; receives the code of the name whatever comes of the call
MRL_LC_API bool mrl_lc_create_default_action(int db, const QString& name, int* code);

/// The factors that the active design code has.
class MRL_LC_API MRL_LC_Action_Info
{
  public:
    bool gama = false;  ///< marked, and the design-code file has a section "ACTIONS" (or can't be named)
    bool gamu = false;  ///< marked
    bool gamf = false;  ///< marked
    bool psi0 = false;  ///< marked
    bool psi1 = false;  ///< marked
    bool psi1s = false; ///< marked
    bool psi2 = false;  ///< marked

    /// Asks the design code of a database.
    /// @return false when it has no entry for the marks; the booleans stay as they were then
    /// @note Makes `db` the current database and leaves it so.
    bool init(int db);
};
static_assert(sizeof(MRL_LC_Action_Info) == 7);
