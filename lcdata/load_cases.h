#pragma once

/// Load cases of a project, one complete operation a call. `db` is the index of an open database, `lc` a
/// load-case number.
///
/// Failure is the result; nothing is shown and nothing is thrown on purpose. The functions leave the current
/// database as they found it, except mrl_lc_set_action and mrl_lc_init, which make `db` current.

#include <QString>

#include <vector>

#include "lcdata/export.h"
#include "lcdata/values/records.h"

/// The number of load cases, those of other modules included.
MRL_LC_API int mrl_lc_count(int db);

/// Appends every load-case number, ascending, those of other modules included. @return always 1
MRL_LC_API int mrl_lc_list(int db, std::vector<int>& out);

/// @return the lowest load-case number, 0 if there is none
MRL_LC_API int mrl_lc_getmin(int db);

/// @return the highest load-case number, -1 if there is none
MRL_LC_API int mrl_lc_getmax(int db);

/// Whether the record can be read, whatever its kind.
MRL_LC_API bool mrl_lc_exists(int db, int lc);

/// Reads a record. @param rec [out] all 188 bytes are zero on failure. @return whether it could be read
MRL_LC_API bool mrl_lc_get(int db, int lc, tagCDB_LC_CTRL& rec);

/// Writes a record, replacing what stands at the number. @return whether it was written
MRL_LC_API bool mrl_lc_put(int db, int lc, tagCDB_LC_CTRL& rec);

/// Removes a load case. @return false when there is none or it could not be removed
MRL_LC_API bool mrl_lc_remove(int db, int lc);

/// @return the number of the current load case, 0 if there is none
MRL_LC_API int mrl_lc_current(int db);

/// Makes a number current. Whether there is such a load case isn't asked.
MRL_LC_API void mrl_lc_set_current(int db, int lc);

/// Creates a load case of the design code's default action unless it exists.
/// @param rec [out] the record, stored or new. @param dead the default dead action, else the default live one
/// @return false when the load case was there already
/// @note Makes `db` the current database and leaves it so.
MRL_LC_API bool mrl_lc_init(int db, int lc, tagCDB_LC_CTRL& rec, bool dead, bool makeCurrent);

/// Lets a record follow its action: no factors of its own, and the action's title in place of its own. A
/// record without an action loses its title. Writes no load case. @param create writes a missing action to
/// the project
MRL_LC_API void mrl_lc_init_action(int db, tagCDB_LC_CTRL& rec, bool create);

/// Gives a record an action and lets it follow it, or none if the action can't be found. Writes no load case.
/// @param create writes a missing action to the project
/// @note Makes `db` the current database and leaves it so.
MRL_LC_API void mrl_lc_set_action(int db, tagCDB_LC_CTRL& rec, int code, bool create);

/// Creates a load case for an action that stands in the project, with the action's factors. The factor of the
/// load case stays 0. The code 70 makes an imperfection load case, and this replaces a load case of the same
/// number.
/// @return false when the load case exists or the action isn't in the project
MRL_LC_API bool mrl_lc_create_load_case(int db, int lc, int code, const QString& title);
/// The same for an action named in text, in upper or lower case, such as "q_1".
MRL_LC_API bool mrl_lc_create_load_case(int db, int lc, const QString& action, const QString& title);

/// Whether the action's type family is dead.
MRL_LC_API bool mrl_lc_isdeadtype(int db, const tagCDB_LC_CTRL& rec);
MRL_LC_API bool mrl_lc_isdeadtype(int db, int lc);

/// Whether the action's type family is prestress.
MRL_LC_API bool mrl_lc_isprestresstype(int db, const tagCDB_LC_CTRL& rec);
MRL_LC_API bool mrl_lc_isprestresstype(int db, int lc);

/// Whether the action is neither dead nor prestress; a number without a record counts as live.
MRL_LC_API bool mrl_lc_islivetype(int db, const tagCDB_LC_CTRL& rec);
MRL_LC_API bool mrl_lc_islivetype(int db, int lc);

/// Whether any component of automatic dead weight is non-zero.
MRL_LC_API bool mrl_lc_hasdeadloadfactor(const tagCDB_LC_CTRL& rec);
MRL_LC_API bool mrl_lc_hasdeadloadfactor(int db, int lc);

/// The title of a record, up to 34 units.
MRL_LC_API QString mrl_lc_get_name(const tagCDB_LC_CTRL& rec);
/// The title of a load case, empty when there is none.
MRL_LC_API QString mrl_lc_get_name(int db, int lc);
