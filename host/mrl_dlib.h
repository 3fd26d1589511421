#pragma once

/// The design-code data library: what the design code of a project knows about actions. One design code is
/// active at a time, that of the current database; a database without a design code deactivates the former
/// one.

#include "host/mrl_export.h"

struct tagCDB_LC_ACT;

/// Loads the design code of a database and makes that database the current one.
/// @return 0; negative when the database is not open, which changes nothing, or when it has no design code
/// that
///         can be loaded: it is current then, and no design code is active
MRL_HOST_API int mrl_dlib_ini_switch(int db);

/// Looks an action up in the active design code.
/// @param which 0: the availability record, whose factor fields are marks and limits and whose partition word
/// is 0.
///              -1, -2, ...: the default actions in their order. Positive: an action by its code, then by an
///              old action number, then the first record of kind 1 at that key of KWH 14 in the current
///              database, which mrl_dlib_ini_switch selects (a code is never below 0x20202020).
/// @param out [out] the record; as it was when the call fails
/// @return negative when there is no such entry
MRL_HOST_API int mrl_dlib_lcact_info(int which, tagCDB_LC_ACT* out);

/// The action word of a load case for a code. Gives back what it gets, and needs no active design code.
MRL_HOST_API int mrl_dlib_lftype_enum(int code);

/// A value that the design code may define. @param box "COMBINATIONS". @param name "KFI" or "XSI".
/// @param value [out] the value; as it was when the result isn't above 0
/// @return above 0 when the design code defines it
MRL_HOST_API int mrl_dlib_boxed_value(const char* box, const char* name, float& value);

/// The four numbers that identify the active design code; 0 when none is active.
MRL_HOST_API int mrl_dlib_cdb_get_ntcode(); ///< national code
MRL_HOST_API int mrl_dlib_cdb_get_idcode(); ///< code number
MRL_HOST_API int mrl_dlib_cdb_get_dcntry(); ///< country
MRL_HOST_API int mrl_dlib_cdb_get_dcyear(); ///< year
