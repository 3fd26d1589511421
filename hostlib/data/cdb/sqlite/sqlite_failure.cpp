#include "hostlib/data/cdb/sqlite/sqlite_failure.h"

#include <cerrno>
#include <cstring>

#include <sqlite3.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/recovery.h"

namespace mrl::cdb {

namespace {

struct Wording
{
    Code code;
    const char* text;
};

Wording byOperatingSystem(int number, const Wording& otherwise)
{
    switch (number) {
    case ENOSPC:
    case EDQUOT:
        return {Code::DiskFull, "the disk is full"};
    case EROFS:
        return {Code::ReadOnly, "the file system is read-only"};
    case EACCES:
    case EPERM:
        return {Code::ReadOnly, "the file or its folder is read-only for this user"};
    default:
        return otherwise;
    }
}

/// What the operating system said. SQLite does not keep it for what fails in a commit; the files do.
int systemError(sqlite3* connection)
{
    int number = sqlite3_system_errno(connection);
    for (const int which : {SQLITE_FCNTL_FILE_POINTER, SQLITE_FCNTL_JOURNAL_POINTER}) {
        sqlite3_file* file = nullptr;
        if (number == 0 && sqlite3_file_control(connection, "main", which, &file) == SQLITE_OK &&
            file != nullptr && file->pMethods != nullptr) {
            file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &number);
        }
    }
    return number;
}

/// What the operating system said of the database file itself last; 0: nothing is wrong.
int errorOfFile(sqlite3* connection)
{
    int number = 0;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_LAST_ERRNO, &number);
    return number;
}

Wording wordingOf(int status, int number)
{
    switch (status & 0xFF) {
    case SQLITE_FULL:
        return {Code::DiskFull, "the disk is full"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
        return {Code::Locked, "the file is locked by another process"};
    case SQLITE_READONLY:
        if (status == SQLITE_READONLY_ROLLBACK) {
            return {Code::ReadOnly,
                    "a crashed program left an unfinished change, which has to be taken back by "
                    "somebody who may write to the file and its folder"};
        }
        return status == SQLITE_READONLY_DBMOVED
                   ? Wording{Code::InputOutput, "the file was moved or deleted while it was open"}
                   : Wording{Code::ReadOnly, "the file or its folder is read-only"};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_ERROR: // our statements compile on every undamaged project
    case SQLITE_SCHEMA:
    case SQLITE_CONSTRAINT:
        return {Code::Corrupt, "the file is damaged"};
    case SQLITE_NOMEM:
        return {Code::OutOfMemory, "there is no memory left"};
    case SQLITE_TOOBIG:
        return {Code::Corrupt, "the file holds a record longer than any can be"};
    case SQLITE_CANTOPEN:
        return byOperatingSystem(number, {Code::InputOutput, "the file cannot be opened"});
    default:
        return byOperatingSystem(number, {Code::InputOutput, "the file could not be read or written"});
    }
}

} // namespace

Result failureOf(int status, sqlite3* connection, const std::string& file)
{
    if ((status & 0xFF) == SQLITE_CANTOPEN && connection != nullptr) {
        const char* name = sqlite3_db_filename(connection, "main");
        if (const Refusal refusal = refusedRecovery(name != nullptr ? name : ""); !refusal.reason.empty()) {
            return failure(refusal.code, file, refusal.reason);
        }
    }
    const bool outside = (status & 0xFF) == SQLITE_IOERR || (status & 0xFF) == SQLITE_CANTOPEN;
    const int number = connection != nullptr && outside ? systemError(connection) : 0;
    const auto wording = wordingOf(status, number);
    std::string reason = wording.text;
    if (wording.code == Code::InputOutput && number != 0) {
        reason += std::string(" (") + std::strerror(number) + ")";
    } else if (wording.code == Code::Corrupt && connection != nullptr) {
        reason += std::string(" (") + sqlite3_errmsg(connection) + ")";
    }
    return failure(wording.code, file, reason);
}

Result damageOf(sqlite3* connection, const std::string& file, const std::string& verdict)
{
    if (errorOfFile(connection) != 0) {
        return failureOf(SQLITE_IOERR_READ, connection, file);
    }
    return failure(Code::Corrupt, file, "the file is damaged (" + verdict + ")");
}

} // namespace mrl::cdb
