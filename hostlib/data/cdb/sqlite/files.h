#pragma once

#include <string>

#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// The name of the layer through which our connections reach the file system: SQLite's own one, except that it
/// opens no super-journal and no journal that is something else than a file. A project is a database by itself,
/// so a journal that names a super-journal is forged, and following it would delete a file of the forger's choice.
const char* fileLayer();

/// The file behind a name, with links resolved. @return Code::NoFile when there is none
Result findPlace(const std::string& path, Place& out);

/// Refuses a journal or log beside the file that is something else than a file. Waiting for a pipe would take
/// for ever, and a link leads to a file that isn't ours.
Result checkCompanions(const std::string& file, const std::string& path);

/// May this process write to the file and beside it?
Result mayBeWritten(const std::string& file, const std::string& path);

std::string folderOf(const std::string& path);

/// The reason that the operating system gave for a file that can't be made.
Result failureToMake(int number, const std::string& file);

} // namespace mrl::cdb
