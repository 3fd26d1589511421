#pragma once

/// What the import of a file would do to a project, and doing it.

#include <QString>

#include <functional>

#include "exchange/format.h"
#include "exchange/import_plan.h"

namespace mrl::workbench {

/// What the engineer chooses for an import.
struct ImportWish
{
    QString file;
    const exchange::Format* format = nullptr; ///< null: by content and name
    exchange::FormatOptions told;
    exchange::PlanOptions options;
};

/// What came of a wish. Nothing is written yet.
struct ImportProposal
{
    const exchange::Format* format = nullptr; ///< null when the file can't be read at all
    exchange::ReadTables read;                ///< as far as it came
    QString error;                            ///< empty when there is a plan
    exchange::ProjectState state;             ///< the one that the plan was computed from
    exchange::Plan plan;
};

/// Reads the file and holds it against the project. @param db an open database
ImportProposal proposeImport(int db, const ImportWish& wish);

enum class ImportOutcome { Done, Cancelled, Failed };

/// Told how many rows are written. @return false to cancel
using ImportProgress = std::function<bool(int rows)>;

/// Writes what a plan adds and changes, in one transaction: all of it, or nothing.
/// @note The one way by which an import changes a project.
ImportOutcome applyImport(int db, const ImportProposal& proposal, const ImportProgress& progress);

} // namespace mrl::workbench
