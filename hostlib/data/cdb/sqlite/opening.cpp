#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/content_check.h"
#include "hostlib/data/cdb/sqlite/failure.h"
#include "hostlib/data/cdb/sqlite/format.h"
#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

namespace {

constexpr int LOCK_WAIT = 5000;             // ms
constexpr int LONGEST_CELL = 4 * (1 << 20); // bytes; what is longer in a damaged file must not be allocated
constexpr int KEPT_LOG_BYTES = 16 * (1 << 20); // of the log, after a large transaction

int run(sqlite3* connection, const char* sql)
{
    return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr);
}

/// SQLite takes some names for something else than a file.
std::string plainName(const std::string& path) { return path.front() == '/' ? path : "./" + path; }

std::string asUri(const std::string& path)
{
    std::string uri = "file:";
    for (const char c : plainName(path)) {
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

std::string folderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

long long sizeOf(const std::string& path)
{
    struct stat info = {};
    return stat(path.c_str(), &info) == 0 ? static_cast<long long>(info.st_size) : 0;
}

int connect(const std::string& name, int flags, Connection& out)
{
    sqlite3* made = nullptr;
    // One thread comes here, so the connection needs no mutex of its own.
    const int status = sqlite3_open_v2(name.c_str(), &made, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    out.reset(made);
    if (status != SQLITE_OK) {
        return status;
    }
    sqlite3_extended_result_codes(made, 1);
    sqlite3_busy_timeout(made, LOCK_WAIT);
    sqlite3_limit(made, SQLITE_LIMIT_LENGTH, LONGEST_CELL);
    sqlite3_db_config(made, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_wal_autocheckpoint(made, 0);
    return run(made, "PRAGMA synchronous=NORMAL;PRAGMA cell_size_check=ON;PRAGMA trusted_schema=OFF;"
                     "PRAGMA temp_store=MEMORY");
}

int startLog(sqlite3* connection)
{
    const int status = run(connection, "PRAGMA journal_mode=WAL");
    const std::string limit = "PRAGMA journal_size_limit=" + std::to_string(KEPT_LOG_BYTES);
    return status == SQLITE_OK ? run(connection, limit.c_str()) : status;
}

/// Reserves the name, so that of two programs that create the same file one is refused.
Result reserve(const std::string& path)
{
    const int file = ::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
    if (file >= 0) {
        ::close(file);
        return {};
    }
    switch (errno) {
    case EEXIST:
        return failure(Code::Exists, path, "the file exists already");
    case EACCES:
    case EPERM:
    case EROFS:
        return failure(Code::ReadOnly, path, "the folder is read-only");
    case ENOSPC:
    case EDQUOT:
        return failure(Code::DiskFull, path, "the disk is full");
    case ENOENT:
    case ENOTDIR:
        return failure(Code::NoFile, path, "there is no such folder");
    default:
        return failure(Code::NoFile, path, std::strerror(errno));
    }
}

Result mayBeWritten(const std::string& path)
{
    if (access(path.c_str(), W_OK) != 0) {
        return failure(Code::ReadOnly, path, "the file is read-only");
    }
    // The log stands beside the file.
    if (access(folderOf(path).c_str(), W_OK) != 0) {
        return failure(Code::ReadOnly, path, "its folder is read-only");
    }
    return {};
}

/// A connection for reading only. With the right to write it is an ordinary one that is told not to, since
/// only such a one tidies up the files that it shares with others; without, SQLite's read-only one; and where
/// not even those files can be made, one that takes the file as unchanging, which it is there.
int connectForReading(const std::string& path, Connection& out)
{
    if (mayBeWritten(path)) {
        const int status = connect(plainName(path), SQLITE_OPEN_READWRITE, out);
        return status == SQLITE_OK ? run(out.get(), "PRAGMA query_only=ON") : status;
    }
    int status = connect(plainName(path), SQLITE_OPEN_READONLY, out);
    if (status == SQLITE_OK) {
        status = run(out.get(), "SELECT 1 FROM sqlite_schema");
    }
    if ((status & 0xFF) != SQLITE_CANTOPEN && (status & 0xFF) != SQLITE_READONLY) {
        return status;
    }
    if (sizeOf(path + "-wal") > 0) {
        return status;
    }
    return connect(asUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, out);
}

} // namespace

OpenedStore Store::create(const std::string& path)
{
    if (path.empty()) {
        return {cdb::failure(Code::NoFile, "\"\"", "a file needs a name"), nullptr};
    }
    if (Result reserved = reserve(path); !reserved) {
        return {std::move(reserved), nullptr};
    }
    Connection connection;
    int status = connect(plainName(path), SQLITE_OPEN_READWRITE, connection);
    // The tables come ahead of the log, so that the file itself tells from its first moment what it is.
    if (status == SQLITE_OK) {
        status = makeTables(connection.get());
    }
    if (status == SQLITE_OK) {
        status = startLog(connection.get());
    }
    if (status == SQLITE_OK) {
        status = run(connection.get(), "SELECT 1 FROM summary"); // attaches the log
    }
    if (status != SQLITE_OK) {
        Result error = failureOf(status, connection.get(), path);
        connection.reset();
        removeFile(path);
        return {std::move(error), nullptr};
    }
    return {{}, std::make_unique<Store>(std::move(connection), path, Access::ReadWrite)};
}

void removeFile(const std::string& path)
{
    // SQLite leaves its own files when it could not finish them, or fold the log in on a full disk.
    for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
        ::unlink((path + ending).c_str());
    }
}

OpenedStore Store::open(const std::string& path, bool readOnly)
{
    if (Result looked = probe(path); !looked) {
        return {std::move(looked), nullptr};
    }
    if (Result allowed = readOnly ? Result{} : mayBeWritten(path); !allowed) {
        return {std::move(allowed), nullptr};
    }
    const bool leftoverLog = sizeOf(path + "-wal") > 0;
    Connection connection;
    int status = readOnly ? connectForReading(path, connection)
                          : connect(plainName(path), SQLITE_OPEN_READWRITE, connection);
    if (status != SQLITE_OK) {
        return {failureOf(status, connection.get(), path), nullptr};
    }
    // Until the file is known to be sound, and for reading only for good, not even the log of a crashed
    // program is copied into it.
    if (leftoverLog) {
        sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    if (Result content = checkContent(connection.get(), path, Depth::Quick); !content) {
        return {std::move(content), nullptr};
    }
    if (readOnly) {
        return {{}, std::make_unique<Store>(std::move(connection), path, Access::ReadOnly)};
    }
    sqlite3_db_config(connection.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    status = startLog(connection.get());
    if (status == SQLITE_OK) {
        status = run(connection.get(), "SELECT 1 FROM summary");
    }
    if (status != SQLITE_OK) {
        return {failureOf(status, connection.get(), path), nullptr};
    }
    return {{}, std::make_unique<Store>(std::move(connection), path, Access::ReadWrite)};
}

namespace {

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

} // namespace

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
    return {{}, std::make_unique<Store>(std::move(connection), name, Access::Private)};
}

} // namespace mrl::cdb
