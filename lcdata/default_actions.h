#pragma once

/// The enumeration of a design code's default actions.

#include "host/mrl_dlib.h"
#include "lcdata/values/records.h"

/// Old action numbers that stand for the plain dead and the plain live action; the fall-back everywhere.
constexpr int LC_OLD_DEAD_ACTION = 2;
constexpr int LC_OLD_LIVE_ACTION = 7;

/// Writes all default actions of the design code to the project, over stored ones.
/// @return true if every action was written
bool lcm_store_default_actions(int db);

/// Visits the default actions of the active design code in their order, at most 999 of them.
/// @param visit takes a const tagCDB_LC_ACT& and returns true to stop
/// @return whether a visit stopped it
template <class Visit>
bool lcm_enumerate_default_actions(Visit&& visit)
{
    constexpr int LAST = -999;
    for (int which = -1; which >= LAST; --which) {
        tagCDB_LC_ACT action{};
        if (mrl_dlib_lcact_info(which, &action) < 0) {
            return false;
        }
        if (visit(static_cast<const tagCDB_LC_ACT&>(action))) {
            return true;
        }
    }
    return false;
}
