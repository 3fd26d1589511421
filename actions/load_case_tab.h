#pragma once

#include <QString>

#include <vector>

#include "lcdata/values/records.h"

class LCM_DataClass;

/// What the actions tab needs of the load-case tab. The load-case tab depends on the actions tab; this
/// interface keeps the dependency from going both ways.
class LCM_LoadCaseTab
{
  public:
    virtual ~LCM_LoadCaseTab() = default;

    /// The working model, which the actions tab shares.
    virtual LCM_DataClass* workingModel() const = 0;
    /// Whether a row of the load-case table holds the action's code.
    virtual bool isActionUsed(const tagCDB_LC_ACT& action) = 0;
    /// A line that names the load cases of actions, for a question about them.
    virtual QString describeLoadCasesOf(const std::vector<tagCDB_LC_ACT>&) { return {}; }
    /// Removes the load cases of an action without asking.
    virtual void removeActionLoadcases(const tagCDB_LC_ACT& action) = 0;
    /// The same for several actions in turn; the load-case tab does it in one pass.
    virtual void removeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions)
    {
        for (const tagCDB_LC_ACT& action : actions) {
            removeActionLoadcases(action);
        }
    }
};
