#pragma once

/// What an import would do, row by row. A plan is computed from tables and the state of a project alone, and it
/// writes nothing.

#include <memory>
#include <string>

#include "exchange/project_state.h"
#include "exchange/sheet.h"
#include "rules/finding.h"

namespace mrl::exchange {

enum class Outcome { Added, Changed, Unchanged, Refused };

/// A cell that an import changes.
struct Change
{
    const Column* column;
    std::string before; ///< empty for a row that is added
    std::string after;
};

/// Why a row is refused.
struct Reason
{
    std::string rule; ///< the stable id: of a finding (docs/findings.md) or of an import (docs/exchange.md)
    Message message;
};

/// The record of an action as it stands and as it is to be written.
struct ActionRecords
{
    tagCDB_LC_ACT stored{};
    tagCDB_LC_ACT wanted{};
};

struct PlannedRow
{
    Outcome outcome = Outcome::Unchanged;
    Sheet sheet = Sheet::LoadCases;
    int line = 0;     ///< of the file
    int id = 0;       ///< number of the load case or code of the action
    std::string name; ///< as the file gives it
    bool isNew = false;
    std::vector<Reason> reasons;           ///< of a refused row
    LCM_Findings findings;                 ///< those among the reasons that a rule of the dialog found
    std::vector<Message> notes;            ///< what was cured, and what the row loses
    tagCDB_LC_CTRL loadCase{};             ///< to be written, of a load case
    tagCDB_LC_CTRL storedLoadCase{};       ///< as it stands
    std::unique_ptr<ActionRecords> action; ///< null for a load case: there are very many of these

    /// The cells that differ; all of a row that is added.
    std::vector<Change> changes() const;
};

struct Plan
{
    std::vector<PlannedRow> rows;

    int count(Outcome outcome) const;
    /// Stands for what the plan writes and over what: the same file and the same project give the same text.
    std::string hash() const;
};

/// By what the rows of a file and the load cases of a project are held against each other.
enum class Match { Number, Title };

struct PlanOptions
{
    Match match = Match::Number;
    bool createActions = false; ///< an action that load cases name is taken from the design code
};

/// The plan of all tables: actions first, so that load cases can name new ones.
/// @note What the tables don't list stays. A row that the dialog would refuse is refused with its findings.
Plan planOf(const ProjectState& state, const std::vector<Table>& tables, const PlanOptions& options = {});

/// Plans a single row and enters what it would write into the state, so that rows can be planned one upon the other.
PlannedRow planRow(ProjectState& state, const TableHead& head, const Row& row);

} // namespace mrl::exchange
