#include "hostlib/data/cdb/sqlite/opening.h"

#include <cerrno>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/content_check.h"
#include "hostlib/data/cdb/sqlite/file_format.h"
#include "hostlib/data/cdb/sqlite/files.h"
#include "hostlib/data/cdb/sqlite/recovery.h"
#include "hostlib/data/cdb/sqlite/sqlite_failure.h"
#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

namespace {

constexpr int LOCK_WAIT = 5000;             // ms
constexpr int LONGEST_CELL = 4 * (1 << 20); // bytes; what is longer in a damaged file must not be allocated

int run(sqlite3* connection, const char* sql)
{
    return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr);
}

std::string asUri(const std::string& path)
{
    std::string uri = "file:";
    for (const char c : path) {
        constexpr const char* DIGITS = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (c == '?' || c == '#' || c == '%') {
            uri += '%';
            uri += DIGITS[byte >> 4U];
            uri += DIGITS[byte & 15U];
        } else {
            uri += c;
        }
    }
    return uri + "?immutable=1";
}

bool isEmptyOrMissing(const std::string& path)
{
    struct stat info = {};
    return stat(path.c_str(), &info) != 0 || info.st_size == 0;
}

int connect(const std::string& name, int flags, Connection& out)
{
    // Without memory there is not even a layer to open files through.
    if (const int status = sqlite3_initialize(); status != SQLITE_OK) {
        return status;
    }
    sqlite3* made = nullptr;
    // One thread comes here, so the connection needs no mutex of its own.
    const int status = sqlite3_open_v2(name.c_str(), &made, flags | SQLITE_OPEN_NOMUTEX, fileLayer());
    out.reset(made);
    if (status != SQLITE_OK) {
        return status;
    }
    sqlite3_extended_result_codes(made, 1);
    sqlite3_busy_timeout(made, LOCK_WAIT);
    sqlite3_limit(made, SQLITE_LIMIT_LENGTH, LONGEST_CELL);
    sqlite3_db_config(made, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_wal_autocheckpoint(made, 0); // of format 1
    // Extra: the folder is synced after the journal is deleted, or a power loss could bring it back and undo a
    // transaction that was reported as done. No spill: that would lock readers out before the commit.
    return run(made, "PRAGMA synchronous=EXTRA;PRAGMA cache_spill=OFF;PRAGMA cell_size_check=ON;"
                     "PRAGMA trusted_schema=OFF;PRAGMA temp_store=MEMORY");
}

/// A connection for reading only. With the right to write it is an ordinary one that is told not to, since only
/// such a one can take back what a crashed program left unfinished; without, SQLite's read-only one.
int connectForReading(const std::string& file, const std::string& path, Connection& out)
{
    if (mayBeWritten(file, path)) {
        const int status = connect(path, SQLITE_OPEN_READWRITE, out);
        return status == SQLITE_OK ? run(out.get(), "PRAGMA query_only=ON") : status;
    }
    return connect(path, SQLITE_OPEN_READONLY, out);
}

/// The same for format 1, whose log needs an index beside it even for reading. Without a log, a file that can't be
/// written is taken as unchanging, since SQLite would leave the index behind.
int connectToFormat1(const std::string& file, const std::string& path, bool readOnly, Connection& out)
{
    const bool log = !isEmptyOrMissing(path + "-wal");
    if (readOnly && !log && !mayBeWritten(file, path)) {
        return connect(asUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, out);
    }
    const int status =
        readOnly ? connectForReading(file, path, out) : connect(path, SQLITE_OPEN_READWRITE, out);
    if (status != SQLITE_OK) {
        return status;
    }
    // Not even the log of a crashed program is copied into the file by opening it.
    sqlite3_db_config(out.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, log ? 1 : 0, nullptr);
    return run(out.get(), "SELECT 1 FROM sqlite_schema");
}

/// What opening failed for. Of a log that can't be read for want of rights SQLite says that the file can't be opened.
Result failureToOpen(int status, sqlite3* connection, const std::string& file, const Place& place, int format)
{
    const int primary = status & 0xFF;
    if (format == 1 && (primary == SQLITE_CANTOPEN || primary == SQLITE_READONLY) &&
        !isEmptyOrMissing(place.path + "-wal")) {
        return failure(Code::ReadOnly, file,
                       place.path +
                           "-wal, the log of an older program, can only be read by somebody who may write "
                           "to the file and its folder");
    }
    return failureOf(status, connection, file);
}

int connectPrivate(Storage where, Connection& out)
{
    // A database without a name lives in a file that the operating system forgets with its closing.
    const int status =
        connect(where == Storage::Memory ? ":memory:" : "", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, out);
    return status == SQLITE_OK ? run(out.get(), "PRAGMA synchronous=OFF") : status;
}

int copy(sqlite3* from, sqlite3* to)
{
    sqlite3_backup* backup = sqlite3_backup_init(to, "main", from, "main");
    if (backup == nullptr) {
        return sqlite3_errcode(to);
    }
    sqlite3_backup_step(backup, -1);
    const int status = sqlite3_backup_finish(backup);
    return status == SQLITE_OK ? run(to, "SELECT 1 FROM summary") : status;
}

/// All that can be told without opening the file as a database.
Result lookBeforeOpening(const std::string& path, bool readOnly, Place& place, int& format)
{
    Result fit = findPlace(path, place);
    if (fit) {
        fit = probe(path, place.path, format);
    }
    if (fit) {
        fit = checkCompanions(path, place.path);
    }
    if (fit) {
        fit = checkDormantJournal(path, place.path);
    }
    return fit && !readOnly ? mayBeWritten(path, place.path) : fit;
}

} // namespace

