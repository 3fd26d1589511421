#include "hostlib/data/cdb/database.h"

namespace mrl::cdb {

Database::Database(Connection handle, std::string name, Access how)
    : path(std::move(name)), access(how), db(std::move(handle))
{
    sqlite3_create_function_v2(db.get(), "gone", 1, SQLITE_UTF8 | SQLITE_DIRECTONLY, this, gone, nullptr,
                               nullptr, nullptr);
    if (access == Access::Private) {
        walk.mark.watchNothing();
        return;
    }
    // Where a reader could make no log beside the file, nobody of his rights can write to it either.
    if (!walk.mark.watch(db.get()) &&
        sqlite3_uri_boolean(sqlite3_db_filename(db.get(), "main"), "immutable", 0) != 0) {
        walk.mark.watchNothing();
    }
    sqlite3_wal_hook(db.get(), committed, this);
}

Database::~Database()
{
    while (!levels.empty()) {
        rollback();
    }
    // The guard goes first: the last connection to a file is the one that may tidy up its log.
    guard.reset();
}

} // namespace mrl::cdb
