#include "hostlib/data/cdb/sqlite/file_format.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/raw_file.h"
#include "hostlib/data/cdb/sqlite/sqlite_failure.h"

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

int readHeader(const std::string& path, Header& out)
{
    // Without memory there is not even a layer to read through.
    if (const int status = sqlite3_initialize(); status != SQLITE_OK) {
        return status;
    }
    return RawFile(sqlite3_vfs_find(nullptr), path, SQLITE_OPEN_MAIN_DB).read(out.data(), HEADER_SIZE, 0);
}

/// What tells a project from all others, as a term of SQL: a random number, but where a build is to give the same
/// bytes each time.
/// SOURCE_DATE_EPOCH is the name that builders of packages have agreed on for that.
std::string newIdentity()
{
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    const bool isNumber = epoch != nullptr && *epoch != 0 && std::strlen(epoch) < 18 &&
                          std::strspn(epoch, "0123456789") == std::strlen(epoch);
    return isNumber ? epoch : "random()";
}

} // namespace

std::string tableTexts()
{
    return "PRAGMA application_id=" + std::to_string(APPLICATION_ID) +
           ";PRAGMA user_version=" + std::to_string(FORMAT_VERSION) + ";" + RECORD_TABLE + ";" + FACT_TABLE +
           ";" + SUMMARY_TABLE + ";INSERT INTO summary VALUES(1," + newIdentity() + ",0,0,0,0,0)";
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
    const auto version = static_cast<int>(bigEndian(&header[60]));
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
