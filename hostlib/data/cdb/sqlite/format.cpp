#include "hostlib/data/cdb/sqlite/format.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <vector>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/failure.h"

namespace mrl::cdb {

// The checksum stands ahead of the bytes, so that reading it alone never follows a long record's overflow pages.
const char* const RECORD_TABLE = "CREATE TABLE record(kwh INTEGER NOT NULL,kwl INTEGER NOT NULL,"
                                 "position INTEGER NOT NULL,hash INTEGER NOT NULL,bytes BLOB NOT NULL,"
                                 "PRIMARY KEY(kwh,kwl,position))WITHOUT ROWID";
const char* const FACT_TABLE = "CREATE TABLE fact(name TEXT NOT NULL PRIMARY KEY,hash INTEGER NOT NULL,"
                               "value TEXT NOT NULL)WITHOUT ROWID";
const char* const SUMMARY_TABLE = "CREATE TABLE summary(id INTEGER PRIMARY KEY,project INTEGER NOT NULL,"
                                  "version INTEGER NOT NULL,records INTEGER NOT NULL,"
                                  "record_sum INTEGER NOT NULL,facts INTEGER NOT NULL,"
                                  "fact_sum INTEGER NOT NULL)";

namespace {

constexpr int HEADER_SIZE = 100;
using Header = std::array<unsigned char, HEADER_SIZE>;

/// Reads the first bytes of a file through SQLite's own file layer. Closing a descriptor of our own would
/// give up all locks that this process holds on the file, those of a database that has it open included.
int readHeader(const std::string& path, Header& out)
{
    sqlite3_vfs* files = sqlite3_vfs_find(nullptr);
    std::string full(static_cast<std::size_t>(files->mxPathname) + 1, '\0');
    if (const int status = files->xFullPathname(files, path.c_str(), files->mxPathname + 1, full.data());
        (status & 0xFF) != SQLITE_OK) {
        return status;
    }
    const char* name = sqlite3_create_filename(full.c_str(), "", "", 0, nullptr);
    std::vector<std::max_align_t> place(static_cast<std::size_t>(files->szOsFile) / sizeof(std::max_align_t) +
                                        1);
    auto* file = reinterpret_cast<sqlite3_file*>(place.data());
    int status = files->xOpen(files, name, file, SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READONLY, nullptr);
    if (status == SQLITE_OK) {
        status = file->pMethods->xRead(file, out.data(), HEADER_SIZE, 0);
    }
    if (file->pMethods != nullptr) {
        file->pMethods->xClose(file);
    }
    sqlite3_free_filename(name);
    return status;
}

int bigEndian(const unsigned char* at) { return (at[0] << 24) | (at[1] << 16) | (at[2] << 8) | at[3]; }

} // namespace

std::string tableTexts()
{
    return "PRAGMA application_id=" + std::to_string(APPLICATION_ID) +
           ";PRAGMA user_version=" + std::to_string(FORMAT_VERSION) + ";" + RECORD_TABLE + ";" + FACT_TABLE +
           ";" + SUMMARY_TABLE + ";INSERT INTO summary VALUES(1,random(),0,0,0,0,0)";
}

int makeTables(sqlite3* connection)
{
    const std::string statements = "BEGIN IMMEDIATE;" + tableTexts() + ";COMMIT";
    return sqlite3_exec(connection, statements.c_str(), nullptr, nullptr, nullptr);
}

Result probe(const std::string& file, const std::string& path, int& format)
{
    struct stat info = {};
    if (stat(path.c_str(), &info) != 0) {
        return failure(Code::NoFile, file, std::strerror(errno));
    }
    if (!S_ISREG(info.st_mode)) {
        return failure(Code::NotAProject, file, "this is no file");
    }
    if (access(path.c_str(), R_OK) != 0) {
        return failure(Code::NoFile, file, std::strerror(errno));
    }
    Header header{};
    const int status = readHeader(path, header);
    if (status != SQLITE_OK && status != SQLITE_IOERR_SHORT_READ) {
        return failureOf(status, nullptr, file);
    }
    if (status != SQLITE_OK || std::memcmp(header.data(), "SQLite format 3", 16) != 0 ||
        bigEndian(&header[68]) != APPLICATION_ID) {
        return failure(Code::NotAProject, file, "this is no project file");
    }
    const int version = bigEndian(&header[60]);
    if (version > FORMAT_VERSION) {
        return failure(Code::NewerFormat, path,
                       "the file has format " + std::to_string(version) +
                           ", this program knows formats up to " + std::to_string(FORMAT_VERSION));
    }
    if (version < 1) {
        return failure(Code::Corrupt, file, "the file is damaged (it has no format version)");
    }
    // What follows the log of format 1 is no longer this program's business in a file of the present one.
    if (version > 1 && (header[18] != 1 || header[19] != 1)) {
        return failure(Code::Corrupt, file, "the file is damaged (another program has put a log beside it)");
    }
    format = version;
    return {};
}

} // namespace mrl::cdb
