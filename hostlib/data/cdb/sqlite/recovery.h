#pragma once

/// What a crashed program left unfinished is taken back by SQLite from the journal beside the file. SQLite
/// believes what the journal says, so a damaged one, or one of another state, would damage the file or set it
/// back to an older state. Here it is looked at beforehand.

#include <string>

#include "hostlib/data/cdb/project.h"

struct sqlite3_vfs;

namespace mrl::cdb {

/// Rehearses on a copy what taking back an unfinished change would make of a file. The caller holds the file's
/// exclusive lock.
/// @param files the layer to read through
/// @param database the file's full name
/// @return a code of SQLite: SQLITE_CANTOPEN when it must not be done, for which refusedRecovery() has the reason
int mayRecover(sqlite3_vfs* files, const std::string& database);

struct Refusal
{
    Code code = Code::Corrupt;
    std::string reason; ///< empty: there was none
};

/// Why the last recovery of a file was refused.
Refusal refusedRecovery(const std::string& database);

/// SQLite takes a journal whose first byte is zero for one that was never completed. One that merely lost that byte
/// is told from it here.
/// @param file the name for messages
/// @param path the file, with links resolved
Result checkDormantJournal(const std::string& file, const std::string& path);

/// How to go on with a file whose content is damaged, which may be for want of its journal.
std::string adviceForDamage(const std::string& path);

} // namespace mrl::cdb
