#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

#include <sqlite3.h>

#include "bench/figure.h"
#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"

// The raw side works on a file of its own with the same table but for the checksums: WAL, synchronous NORMAL,
// primary key (kwh, kwl, position) WITHOUT ROWID, N records of 188 bytes under KWH 12. Its statements are
// compiled once, outside of what is timed, on a connection without a mutex, as ours is.

namespace {

constexpr int group = 12;
constexpr int recordSize = 188;

class Folder
{
  public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "mrl-bench-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
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

void require(bool fine, const char* what)
{
    if (!fine)
        throw std::runtime_error(what);
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
        execute("PRAGMA journal_mode=WAL;PRAGMA synchronous=NORMAL;"
                "CREATE TABLE record(kwh INTEGER NOT NULL,kwl INTEGER NOT NULL,position INTEGER NOT NULL,"
                "bytes BLOB NOT NULL,PRIMARY KEY(kwh,kwl,position))WITHOUT ROWID");
    }
    ~Raw()
    {
        for (auto* statement : {scan, list, get, insert, erase})
            sqlite3_finalize(statement);
        sqlite3_close(db);
    }
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;

    void execute(const char* sql)
    {
        require(sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
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

/// Both databases with the same n records.
class Both
{
  public:
    explicit Both(int count) : n(count)
    {
        const auto opened = mrl::cdb::create(folder / "ours.cdb");
        require(static_cast<bool>(opened), "create");
        db = opened.db;
        std::memset(record, 7, sizeof record);
        raw.compile();
        mrl::cdb::Transaction transaction(db);
        raw.execute("BEGIN IMMEDIATE");
        for (int i = 1; i <= n; ++i) {
            putOurs(i);
            putRaw(i);
        }
        raw.execute("COMMIT");
        require(static_cast<bool>(transaction.commit()), "commit");
    }
    ~Both() { mrl::cdb::close(db); }

    void putOurs(int kwl)
    {
        const int length = recordSize;
        require(mrl_cdb_put(db, group, kwl, record, &length, 0) == CD_OK, "put");
    }
    void putRaw(int kwl)
    {
        sqlite3_bind_int(raw.insert, 1, group);
        sqlite3_bind_int(raw.insert, 2, kwl);
        sqlite3_bind_blob(raw.insert, 3, record, recordSize, SQLITE_STATIC);
        require(sqlite3_step(raw.insert) == SQLITE_DONE, "insert");
        sqlite3_reset(raw.insert);
    }
    void deleteRaw(int kwl)
    {
        sqlite3_bind_int(raw.erase, 1, group);
        sqlite3_bind_int(raw.erase, 2, kwl);
        require(sqlite3_step(raw.erase) == SQLITE_DONE, "delete");
        sqlite3_reset(raw.erase);
    }
    template <class Each>
    void walk(Each each) const
    {
        int kwh = group;
        int kwl = 0;
        int met = 0;
        for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == group; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1), ++met)
            each(kwl);
        require(met == n, "walk");
    }

    int n;
    Folder folder;
    Raw raw{folder / "raw.db"};
    int db = -1;
    char record[recordSize];
    char buffer[2060];
};

/// Raw: one SELECT over the group, key and bytes taken out of each row.
class WalkAndRead : Both
{
  public:
    using Both::Both;
    void ours()
    {
        walk([this](int kwl) {
            int length = sizeof buffer;
            require(mrl_cdb_get(db, group, kwl, buffer, &length, 0) == CD_OK, "get");
            mrl_cdb_free_ex(db, group, kwl);
            bench::keep(buffer);
        });
    }
    void raw()
    {
        int met = 0;
        for (; sqlite3_step(Both::raw.scan) == SQLITE_ROW; ++met) {
            bench::keep(sqlite3_column_int(Both::raw.scan, 0));
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(Both::raw.scan, 1));
            std::memcpy(buffer, sqlite3_column_blob(Both::raw.scan, 1), size);
            bench::keep(buffer);
        }
        sqlite3_reset(Both::raw.scan);
        require(met == n, "scan");
    }
};
const bench::Timed<WalkAndRead> walkAndRead("cdb.walk_and_read", 2.0);

/// Raw: SELECT kwl over the group.
class WalkKeys : Both
{
  public:
    using Both::Both;
    void ours() const
    {
        walk([](int kwl) { bench::keep(kwl); });
    }
    void raw()
    {
        while (sqlite3_step(Both::raw.list) == SQLITE_ROW)
            bench::keep(sqlite3_column_int(Both::raw.list, 0));
        sqlite3_reset(Both::raw.list);
    }
};
const bench::Timed<WalkKeys> walkKeys("cdb.walk_keys", 2.0);

/// Raw: the prepared SELECT of one record, which makes a read transaction of its own each time.
class RandomGet : Both
{
  public:
    using Both::Both;
    void ours()
    {
        for (int i = 0; i < 1000; ++i) {
            const int kwl = pick(random);
            int length = recordSize;
            require(mrl_cdb_get(db, group, kwl, buffer, &length, 0) == CD_OK, "get");
            mrl_cdb_free_ex(db, group, kwl);
        }
    }
    void raw()
    {
        for (int i = 0; i < 1000; ++i) {
            sqlite3_bind_int(Both::raw.get, 1, group);
            sqlite3_bind_int(Both::raw.get, 2, pick(random));
            require(sqlite3_step(Both::raw.get) == SQLITE_ROW, "select");
            std::memcpy(buffer, sqlite3_column_blob(Both::raw.get, 0), recordSize);
            sqlite3_reset(Both::raw.get);
        }
    }

  private:
    std::mt19937 random{1};
    std::uniform_int_distribution<int> pick{1, n};
};
const bench::Timed<RandomGet> randomGet("cdb.random_get", 1.5);

/// Raw: prepared DELETE and INSERT OR REPLACE of each key between BEGIN IMMEDIATE and COMMIT, SQLite's own
/// checkpoints included as ours are.
class DeleteAndRewrite : Both
{
  public:
    using Both::Both;
    void ours()
    {
        mrl::cdb::Transaction transaction(db);
        for (int kwl = 1; kwl <= n; ++kwl)
            require(mrl_cdb_del(db, group, kwl) == CD_OK, "del");
        for (int kwl = 1; kwl <= n; ++kwl)
            putOurs(kwl);
        require(static_cast<bool>(transaction.commit()), "commit");
    }
    void raw()
    {
        Both::raw.execute("BEGIN IMMEDIATE");
        for (int kwl = 1; kwl <= n; ++kwl)
            deleteRaw(kwl);
        for (int kwl = 1; kwl <= n; ++kwl)
            putRaw(kwl);
        Both::raw.execute("COMMIT");
    }
};
const bench::Timed<DeleteAndRewrite> deleteAndRewrite("cdb.delete_and_rewrite", 1.5);

} // namespace
