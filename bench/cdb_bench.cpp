#include <cstring>
#include <random>

#include "bench/figure.h"
#include "bench/raw_database.h"
#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"

namespace {

using bench::Folder;
using bench::Raw;
using bench::require;

constexpr int group = 12;
constexpr int recordSize = 188;

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
        for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == group; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1), ++met) {
            each(kwl);
        }
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
        while (sqlite3_step(Both::raw.list) == SQLITE_ROW) {
            bench::keep(sqlite3_column_int(Both::raw.list, 0));
        }
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

/// Raw: prepared DELETE and INSERT OR REPLACE of each key between BEGIN IMMEDIATE and COMMIT. Ours finds that
/// nothing has changed.
class DeleteAndRewrite : Both
{
  public:
    using Both::Both;
    void ours()
    {
        mrl::cdb::Transaction transaction(db);
        for (int kwl = 1; kwl <= n; ++kwl) {
            require(mrl_cdb_del(db, group, kwl) == CD_OK, "del");
        }
        for (int kwl = 1; kwl <= n; ++kwl) {
            putOurs(kwl);
        }
        require(static_cast<bool>(transaction.commit()), "commit");
    }
    void raw()
    {
        Both::raw.execute("BEGIN IMMEDIATE");
        for (int kwl = 1; kwl <= n; ++kwl) {
            deleteRaw(kwl);
        }
        for (int kwl = 1; kwl <= n; ++kwl) {
            putRaw(kwl);
        }
        Both::raw.execute("COMMIT");
    }
};
const bench::Timed<DeleteAndRewrite> deleteAndRewrite("cdb.delete_and_rewrite", 1.5);

/// Other bytes for every key, in one transaction. Raw: prepared INSERT OR REPLACE between BEGIN IMMEDIATE and
/// COMMIT.
class PutOthers : Both
{
  public:
    using Both::Both;
    void prepareOurs() { ++record[0]; }
    void prepareRaw() { ++record[0]; }
    void ours()
    {
        mrl::cdb::Transaction transaction(db);
        for (int kwl = 1; kwl <= n; ++kwl) {
            putOurs(kwl);
        }
        require(static_cast<bool>(transaction.commit()), "commit");
    }
    void raw()
    {
        Both::raw.execute("BEGIN IMMEDIATE");
        for (int kwl = 1; kwl <= n; ++kwl) {
            putRaw(kwl);
        }
        Both::raw.execute("COMMIT");
    }
};
const bench::Timed<PutOthers> putOthers("cdb.put_others", 2.5);

/// New keys in one transaction, deleted again outside of what is timed. Raw: the same by INSERT OR REPLACE.
class PutNew : Both
{
  public:
    using Both::Both;
    void prepareOurs()
    {
        mrl::cdb::Transaction transaction(db);
        for (int kwl = n + 1; kwl <= 2 * n; ++kwl) {
            mrl_cdb_del(db, group, kwl);
        }
        require(static_cast<bool>(transaction.commit()), "commit");
    }
    void prepareRaw() { Both::raw.execute("DELETE FROM record WHERE kwl>" + std::to_string(n)); }
    void ours()
    {
        mrl::cdb::Transaction transaction(db);
        for (int kwl = n + 1; kwl <= 2 * n; ++kwl) {
            putOurs(kwl);
        }
        require(static_cast<bool>(transaction.commit()), "commit");
    }
    void raw()
    {
        Both::raw.execute("BEGIN IMMEDIATE");
        for (int kwl = n + 1; kwl <= 2 * n; ++kwl) {
            putRaw(kwl);
        }
        Both::raw.execute("COMMIT");
    }
};
const bench::Timed<PutNew> putNew("cdb.put_new", 1.5);

} // namespace
