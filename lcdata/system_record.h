#pragma once

/// The structural system of a project, as far as dead weight depends on it.

/// The system class, an LCM_SystemClass; spatial when the project doesn't say.
int lcm_system_class(int db);

/// The direction of gravity: plus or minus 1, 2, 3 for X, Y, Z. 1 when the project doesn't say.
/// @note Handed on as stored, so a damaged project may give any number.
int lcm_gravity_direction(int db);

/// Writes the system record of a new project; what else other modules keep in it is 0.
/// @param rawClass 0 spatial, 1 to 19 plane, 20 to 39 plate. @param gravity plus or minus 1, 2, 3
/// @return whether it was written
bool lcm_write_system(int db, int rawClass, int gravity);
