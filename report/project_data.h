#pragma once

/// What a report tells of a project, read once.

#include <QString>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "combine/count.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/kept.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "report/factor_columns.h"
#include "rules/finding.h"

namespace mrl::report {

/// Load cases with one action word.
struct LoadCaseGroup
{
    enum class Kind { Action, MissingAction, Imperfection, None, OtherModule };

    Kind kind = Kind::None;
    int word = 0;
    const LCM_StoredAction* action = nullptr; ///< in ProjectData::actions
    std::vector<std::size_t> positions;       ///< in ProjectData::loadCases, ascending
};

/// The combinations of a situation.
struct CountedSituation
{
    LCM_Situation situation;
    combine::Count choices;
    combine::Count distinct;
    std::vector<std::string> idle; ///< actions with load cases that never act in it
};

/// What takes no part in some situation, and why.
struct LeftOut
{
    std::string reason;
    std::set<int> numbers; ///< of load cases; empty: it is no load case
};

struct ProjectData
{
    ProjectData() = default;
    ProjectData(const ProjectData&) = delete; // groups point to actions
    ProjectData& operator=(const ProjectData&) = delete;

    QString file; ///< its name without the folder
    QString hash; ///< of the content, see content_hash.h
    designcode::Loaded code;
    designcode::KeptReport kept;
    int systemClass = 0;
    int gravity = 1;
    int currentLoadCase = 0; ///< 0: none
    std::vector<FactorColumn> factors;
    std::vector<LCM_StoredAction> actions;     ///< all, by name
    std::vector<LCM_StoredLoadCase> loadCases; ///< all, by number; those of other modules too
    std::vector<LoadCaseGroup> groups;         ///< one for each action, then the others that there are
    LCM_Findings findings;
    std::vector<CountedSituation> situations;
    std::vector<std::string> refused; ///< why nothing can be combined; empty: it can
    std::vector<LeftOut> leftOut;

    /// The design code's entry for an action; null where it has none.
    const designcode::DefaultAction* defaultOf(int code) const;
};

/// Reads an open database and leaves the current one as it was. What can't be read is an error of the database, which the
/// caller asks for afterwards.
/// @param file of the project
std::shared_ptr<const ProjectData> readProject(int db, const QString& file);

} // namespace mrl::report
