#pragma once

#include <memory>
#include <string>

#include "hostlib/data/cdb/database.h"

namespace mrl::cdb {

/// A database that was made or opened, or the reason why not.
struct OpenedDatabase
{
    Result result;
    std::unique_ptr<Database> database;
};

OpenedDatabase createFile(const std::string& path);
OpenedDatabase openFile(const std::string& path, bool readOnly);
OpenedDatabase makePrivate(Storage where);
OpenedDatabase copyPrivate(const Database& from, Storage where);

} // namespace mrl::cdb