int connectToBuild(const std::string& path, Connection& out)
{
    const int status = connect(path, SQLITE_OPEN_READWRITE, out);
    return status == SQLITE_OK ? run(out.get(), "PRAGMA journal_mode=MEMORY;PRAGMA synchronous=OFF") : status;
}

int connectToCopy(const std::string& path, Connection& out)
{
    const int status = connect(path, SQLITE_OPEN_READWRITE, out);
    return status == SQLITE_OK ? run(out.get(), "PRAGMA synchronous=OFF") : status;
}

int readFormat(sqlite3* connection, int& format)
{
    Statement text("PRAGMA user_version");
    Run run(text, connection);
    const int status = run.step();
    if (status == SQLITE_ROW) {
        format = run.integer(0);
    }
    return status == SQLITE_ROW ? SQLITE_OK : status;
}

OpenedStore Store::open(const std::string& path, bool readOnly)
{
    Place place;
    int format = 0;
    if (Result fit = lookBeforeOpening(path, readOnly, place, format); !fit) {
        return {std::move(fit), nullptr};
    }
    Connection connection;
    int status = SQLITE_OK;
    if (format == 1) {
        status = connectToFormat1(path, place.path, readOnly, connection);
    } else {
        status = readOnly ? connectForReading(path, place.path, connection)
                          : connect(place.path, SQLITE_OPEN_READWRITE, connection);
    }
    if (status == SQLITE_OK) {
        status = readFormat(connection.get(), format);
    }
    if (status != SQLITE_OK) {
        return {failureToOpen(status, connection.get(), path, place, format), nullptr};
    }
    if (Result content = checkContent(connection.get(), path, format, Depth::Quick); !content) {
        if (content.code == Code::Corrupt || content.code == Code::Checksum) {
            content.text += adviceForDamage(place.path);
        }
        return {std::move(content), nullptr};
    }
    return {{},
            std::make_unique<Store>(std::move(connection), path,
                                    readOnly ? Access::ReadOnly : Access::ReadWrite, format,
                                    std::move(place))};
}

OpenedStore Store::makePrivate(Storage where, Store* content)
{
    const std::string name = content != nullptr ? content->file() : std::string();
    if (content != nullptr && content->inTransaction()) {
        return {cdb::failure(Code::Locked, name, "a transaction is open"), nullptr};
    }
    Connection connection;
    int status = connectPrivate(where, connection);
    if (status == SQLITE_OK) {
        status =
            content != nullptr ? copy(content->m_db.get(), connection.get()) : makeTables(connection.get());
    }
    if (status != SQLITE_OK) {
        return {failureOf(status, connection.get(), name), nullptr};
    }
    const int format = content != nullptr ? content->m_format : FORMAT_VERSION;
    return {{}, std::make_unique<Store>(std::move(connection), name, Access::Private, format, Place{})};
}

} // namespace mrl::cdb
