#include "hostlib/data/cdb/move_keys.h"

#include <string>
#include <vector>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/registry.h"

namespace mrl::cdb {

namespace {

Result readKey(Database& database, const Key& key, std::vector<std::string>& records)
{
    if (Result settled = database.transactions().settle(); !settled) {
        return settled;
    }
    const KeyRange range{key.kwh, key.kwl, key.kwl};
    Rows rows = database.store().range(&range, Columns::Records);
    Status status = Status::Ok;
    while ((status = rows.next()) == Status::Ok) {
        if (!fitsChecksum(rows.record())) {
            return database.failures().keep(checksumFailure(database.file(), key));
        }
        records.emplace_back(static_cast<const char*>(rows.bytes()), static_cast<std::size_t>(rows.size()));
    }
    return status == Status::None ? Result{} : database.failures().keep(database.store().failure());
}

Outcome appendAll(Database& database, const Key& key, const std::vector<std::string>& records)
{
    for (const std::string& record : records) {
        if (database.append(key, record.data(), static_cast<int>(record.size())) != Outcome::Done) {
            return Outcome::Failed;
        }
    }
    return Outcome::Done;
}

} // namespace

Result moveKeys(int db, int kwh, const std::map<int, int>& moves)
{
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    Transaction transaction(db);
    if (Result state = transaction.state(); !state) {
        return state;
    }
    // All are taken out before the first is put: the target of one is often the place of another.
    std::map<int, std::vector<std::string>> moved;
    for (const auto& [from, to] : moves) {
        if (Result read = readKey(*database, {kwh, from}, moved[to]); !read) {
            return read;
        }
        if (database->remove({kwh, from}) == Outcome::Failed) {
            return database->transactions().lastFailure();
        }
    }
    for (const auto& [to, records] : moved) {
        if (appendAll(*database, {kwh, to}, records) == Outcome::Failed) {
            return database->transactions().lastFailure();
        }
    }
    return transaction.commit();
}

} // namespace mrl::cdb
