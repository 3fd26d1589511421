#include "hostlib/data/cdb/sqlite/store.h"
#include "hostlib/data/cdb/sqlite/texts.h"

namespace mrl::cdb {

namespace {

constexpr int CHECKPOINT_PAGES = 1000; // of the log, about 4 MB
/// Writes after which a transaction counts as long: their pages nearly fill SQLite's own cache.
constexpr int LONG_TRANSACTION = 4000;

} // namespace

int Store::execute(const char* sql) { return sqlite3_exec(m_db.get(), sql, nullptr, nullptr, nullptr); }

Status Store::begin(Nesting nesting)
{
    if (nesting == Nesting::Inner) {
        const int status = execute("SAVEPOINT level");
        return status == SQLITE_OK ? Status::Ok : failed(status);
    }
    // On a read-only file the lock would be granted as well, and only the first write would tell.
    if (m_access == Access::ReadOnly) {
        const int status = execute("BEGIN");
        return status == SQLITE_OK ? Status::Ok : failed(status);
    }
    // What is written to a file that was deleted or replaced meanwhile would be lost without a word.
    int moved = 0;
    if (m_access == Access::ReadWrite) {
        sqlite3_file_control(m_db.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    }
    const int status = moved != 0 ? SQLITE_READONLY_DBMOVED : execute("BEGIN IMMEDIATE");
    return status == SQLITE_OK ? Status::Ok : failed(status);
}

Status Store::commit(Nesting nesting)
{
    const int status = execute(nesting == Nesting::Inner ? "RELEASE level" : "COMMIT");
    if (status != SQLITE_OK) {
        return failed(status);
    }
    if (nesting == Nesting::Outermost) {
        forgetWrites();
        if (m_logPages >= CHECKPOINT_PAGES) {
            checkpoint();
        }
    }
    return Status::Ok;
}

void Store::rollback(Nesting nesting)
{
    if (inTransaction()) {
        execute(nesting == Nesting::Inner ? "ROLLBACK TO level;RELEASE level" : "ROLLBACK");
    }
    if (nesting == Nesting::Outermost) {
        forgetWrites();
    }
}

void Store::countWrite()
{
    ++m_writes;
    // A long transaction gets room: pages that it would otherwise write to the log, read back and write again
    // are kept until the commit.
    if (m_writes == LONG_TRANSACTION) {
        execute("PRAGMA cache_size=-65536");
    }
}

void Store::forgetWrites()
{
    // Reading is quickest from SQLite's own two megabytes, which fit the processor's cache.
    if (m_writes >= LONG_TRANSACTION) {
        execute("PRAGMA cache_size=-2000");
    }
    m_writes = 0;
}

int Store::committed(void* self, sqlite3*, const char*, int pages)
{
    static_cast<Store*>(self)->m_logPages = pages;
    return SQLITE_OK;
}

void Store::checkpoint()
{
    // Two connections that write and checkpoint at the same moment can, rarely, lose the log in the versions
    // of SQLite that are in use. So the log is copied only while nobody can write: a connection beside this
    // one holds the write lock. What fails here is tried again after the next commit; nothing is lost.
    if (m_access != Access::ReadWrite) {
        return;
    }
    if (!m_guard) {
        sqlite3* made = nullptr;
        const int status = sqlite3_open_v2(sqlite3_db_filename(m_db.get(), "main"), &made,
                                           SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        m_guard.reset(made);
        if (status != SQLITE_OK) {
            m_guard.reset();
            return;
        }
        sqlite3_wal_autocheckpoint(m_guard.get(), 0);
    }
    if (sqlite3_exec(m_guard.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) {
        return;
    }
    sqlite3_wal_checkpoint_v2(m_db.get(), "main", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    sqlite3_exec(m_guard.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    m_logPages = 0;
}

} // namespace mrl::cdb
