#include "hostlib/data/cdb/project.h"

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/format.h"
#include "hostlib/data/cdb/opening.h"
#include "hostlib/data/cdb/registry.h"

namespace mrl::cdb {

namespace {

Database* find(int db) { return Registry::instance().find(db); }

Opened enter(OpenedDatabase opened)
{
    if (!opened.result) {
        return {std::move(opened.result), -1};
    }
    return {{}, Registry::instance().add(std::move(opened.database))};
}

Result resultOf(const Database& database, Outcome outcome)
{
    return outcome == Outcome::Failed ? database.lastFailure() : Result{};
}

} // namespace

Opened create(const std::string& path) { return enter(createFile(path)); }

Opened open(const std::string& path) { return enter(openFile(path, false)); }

Opened openReadOnly(const std::string& path) { return enter(openFile(path, true)); }

Opened openMemory() { return enter(makePrivate(Storage::Memory)); }

Opened copyOf(int db, Storage where)
{
    const auto* database = find(db);
    return database != nullptr ? enter(copyPrivate(*database, where)) : Opened{notOpen(db), -1};
}

void close(int db) { Registry::instance().close(db); }

bool isOpen(int db) { return find(db) != nullptr; }

std::string path(int db)
{
    const auto* database = find(db);
    return database != nullptr ? database->file() : std::string();
}

bool isReadOnly(int db)
{
    const auto* database = find(db);
    return database != nullptr && database->isReadOnly();
}

void setLockWait(int db, int milliseconds)
{
    if (const auto* database = find(db)) {
        sqlite3_busy_timeout(database->connection(), milliseconds);
    }
}

Result append(int db, int kwh, int kwl, const void* data, int length)
{
    auto* database = find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    if (data == nullptr || length < 1) {
        return resultOf(*database, database->refuse("a record without bytes"));
    }
    return resultOf(*database, database->append({kwh, kwl}, data, length));
}

Result stickyError(int db)
{
    const auto* database = find(db);
    return database != nullptr ? database->stickyError() : notOpen(db);
}

void clearStickyError(int db)
{
    if (auto* database = find(db)) {
        database->clearStickyError();
    }
}

Result integrityCheck(int db)
{
    const auto* database = find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    // The summary is brought up to date with the commit.
    if (database->depth() > 0) {
        return failure(Code::Locked, database->file(), "a transaction is open");
    }
    return checkContent(database->connection(), database->file(), Depth::Full);
}

} // namespace mrl::cdb
