#include <sys/stat.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/file_format.h"
#include "hostlib/data/cdb/sqlite/sqlite_failure.h"
#include "hostlib/data/cdb/sqlite/statement_texts.h"
#include "hostlib/data/cdb/sqlite/store.h"
#include "hostlib/data/cdb/sqlite/version1.h"

namespace mrl::cdb {

namespace {

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
    return beginWriting();
}

Status Store::refuse(const std::string& reason)
{
    rollback(Nesting::Outermost);
    m_failure = cdb::failure(Code::InputOutput, m_file, reason);
    return Status::Failed;
}

Status Store::beginWriting()
{
    if (m_format == 1 && (samePlace() == Status::Failed || convert() == Status::Failed)) {
        return Status::Failed;
    }
    // SQLite keeps pages as long as the file's change counter is the one it knows, and a copy that was put over
    // the file may have the same. So what follows reads the file anew.
    sqlite3_db_release_memory(m_db.get());
    const int status = execute("BEGIN IMMEDIATE");
    if (status != SQLITE_OK) {
        return failed(status);
    }
    return samePlace() == Status::Failed ? Status::Failed : sameProject();
}

/// What is written to a file that was deleted or replaced meanwhile would be lost without a word.
Status Store::samePlace()
{
    if (m_access == Access::Private) {
        return Status::Ok;
    }
    struct stat info = {};
    int moved = 0;
    sqlite3_file_control(m_db.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (moved != 0 || stat(m_place.path.c_str(), &info) != 0 || info.st_ino != m_place.inode ||
        info.st_dev != m_place.device) {
        return refuse("the file was moved, deleted or replaced while it was open");
    }
    // Another program that has it open under its other name would not see an unfinished change of ours.
    if (info.st_nlink > 1) {
        return refuse("the file has more than one name (hard links); write to a copy of it");
    }
    return Status::Ok;
}

/// Looks within the transaction whether the file still is the one that this store left, or a later state of it.
Status Store::sameProject()
{
    State now;
    if (const int status = readState(now); status != SQLITE_OK) {
        failed(status);
        rollback(Nesting::Outermost);
        return Status::Failed;
    }
    if (m_known && now.project != m_state.project) {
        return refuse("another project was put in the place of this one while it was open");
    }
    const bool same = now.version == m_state.version && now.rows == m_state.rows;
    if (m_known && !same && now.version <= m_state.version) {
        return refuse("an older state of the project was put over the file while it was open");
    }
    m_state = now;
    m_known = true;
    m_raised = false;
    return Status::Ok;
}

Status Store::commit(Nesting nesting, const Summary& change)
{
    if (nesting == Nesting::Inner) {
        const int status = execute("RELEASE level");
        return status == SQLITE_OK ? Status::Ok : failed(status);
    }
    int status = SQLITE_OK;
    if (m_writes > 0) {
        if (samePlace() == Status::Failed) {
            return Status::Failed;
        }
        status = raiseVersion(change);
    }
    if (status == SQLITE_OK) {
        status = execute("COMMIT");
    }
    if (status != SQLITE_OK) {
        return failed(status);
    }
    forgetWrites();
    if (m_raised) {
        m_state = m_next;
        m_raised = false;
        ChangeMark::committedHere();
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
    // No page is written ahead of the commit, since that would lock readers out. A long transaction gets a
    // cache of the size that it needs, where pages are found more quickly.
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

/// Converts a file of format 1, in a transaction of its own. Leaving the log behind needs the file alone, so no
/// older program has it open then, and none can write to it afterwards: its statements no longer compile.
Status Store::convert()
{
    int status = execute("PRAGMA journal_mode=DELETE");
    if (status == SQLITE_OK) {
        status = execute("BEGIN IMMEDIATE");
    }
    if (status == SQLITE_OK) {
        if (Result sound = check(Depth::Quick); !sound) {
            rollback(Nesting::Outermost);
            m_failure = std::move(sound);
            return Status::Failed;
        }
        status = version1::convert(m_db.get());
    }
    if (status == SQLITE_OK) {
        status = execute("COMMIT");
    }
    if (status != SQLITE_OK) {
        failed(status);
        rollback(Nesting::Outermost);
        return Status::Failed;
    }
    m_format = FORMAT_VERSION;
    m_texts = std::make_unique<Texts>(m_format);
    if (m_access != Access::Private) {
        m_mark.watch(m_db.get(), m_format);
    }
    return Status::Ok;
}

} // namespace mrl::cdb
