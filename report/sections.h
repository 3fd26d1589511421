#pragma once

/// The sections of a report, each in a file of its own.

#include <map>

#include "report/project_data.h"
#include "report/report.h"
#include "report/words.h"

namespace mrl::report {

/// What every section is made of.
struct Source
{
    std::shared_ptr<const ProjectData> data;
    Words words;
    bool isUnsaved = false;
};

using Blocks = std::vector<Block>;

/// A value of an action that the project has and the design code doesn't.
struct Deviation
{
    QString action;
    QString what; ///< the symbol of a factor, or the word for another property
    QString inProject;
    QString inCode;
    QString source;
    QString state;
};
std::vector<Deviation> deviationsOf(const Source& source);

/// How many values of the project's actions there are in each state; values set by hand under `byHand`.
struct StateCounts
{
    std::map<designcode::State, std::size_t> ofStates;
    std::size_t byHand = 0;
};
StateCounts stateCounts(const Source& source);

/// Where a value stands: clause, and the file where that is a base of the code.
QString sourceText(const designcode::Origin& origin, const designcode::DesignCode& code);

void addProject(const Source& source, Blocks& blocks);
void addDesignCode(const Source& source, Blocks& blocks);
void addActions(const Source& source, Blocks& blocks);
void addAssignment(const Source& source, Blocks& blocks);
void addLoadCases(const Source& source, Blocks& blocks);
void addSituations(const Source& source, Blocks& blocks);
void addDeviations(const Source& source, Blocks& blocks);
void addFindings(const Source& source, Blocks& blocks);

/// A table whose rows are all made.
Table tableOf(std::vector<Column> columns, std::vector<Row> rows);

/// The name of a group of load cases: that of its action, IMP ...
QString nameOf(const LoadCaseGroup& group);
/// The title of its action, or what the group is.
QString titleOf(const LoadCaseGroup& group);

} // namespace mrl::report
