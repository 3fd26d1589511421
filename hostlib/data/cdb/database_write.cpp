#include <climits>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/database.h"
#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/format.h"

namespace mrl::cdb {

namespace {

std::int32_t stored(std::uint32_t checksum) { return static_cast<std::int32_t>(checksum); }

std::uint32_t checksumOf(const Key& key, int position, const void* data, int size)
{
    return recordChecksum(key.kwh, key.kwl, position, data, static_cast<std::size_t>(size));
}

} // namespace

void Database::gone(sqlite3_context* context, int, sqlite3_value** values)
{
    auto* self = static_cast<Database*>(sqlite3_user_data(context));
    ++self->removed.records;
    self->removed.mix ^= static_cast<std::uint32_t>(sqlite3_value_int(values[0]));
    sqlite3_result_int(context, 1);
}

Outcome Database::writeFailed(Result error)
{
    lastError = error;
    if (sticky) {
        sticky = error;
    }
    if (!levels.empty()) {
        fail(std::move(error));
    }
    return Outcome::Failed;
}

Outcome Database::writeFailed(int status) { return writeFailed(failureOf(status, db.get(), path)); }

Outcome Database::refuse(const std::string& reason)
{
    return writeFailed(failure(Code::BadArgument, path, reason));
}

bool Database::mayWrite()
{
    if (isReadOnly()) {
        writeFailed(failure(Code::ReadOnly, path, "the project is open for reading only"));
    } else if (paused) {
        writeFailed(failure(Code::Locked, path, "a message is waiting for its answer"));
    } else if (!levels.empty() && sqlite3_get_autocommit(db.get()) != 0) {
        // The transaction is over already (its beginning failed, or SQLite took it back whole). What is
        // written now would stand alone in the file.
        writeFailed(failed ? failure(Code::InputOutput, path, "the transaction was rolled back") : failed);
    } else {
        return true;
    }
    return false;
}

Outcome Database::write(const Write& what, const void* data, int size)
{
    if (size > longestRecord) {
        return refuse("a record of " + std::to_string(size) + " bytes is too long");
    }
    if (!mayWrite()) {
        return Outcome::Failed;
    }
    if (levels.empty()) {
        const Result begun = begin(Pausable::No);
        const Outcome outcome = begun ? apply(what, data, size) : writeFailed(begun);
        if (outcome != Outcome::Done) {
            rollback();
            return outcome;
        }
        const Result end = commit();
        return end ? outcome : writeFailed(end);
    }
    const Outcome outcome = apply(what, data, size);
    if (outcome == Outcome::Done && pausable && !replaying) {
        journal.push_back(what);
        journal.back().bytes.assign(static_cast<const char*>(data), static_cast<std::size_t>(size));
    }
    return outcome;
}

Outcome Database::apply(const Write& what, const void* data, int size)
{
    if (what.kind == Write::Kind::SetFact) {
        return replaceFact(what.name, {static_cast<const char*>(data), static_cast<std::size_t>(size)});
    }
    countWrite();
    walk.written(what.key);
    if (what.kind != Write::Kind::Delete) {
        removals.written(what.key);
    }
    switch (what.kind) {
    case Write::Kind::Put:
        return insertWhole(what.key, data, size);
    case Write::Kind::Append:
        return insertBehind(what.key, data, size);
    case Write::Kind::Overwrite:
        return replaceAt(what.key, what.position, data, size);
    default:
        return deleteRows(what.key);
    }
}

Outcome Database::putWhole(const Key& key, const void* data, int size)
{
    return write({Write::Kind::Put, key, 0, {}, {}}, data, size);
}

Outcome Database::overwriteLastRead(const Key& key, const void* data, int size)
{
    return write({Write::Kind::Overwrite, key, behindOf(key), {}, {}}, data, size);
}

Outcome Database::overwriteFirst(const Key& key, const void* data, int size)
{
    return write({Write::Kind::Overwrite, key, 0, {}, {}}, data, size);
}

Outcome Database::append(const Key& key, const void* data, int size)
{
    return write({Write::Kind::Append, key, 0, {}, {}}, data, size);
}

Outcome Database::remove(const Key& key) { return write({Write::Kind::Delete, key, 0, {}, {}}, "", 0); }

Outcome Database::setFact(const std::string& name, const std::string& value)
{
    if (name.empty()) {
        return refuse("a fact needs a name");
    }
    return write({Write::Kind::SetFact, {}, 0, name, {}}, value.data(), static_cast<int>(value.size()));
}

Outcome Database::insertWhole(const Key& key, const void* data, int size)
{
    // A key without a record at position 0 has none at all. So the insertion itself tells whether the key is
    // new, which spares the usual put a search.
    const auto sum = checksumOf(key, 0, data, size);
    for (int attempt = 0; attempt < 2; ++attempt) {
        Run run(insert, db.get());
        run.bind(1, key.kwh).bind(2, key.kwl).bind(3, 0).bind(4, stored(sum)).bind(5, data, size);
        const int status = run.step();
        if (status != SQLITE_DONE) {
            return writeFailed(status);
        }
        if (sqlite3_changes(db.get()) > 0) {
            ++change.records;
            change.recordMix ^= sum;
            return Outcome::Done;
        }
        if (deleteRows(key) == Outcome::Failed) {
            return Outcome::Failed;
        }
    }
    return writeFailed(SQLITE_CORRUPT);
}

Outcome Database::insertBehind(const Key& key, const void* data, int size)
{
    int position = 0;
    {
        Run run(last, db.get());
        const int status = run.bind(1, key.kwh).bind(2, key.kwl).step();
        if (status == SQLITE_ROW) {
            position = run.integer(0) + 1;
        } else if (status != SQLITE_DONE) {
            return writeFailed(status);
        }
    }
    const auto sum = checksumOf(key, position, data, size);
    Run run(insert, db.get());
    run.bind(1, key.kwh).bind(2, key.kwl).bind(3, position).bind(4, stored(sum)).bind(5, data, size);
    const int status = run.step();
    if (status != SQLITE_DONE || sqlite3_changes(db.get()) == 0) {
        return writeFailed(status == SQLITE_DONE ? SQLITE_CORRUPT : status);
    }
    ++change.records;
    change.recordMix ^= sum;
    return Outcome::Done;
}

Outcome Database::replaceAt(const Key& key, int position, const void* data, int size)
{
    const auto sum = checksumOf(key, position, data, size);
    removed = {};
    Run run(update, db.get());
    run.bind(1, key.kwh).bind(2, key.kwl).bind(3, position).bind(4, stored(sum)).bind(5, data, size);
    const int status = run.step();
    if (status != SQLITE_DONE) {
        return writeFailed(status);
    }
    if (sqlite3_changes(db.get()) == 0) {
        return Outcome::Missing;
    }
    change.recordMix ^= removed.mix ^ sum;
    return Outcome::Done;
}

Outcome Database::deleteRows(const Key& key)
{
    Removed expected;
    const bool known = removals.find(db.get(), key, expected);
    removed = {};
    Run run(known ? eraseKnown : erase, db.get());
    const int status = run.bind(1, key.kwh).bind(2, key.kwl).step();
    if (status != SQLITE_DONE) {
        return writeFailed(status);
    }
    if (known && sqlite3_changes(db.get()) != expected.records) {
        return writeFailed(SQLITE_CORRUPT);
    }
    const Removed& taken = known ? expected : removed;
    if (!readAt.empty()) {
        readAt.erase(key);
    }
    change.records -= taken.records;
    change.recordMix ^= taken.mix;
    return taken.records > 0 ? Outcome::Done : Outcome::Missing;
}

Outcome Database::replaceFact(const std::string& name, const std::string& value)
{
    knownFacts.clear();
    removed = {};
    {
        Run run(eraseFact, db.get());
        const int status = run.bind(1, name).step();
        if (status != SQLITE_DONE) {
            return writeFailed(status);
        }
    }
    change.facts -= removed.records;
    change.factMix ^= removed.mix;
    if (value.empty()) {
        return Outcome::Done;
    }
    const auto sum = factChecksum(name, value);
    Run run(insertFact, db.get());
    const int status = run.bind(1, name).bind(2, stored(sum)).bind(3, value).step();
    if (status != SQLITE_DONE) {
        return writeFailed(status);
    }
    ++change.facts;
    change.factMix ^= sum;
    return Outcome::Done;
}

} // namespace mrl::cdb
