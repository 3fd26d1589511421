#include "hostlib/data/cdb/database.h"
#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

namespace {

constexpr int checkpointPages = 1000; // of the log, about 4 MB
/// Writes after which a transaction counts as long: their pages nearly fill SQLite's own cache.
constexpr int longTransaction = 4000;

} // namespace

int Database::execute(const char* sql) { return sqlite3_exec(db.get(), sql, nullptr, nullptr, nullptr); }

void Database::fail(Result error)
{
    if (failed) {
        failed = std::move(error);
    }
}

Result Database::begin(Pausable wish)
{
    const bool outermost = levels.empty();
    if (outermost) {
        pausable = wish == Pausable::Yes && !isReadOnly();
        failed = {};
        change = {};
    }
    levels.push_back({change, journal.size()});
    if (paused) {
        fail(failure(Code::Locked, path, "a message is waiting for its answer"));
    }
    if (!failed) {
        return failed;
    }
    int status = SQLITE_OK;
    if (!outermost) {
        status = execute("SAVEPOINT level");
    } else {
        // On a read-only file the lock would be granted as well, and only the first write would tell.
        status = isReadOnly() ? execute("BEGIN") : beginWriting();
    }
    if (status != SQLITE_OK) {
        fail(failureOf(status, db.get(), path));
    }
    return failed;
}

int Database::beginWriting()
{
    // What is written to a file that was deleted or replaced meanwhile would be lost without a word.
    int moved = 0;
    if (access == Access::ReadWrite) {
        sqlite3_file_control(db.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    }
    return moved != 0 ? SQLITE_READONLY_DBMOVED : execute("BEGIN IMMEDIATE");
}

Result Database::commit()
{
    if (paused) {
        fail(failure(Code::Locked, path, "a message is waiting for its answer"));
    }
    if (failed && levels.size() > 1) {
        const int status = execute("RELEASE level");
        if (status != SQLITE_OK) {
            fail(failureOf(status, db.get(), path));
        }
    } else if (failed) {
        int status = writeSummary();
        if (status == SQLITE_OK) {
            status = execute("COMMIT");
        }
        if (status != SQLITE_OK) {
            fail(failureOf(status, db.get(), path));
        }
    }
    if (!failed) {
        Result reason = failed;
        if (sticky) {
            sticky = reason;
        }
        rollback();
        return reason;
    }
    endLevel(true);
    if (levels.empty() && logPages >= checkpointPages) {
        checkpoint();
    }
    return {};
}

void Database::rollback()
{
    if (levels.empty()) {
        return;
    }
    // SQLite may have taken the whole transaction back by itself: then there is nothing left to undo.
    const bool open = sqlite3_get_autocommit(db.get()) == 0;
    if (open && levels.size() > 1) {
        execute("ROLLBACK TO level;RELEASE level");
    } else if (open) {
        execute("ROLLBACK");
    }
    endLevel(false);
    forgetRead();
    removals.drop();
}

void Database::forgetRead()
{
    walk.drop();
    knownFacts.clear();
}

void Database::endLevel(bool keepWrites)
{
    if (!keepWrites) {
        change = levels.back().before;
        journal.resize(levels.back().journalSize);
    }
    levels.pop_back();
    if (!levels.empty()) {
        return;
    }
    removals.drop();
    journal.clear();
    journal.shrink_to_fit();
    // Reading is quickest from SQLite's own two megabytes, which fit the processor's cache.
    if (writes >= longTransaction) {
        execute("PRAGMA cache_size=-2000");
    }
    writes = 0;
    failed = {};
    paused = false;
    pausable = false;
}

void Database::countWrite()
{
    if (++writes == longTransaction) {
        execute("PRAGMA cache_size=-65536");
    }
}

int Database::writeSummary()
{
    if (change.records == 0 && change.recordMix == 0 && change.facts == 0 && change.factMix == 0) {
        return SQLITE_OK;
    }
    Run run(summary, db.get());
    run.bind(1, change.records).bind(2, change.recordMix).bind(3, change.facts).bind(4, change.factMix);
    const int status = run.step();
    return status == SQLITE_DONE ? SQLITE_OK : status;
}

void Database::pause()
{
    if (levels.empty() || !pausable || paused) {
        return;
    }
    paused = true;
    if (sqlite3_get_autocommit(db.get()) == 0) {
        execute("ROLLBACK");
    }
    forgetRead();
    removals.drop();
}

void Database::resume()
{
    if (!paused) {
        return;
    }
    paused = false;
    if (!failed) {
        return;
    }
    const int status = replay();
    forgetRead();
    if (status == SQLITE_OK && failed) {
        return;
    }
    fail(failureOf(status, db.get(), path));
    if (sticky) {
        sticky = failed;
    }
    if (sqlite3_get_autocommit(db.get()) == 0) {
        execute("ROLLBACK");
    }
}

int Database::replay()
{
    int status = beginWriting();
    change = {};
    replaying = true;
    std::size_t level = 1;
    const auto openLevels = [&](std::size_t done) {
        for (; status == SQLITE_OK && level < levels.size() && levels[level].journalSize == done; ++level) {
            levels[level].before = change;
            status = execute("SAVEPOINT level");
        }
    };
    for (std::size_t i = 0; i < journal.size() && status == SQLITE_OK && failed; ++i) {
        openLevels(i);
        const Write& write = journal[i];
        const Outcome outcome = apply(write, write.bytes.data(), static_cast<int>(write.bytes.size()));
        // Who deleted in the meantime what this deletes too, did no harm; a record to overwrite must be
        // there.
        if (outcome == Outcome::Missing && write.kind == Write::Kind::Overwrite) {
            fail(failure(Code::Locked, path, "another program deleted a record that is being changed"));
        }
    }
    openLevels(journal.size());
    replaying = false;
    return status;
}

int Database::committed(void* self, sqlite3*, const char*, int pages)
{
    static_cast<Database*>(self)->logPages = pages;
    return SQLITE_OK;
}

void Database::checkpoint()
{
    // Two connections that write and checkpoint at the same moment can, rarely, lose the log in the versions
    // of SQLite that are about. So the log is copied only while nobody can write: a connection beside this
    // one holds the write lock. What fails here is tried again after the next commit; nothing is lost.
    if (access != Access::ReadWrite) {
        return;
    }
    if (!guard) {
        sqlite3* made = nullptr;
        const int status = sqlite3_open_v2(sqlite3_db_filename(db.get(), "main"), &made,
                                           SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        guard.reset(made);
        if (status != SQLITE_OK) {
            guard.reset();
            return;
        }
        sqlite3_wal_autocheckpoint(guard.get(), 0);
    }
    if (sqlite3_exec(guard.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) {
        return;
    }
    sqlite3_wal_checkpoint_v2(db.get(), "main", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    sqlite3_exec(guard.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    logPages = 0;
}

} // namespace mrl::cdb
