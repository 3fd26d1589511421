#pragma once

/// The keys of the project database that the load-case manager works on, and the words reserved in them.

constexpr int LC_KWH_CURRENT = 0;  ///< group of the current load case
constexpr int LC_KWL_CURRENT = 97; ///< element of the current load case
constexpr int LC_KWH_SYSTEM = 10;  ///< group of the system record, element 0
constexpr int LC_KWH_CASES = 12;   ///< load cases; the element is the load-case number
constexpr int LC_KWH_ACTIONS = 14; ///< actions; the element is the action code

/// The word of four blanks. Elements of LC_KWH_ACTIONS above it are action codes, those below it are the
/// plain numbers of the superposition module.
constexpr int LC_BLANK_WORD = 0x20202020;

constexpr int LC_CURRENT_BYTES = 12; ///< size of the record of the current load case
constexpr int LC_SYSTEM_BYTES = 352; ///< size of the system record

constexpr int LC_MAX_NUMBER = 999999; ///< the highest load-case number

constexpr int LC_ACTION_NONE = 0;          ///< action word of a load case without an action
constexpr int LC_ACTION_IMPERFECTION = 70; ///< action word of an imperfection load case

/// True for an action key whose name begins with the reserved letter Y.
constexpr bool lcm_is_reserved_action(int kwl) { return (kwl & 0xFF) == 'Y'; }
