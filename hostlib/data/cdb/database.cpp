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
    walk.mark.watch(db.get());
    sqlite3_wal_hook(db.get(), committed, this);
}

Database::~Database()
{
    while (!levels.empty())
        rollback();
    // The guard goes first: the last connection to a file is the one that may tidy up its log.
    guard.reset();
}

} // namespace mrl::cdb
