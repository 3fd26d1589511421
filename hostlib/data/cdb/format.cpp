#include "hostlib/data/cdb/format.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/statement.h"

namespace mrl::cdb {

namespace {

// The checksum stands ahead of the bytes, so that reading it alone never follows a long record's overflow
// pages. It is kept as a signed number, which takes four bytes in the file and not six.
constexpr const char* recordTable = "CREATE TABLE record(kwh INTEGER NOT NULL,kwl INTEGER NOT NULL,"
                                    "position INTEGER NOT NULL,crc INTEGER NOT NULL,bytes BLOB NOT NULL,"
                                    "PRIMARY KEY(kwh,kwl,position))WITHOUT ROWID";
constexpr const char* factTable = "CREATE TABLE fact(name TEXT NOT NULL PRIMARY KEY,crc INTEGER NOT NULL,"
                                  "value TEXT NOT NULL)WITHOUT ROWID";
constexpr const char* summaryTable = "CREATE TABLE summary(id INTEGER PRIMARY KEY,records INTEGER NOT NULL,"
                                     "record_xor INTEGER NOT NULL,facts INTEGER NOT NULL,"
                                     "fact_xor INTEGER NOT NULL)";

struct Tally
{
    sqlite3_int64 count = 0;
    std::uint32_t mix = 0;

    void add(std::uint32_t checksum)
    {
        ++count;
        mix ^= checksum;
    }
    bool fits(const Run& run, int column) const
    {
        return run.wide(column) == count && run.wide(column + 1) == static_cast<sqlite3_int64>(mix);
    }
};

class Checker
{
  public:
    Checker(sqlite3* c, const std::string& f) : db(c), file(f) {}

    Result run(Depth depth)
    {
        Result result = tables();
        if (result) {
            result = pages(depth);
        }
        if (result) {
            result = records();
        }
        if (result) {
            result = facts();
        }
        if (result) {
            result = summary();
        }
        return result;
    }

  private:
    Result damaged(const std::string& what) const
    {
        return failure(Code::Corrupt, file, "the file is damaged (" + what + ")");
    }

    Result tables()
    {
        Statement text("SELECT sql FROM sqlite_schema ORDER BY name");
        Run run(text, db);
        for (const char* expected : {factTable, recordTable, summaryTable}) {
            const int status = run.step();
            if (status != SQLITE_ROW && status != SQLITE_DONE) {
                return failureOf(status, db, file);
            }
            if (status == SQLITE_DONE || run.text(0) != expected) {
                return damaged("its tables are not those of a project");
            }
        }
        return run.step() == SQLITE_DONE ? Result{} : damaged("its tables are not those of a project");
    }

    Result pages(Depth depth)
    {
        Statement text(depth == Depth::Full ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)");
        Run run(text, db);
        const int status = run.step();
        if (status != SQLITE_ROW) {
            return failureOf(status, db, file);
        }
        const std::string verdict = run.text(0);
        return verdict == "ok" ? Result{} : damaged(verdict);
    }

    Result records()
    {
        Statement text("SELECT kwh,kwl,position,crc,bytes FROM record ORDER BY kwh,kwl,position");
        Run run(text, db);
        Key last;
        int position = -1;
        int status = SQLITE_OK;
        while ((status = run.step()) == SQLITE_ROW) {
            const Key key{run.integer(0), run.integer(1)};
            position = recordTally.count > 0 && key == last ? position + 1 : 0;
            if (Result result = record(run, key, last, position); !result) {
                return result;
            }
            last = key;
        }
        return status == SQLITE_DONE ? Result{} : failureOf(status, db, file);
    }

    Result record(const Run& run, const Key& key, const Key& last, int position)
    {
        const std::string name = "record " + std::to_string(key.kwh) + "/" + std::to_string(key.kwl);
        for (int column = 0; column < 4; ++column) {
            const auto value = run.wide(column);
            if (run.type(column) != SQLITE_INTEGER || value < INT32_MIN || value > INT32_MAX) {
                return damaged(name + " is not made of what a record is made of");
            }
        }
        if (run.type(4) != SQLITE_BLOB || run.size(4) < 1 || run.size(4) > longestRecord) {
            return damaged(name + " has an impossible length");
        }
        const auto sum = recordChecksum(key.kwh, key.kwl, run.integer(2), run.bytes(4),
                                        static_cast<std::size_t>(run.size(4)));
        if (sum != static_cast<std::uint32_t>(run.integer(3))) {
            return failure(Code::Checksum, file, name + " does not fit its checksum");
        }
        const bool ascending = key.kwh != last.kwh ? key.kwh > last.kwh : key.kwl >= last.kwl;
        if (recordTally.count > 0 && !ascending) {
            return damaged(name + " stands in the wrong place");
        }
        if (run.integer(2) != position) {
            return damaged(name + " has a gap in its positions");
        }
        recordTally.add(sum);
        return {};
    }

