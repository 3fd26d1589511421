#pragma once

/// The raw side works on a file of its own with the same table but for the checksums: a rollback journal,
/// synchronous EXTRA and no spill as ours has them, primary key (kwh, kwl, position) WITHOUT ROWID, N records of 188 bytes under KWH 12. Its
/// statements are compiled once, outside of what is timed, on a connection without a mutex, as ours is.

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <sqlite3.h>

namespace bench {

/// A temporary folder that goes with its end.
class Folder
{
  public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "mrl-bench-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        folder = name;
    }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string operator/(const char* name) const { return (folder / name).string(); }

  private:
    std::filesystem::path folder;
};

inline void require(bool fine, const char* what)
{
    if (!fine) {
        throw std::runtime_error(what);
    }
}

/// The raw side's database.
class Raw
{
  public:
    explicit Raw(const std::string& file)
    {
        require(sqlite3_open_v2(file.c_str(), &db,
                                SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                                nullptr) == SQLITE_OK,
                "open");
        execute("PRAGMA synchronous=EXTRA;PRAGMA cache_spill=OFF;"
                "CREATE TABLE record(kwh INTEGER NOT NULL,kwl INTEGER NOT NULL,position INTEGER NOT NULL,"
                "bytes BLOB NOT NULL,PRIMARY KEY(kwh,kwl,position))WITHOUT ROWID");
    }
    ~Raw()
    {
        for (auto* statement : {scan, list, get, insert, erase}) {
            sqlite3_finalize(statement);
        }
        sqlite3_close(db);
    }
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;

    void execute(const std::string& sql)
    {
        require(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, sql.c_str());
    }
    void compile()
    {
        scan = prepare("SELECT kwl,bytes FROM record WHERE kwh=12 ORDER BY kwl,position");
        list = prepare("SELECT kwl FROM record WHERE kwh=12 ORDER BY kwl");
        get = prepare("SELECT bytes FROM record WHERE kwh=?1 AND kwl=?2 AND position=0");
        insert = prepare("INSERT OR REPLACE INTO record VALUES(?1,?2,0,?3)");
        erase = prepare("DELETE FROM record WHERE kwh=?1 AND kwl=?2");
    }

    sqlite3* db = nullptr;
    sqlite3_stmt* scan = nullptr;
    sqlite3_stmt* list = nullptr;
    sqlite3_stmt* get = nullptr;
    sqlite3_stmt* insert = nullptr;
    sqlite3_stmt* erase = nullptr;

  private:
    sqlite3_stmt* prepare(const char* sql)
    {
        sqlite3_stmt* made = nullptr;
        require(sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr) == SQLITE_OK, sql);
        return made;
    }
};

} // namespace bench
