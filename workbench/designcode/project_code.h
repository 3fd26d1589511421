#pragma once

/// The design code that a project has and keeps, and how it gets another one.

#include <QString>

#include "check/recode.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::workbench {

/// A design code that a project can get.
struct NewCode
{
    std::string name; ///< what the project stores to name it
    designcode::DesignCode code;
};

/// @param name on the search path, or a path, counted from the folder of the project if it is relative
/// @param reason [out] why there is none
std::optional<NewCode> newCodeOf(int db, const std::string& name, QString& reason);

LCM_RecodePlan planRecode(int db, const NewCode& code, const LCM_RecodeWish& wish);

/// Gives a project another design code, which it keeps from then on, within one transaction. The one way by which the
/// workbench does so.
/// @param plan for that code, not refused @return empty, or why the project is as it was
QString applyRecode(int db, const LCM_RecodePlan& plan, const NewCode& code);

/// Keeps a copy of the design code in force in the project. @return empty, or why the project is as it was
QString keepCode(int db);

} // namespace mrl::workbench