    Result facts()
    {
        Statement text("SELECT name,crc,value FROM fact ORDER BY name");
        Run run(text, db);
        int status = SQLITE_OK;
        while ((status = run.step()) == SQLITE_ROW) {
            const auto sum = factChecksum(run.text(0), run.text(2));
            if (run.wide(1) != static_cast<std::int32_t>(sum)) {
                return failure(Code::Checksum, file,
                               "the fact \"" + run.text(0) + "\" does not fit its checksum");
            }
            factTally.add(sum);
        }
        return status == SQLITE_DONE ? Result{} : failureOf(status, db, file);
    }

    Result summary()
    {
        Statement text("SELECT records,record_xor,facts,fact_xor,id FROM summary");
        Run run(text, db);
        const int status = run.step();
        if (status != SQLITE_ROW && status != SQLITE_DONE) {
            return failureOf(status, db, file);
        }
        if (status == SQLITE_DONE || run.integer(4) != 1 || !recordTally.fits(run, 0) ||
            !factTally.fits(run, 2)) {
            return failure(Code::Checksum, file, "the summary of the records does not fit its records");
        }
        return run.step() == SQLITE_DONE ? Result{} : damaged("it has more than one summary");
    }

    sqlite3* db;
    const std::string& file;
    Tally recordTally;
    Tally factTally;
};

constexpr int headerSize = 100;
using Header = std::array<unsigned char, headerSize>;

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
        status = file->pMethods->xRead(file, out.data(), headerSize, 0);
    }
    if (file->pMethods != nullptr) {
        file->pMethods->xClose(file);
    }
    sqlite3_free_filename(name);
    return status;
}

int bigEndian(const unsigned char* at) { return (at[0] << 24) | (at[1] << 16) | (at[2] << 8) | at[3]; }

} // namespace

int makeTables(sqlite3* connection)
{
    const std::string statements = "BEGIN IMMEDIATE;PRAGMA application_id=" + std::to_string(applicationId) +
                                   ";PRAGMA user_version=" + std::to_string(formatVersion) + ";" +
                                   recordTable + ";" + factTable + ";" + summaryTable +
                                   ";INSERT INTO summary VALUES(1,0,0,0,0);COMMIT";
    return sqlite3_exec(connection, statements.c_str(), nullptr, nullptr, nullptr);
}

Result probe(const std::string& path)
{
    struct stat info = {};
    if (stat(path.c_str(), &info) != 0) {
        return failure(Code::NoFile, path, std::strerror(errno));
    }
    if (!S_ISREG(info.st_mode)) {
        return failure(Code::NotAProject, path, "this is no file");
    }
    if (access(path.c_str(), R_OK) != 0) {
        return failure(Code::NoFile, path, std::strerror(errno));
    }
    Header header{};
    const int status = readHeader(path, header);
    if (status != SQLITE_OK && status != SQLITE_IOERR_SHORT_READ) {
        return failureOf(status, nullptr, path);
    }
    if (status != SQLITE_OK || std::memcmp(header.data(), "SQLite format 3", 16) != 0 ||
        bigEndian(&header[68]) != applicationId) {
        return failure(Code::NotAProject, path, "this is no project file");
    }
    const int version = bigEndian(&header[60]);
    if (version > formatVersion) {
        return failure(Code::NewerFormat, path,
                       "the file has format " + std::to_string(version) +
                           ", this program knows formats up to " + std::to_string(formatVersion));
    }
    if (version < 1) {
        return failure(Code::Corrupt, path, "the file is damaged (it has no format version)");
    }
    return {};
}

Result checkContent(sqlite3* connection, const std::string& file, Depth depth)
{
    // One snapshot for all, since the summary has to fit the records. Inside a transaction there is one.
    const bool own = sqlite3_get_autocommit(connection) != 0;
    if (own) {
        const int status = sqlite3_exec(connection, "BEGIN", nullptr, nullptr, nullptr);
        if (status != SQLITE_OK) {
            return failureOf(status, connection, file);
        }
    }
    Result result = Checker(connection, file).run(depth);
    if (own) {
        sqlite3_exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    return result;
}

} // namespace mrl::cdb
