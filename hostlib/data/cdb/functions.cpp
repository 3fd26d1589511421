#include <climits>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/registry.h"

namespace {

mrl::cdb::Database* find(int db) { return mrl::cdb::Registry::instance().find(db); }

cd_error_t asError(mrl::cdb::Outcome outcome) { return outcome == mrl::cdb::Outcome::Done ? CD_OK : CD_NONE; }

} // namespace

int mrl_cdb_status(int) { return mrl::cdb::Registry::instance().current(); }

int mrl_cdb_use(int db, int)
{
    if (find(db) == nullptr) {
        return -1;
    }
    mrl::cdb::Registry::instance().setCurrent(db);
    return 0;
}

int mrl_cdb_kenq_ex(int db, int* kwh, int* kwl, int direction)
{
    if (kwh == nullptr || kwl == nullptr) {
        return 1;
    }
    if (auto* database = find(db)) {
        return database->reader().step(kwh, kwl, direction);
    }
    // A caller's walk over a database that is not open ends at once.
    const int extreme = direction >= 0 ? INT_MAX : INT_MIN;
    *kwh = *kwh != extreme ? extreme : (direction >= 0 ? INT_MIN : INT_MAX);
    *kwl = extreme;
    return 1;
}

cd_error_t mrl_cdb_get(int db, int kwh, int kwl, void* buffer, int* length, int position)
{
    auto* database = find(db);
    if (database == nullptr || length == nullptr || *length < 0 || (buffer == nullptr && *length > 0)) {
        return CD_NONE;
    }
    return database->reader().get({kwh, kwl}, buffer, length, position);
}

cd_error_t mrl_cdb_put(int db, int kwh, int kwl, const void* data, const int* length, int position)
{
    auto* database = find(db);
    if (database == nullptr) {
        return CD_NONE;
    }
    if (length == nullptr || *length < 0 || (data == nullptr && *length > 0) || position > 0 ||
        position < -1) {
        return asError(database->transactions().refuse("a put without a record or a place for it"));
    }
    const mrl::cdb::Key key{kwh, kwl};
    if (*length == 0) {
        return asError(database->remove(key));
    }
    return asError(position == 0 ? database->put(key, data, *length)
                                 : database->overwrite(key, database->reader().lastRead(key), data, *length));
}

cd_error_t mrl_cdb_del(int db, int kwh, int kwl)
{
    auto* database = find(db);
    return database != nullptr ? asError(database->remove({kwh, kwl})) : CD_NONE;
}

int mrl_cdb_free_ex(int, int, int)
{
    // Nothing is held between two calls. What was read last on the key stays known, since a put at -1 may
    // follow.
    return 0;
}

int mrl::dbo::getKwls(int db, int kwh, int, int, std::list<int>* out, int*)
{
    auto* database = find(db);
    if (database == nullptr || out == nullptr) {
        return -1;
    }
    std::list<int> found;
    if (!database->reader().elements(kwh, found)) {
        return -1;
    }
    const auto count = static_cast<int>(found.size());
    out->splice(out->end(), found);
    return count;
}
