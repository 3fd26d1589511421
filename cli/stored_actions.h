#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/output.h"
#include "cli/project.h"
#include "lcdata/records.h"

namespace mrl::cli {

/// One action of a project.
struct StoredAction
{
    int code = 0; ///< the element of its key
    tagCDB_LC_ACT
        record{}; ///< the last definition among the records of the key, which is the one that counts
};

/// The actions of a project, ascending by code; also reserved ones and one without a name. Numeric keys of
/// the superposition module are none.
std::vector<StoredAction> readActions(int db);

/// The action at a code; nothing when its key holds no definition.
std::optional<StoredAction> storedAction(int db, int code);

/// Whether a key holds a record at all, of whatever kind.
bool isStored(int db, int code);

/// The action of a typed name. Refuses when the project has none.
StoredAction requireAction(const Project& project, const std::string& name);

/// The code that a typed name means: as it stands when the project has that, else in upper case.
int typedActionCode(int db, const std::string& name);

/// The action word that a typed name means: 70 for IMP, 0 for NONE, otherwise the code.
int typedActionWord(int db, const std::string& name);

/// Overwrites the definition of an action and leaves the other records of its key alone.
/// @return false when the key holds no definition
bool rewriteAction(int db, int code, const tagCDB_LC_ACT& record);

/// The fields of an action that --json prints. `Gama` is the value that the dialog shows.
Json actionJson(int code, const tagCDB_LC_ACT& record);

/// The head and the rows of the table that people get.
Table actionTable();
void addActionRow(Table& table, int code, const tagCDB_LC_ACT& record);

} // namespace mrl::cli
