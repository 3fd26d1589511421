#pragma once

/// What the workbench shows of a project without opening a manager.

#include <QString>
#include <QVariant>

#include <map>
#include <vector>

#include "check/factor_origin.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "report/factor_columns.h"
#include "rules/finding.h"

namespace mrl::workbench {

using report::FactorColumn;

/// Where the factors of actions come from, by the code of the action.
using FactorOrigins = std::map<int, LCM_PerFactor<LCM_FactorOrigin>>;

struct ProjectSummary
{
    QString designCode;       ///< its label; empty when it can't be loaded
    QString designCodeReason; ///< why it can't be loaded, empty when it can
    int systemClass = 0;      ///< 0 spatial, 1 plane, 3 plate
    int gravity = 1;          ///< signed axis
    int currentLoadCase = 0;  ///< 0: none
    std::vector<FactorColumn> factors;
    std::vector<LCM_StoredAction> actions;     ///< those that the managers show, by name
    std::vector<LCM_StoredLoadCase> loadCases; ///< this system's own
    int foreignLoadCases = 0;                  ///< those of other modules, which the managers don't show
    FactorOrigins origins;                     ///< empty without a design code, and where nobody wants them
    LCM_Findings findings;                     ///< empty too when the design code can't be loaded
};

/// What a table tells of a factor's origin: tool tip, slanted text where the design code has another value, and that as
/// the accessible description. @param role of a model @return nothing for any other role
QVariant originData(const FactorOrigins& origins, int action, LCM_FactorId factor, int role);

/// Reads all of it from an open database and makes that database the current one.
ProjectSummary summarise(int db);

} // namespace mrl::workbench
