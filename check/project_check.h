#pragma once

/// The check of a whole project without opening its manager.

#include <QString>

#include <vector>

/// One thing that the check found.
struct LCM_ProjectFinding
{
    enum class Subject { Action, LoadCase };

    Subject subject = Subject::Action;
    int id = 0;      ///< the action code or the load-case number
    int column = 0;  ///< the factor's column id, which both tables number alike; 0: it is about the whole
    QString message; ///< in the user's language
};

/// Judges every action and every load case as the dialog would when it opens, after showing them in rows and
/// reading these back, and reports what the dialog never shows: action keys that it doesn't load, and load
/// cases that share their number with another module.
/// @param db an open database; without a design code only what needs no limit is judged
/// @param globalDirections the state of "Use global deadload directions"
/// @return the findings, actions by code ahead of load cases by number
/// @note Leaves the current database as it was.
std::vector<LCM_ProjectFinding> lcm_check_project(int db, bool globalDirections);
