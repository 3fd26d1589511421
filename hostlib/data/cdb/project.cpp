#include "hostlib/data/cdb/project.h"

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/registry.h"
#include "hostlib/data/cdb/sqlite/new_file.h"

namespace mrl::cdb {

namespace {

Database* find(int db) { return Registry::instance().find(db); }

Opened enter(OpenedStore opened)
{
    if (!opened.result) {
        return {std::move(opened.result), -1};
    }
    return {{}, Registry::instance().add(std::make_unique<Database>(std::move(opened.store)))};
}

/// The database is closed even when an exception passes through.
Result fillAndClose(int db, const std::function<Result(int db)>& fill)
{
    struct Closing
    {
        int db;
        ~Closing() { close(db); }
    };
    const Closing closing{db};
    return fill(db);
}

Result resultOf(const Database& database, Outcome outcome)
{
    return outcome == Outcome::Failed ? database.transactions().lastFailure() : Result{};
}

} // namespace

Opened create(const std::string& path)
{
    return create(path, [](int) { return Result{}; });
}

Opened create(const std::string& path, const std::function<Result(int db)>& fill)
{
    NewFile file(path);
    if (!file.state()) {
        return {file.state(), -1};
    }
    const Opened building = enter(file.makeStore());
    if (!building) {
        return building;
    }
    Result result = fillAndClose(building.db, fill);
    if (result) {
        result = file.publish();
    }
    return result ? open(path) : Opened{std::move(result), -1};
}

Opened open(const std::string& path) { return enter(Store::open(path, false)); }

Opened openReadOnly(const std::string& path) { return enter(Store::open(path, true)); }

Opened openMemory() { return enter(Store::makePrivate(Storage::Memory, nullptr)); }

Opened copyOf(int db, Storage where)
{
    auto* database = find(db);
    return database != nullptr ? enter(Store::makePrivate(where, &database->store()))
                               : Opened{notOpen(db), -1};
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

int formatVersion(int db)
{
    auto* database = find(db);
    return database != nullptr ? database->store().format() : 0;
}

std::optional<Version> versionOf(int db)
{
    auto* database = find(db);
    State state;
    if (database == nullptr || database->transactions().hasWritten() ||
        database->store().state(state) != Status::Ok) {
        return std::nullopt;
    }
    return Version{state.project, state.version, state.rows.records.sum, state.rows.facts.sum};
}

void setLockWait(int db, int milliseconds)
{
    if (auto* database = find(db)) {
        database->store().setLockWait(milliseconds);
    }
}

Result append(int db, int kwh, int kwl, const void* data, int length)
{
    auto* database = find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    if (data == nullptr || length < 1) {
        return resultOf(*database, database->transactions().refuse("a record without bytes"));
    }
    return resultOf(*database, database->append({kwh, kwl}, data, length));
}

Result stickyError(int db)
{
    auto* database = find(db);
    return database != nullptr ? database->failures().first() : notOpen(db);
}

void clearStickyError(int db)
{
    if (auto* database = find(db)) {
        database->failures().forget();
    }
}

Result integrityCheck(int db)
{
    auto* database = find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    // The summary is brought up to date with the commit.
    if (database->transactions().depth() > 0) {
        return failure(Code::Locked, database->file(), "a transaction is open");
    }
    return database->store().check(Depth::Full);
}

} // namespace mrl::cdb
