#pragma once

/// What a host may ask about the manager's dialog beyond calling it: to keep the rows of an open dialog against a
/// crash, and to tell edits from what an acceptance rewrites. Answers only where the host wants the dialog's extras.

#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "lcdata/export.h"
#include "lcdata/values/records.h"

/// The rows of the open dialog as the records that its acceptance would store, whether they are valid or not.
struct MRL_LC_API MRL_LC_OpenRows
{
    /// Version of this structure.
    std::int32_t version = 1;
    /// Which of its states the dialog had when the reading began; each command makes another one.
    std::int64_t state = 0;
    /// Rows that were read; the reading goes on behind them.
    std::size_t next = 0;
    bool hasActions = false;
    bool hasLoadCases = false;
    std::vector<std::pair<int, tagCDB_LC_ACT>> actions;    ///< with their codes
    std::vector<std::pair<int, tagCDB_LC_CTRL>> loadCases; ///< with their numbers
};

/// No dialog is open, or no command has changed it yet.
constexpr int MRL_LC_ROWS_NONE = 0;
constexpr int MRL_LC_ROWS_MORE = 1;
constexpr int MRL_LC_ROWS_ALL = 2;

/// Reads some rows of the open dialog, so that a caller can read very many without holding the user up.
/// @param rows [in, out] empty at first; begins anew when a command has changed the dialog since. @param count at most
/// @return one of the three above; after MRL_LC_ROWS_ALL `rows` holds all of one state
/// @note C linkage, so that a host finds it by its name; the same for the next one.
extern "C" MRL_LC_API int mrl_loadcase_manager_rows(MRL_LC_OpenRows& rows, int count);

/// The load cases and actions whose rows commands had changed in the dialog that was accepted last. Whatever else the
/// acceptance wrote, nobody edited. @param loadCases, actions [out] are replaced; codes for the actions
extern "C" MRL_LC_API void mrl_loadcase_manager_edited(std::set<int>& loadCases, std::set<int>& actions);
