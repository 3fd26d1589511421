#include <cstring>
#include <stdexcept>

#include <QTemporaryDir>

#include <sqlite3.h>

#include "bench/figure.h"
#include "host/mrl_cdb.h"
#include "host/mrl_framework.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/ui/framework/project_document.h"

// The raw side deletes and reinserts each record through prepared statements, in one transaction on a file of
// its own with the same table but for the checksums. It compares nothing and leaves out whose changes are in
// the file already.

namespace {

constexpr int group = 12;
constexpr int recordSize = 188;

void require(bool fine, const char* what)
{
    if (!fine) {
        throw std::runtime_error(what);
    }
}

class Raw
{
  public:
    explicit Raw(const QString& file)
    {
        require(sqlite3_open_v2(file.toUtf8().constData(), &m_db,
                                SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                                nullptr) == SQLITE_OK,
                "open");
        execute("PRAGMA journal_mode=WAL;PRAGMA synchronous=NORMAL;"
                "CREATE TABLE record(kwh INTEGER NOT NULL,kwl INTEGER NOT NULL,position INTEGER NOT NULL,"
                "bytes BLOB NOT NULL,PRIMARY KEY(kwh,kwl,position))WITHOUT ROWID");
        m_erase = prepare("DELETE FROM record WHERE kwh=?1 AND kwl=?2");
        m_insert = prepare("INSERT INTO record VALUES(?1,?2,0,?3)");
    }
    ~Raw()
    {
        sqlite3_finalize(m_erase);
        sqlite3_finalize(m_insert);
        sqlite3_close(m_db);
    }
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;

    void rewrite(int n, const unsigned char* record)
    {
        execute("BEGIN IMMEDIATE");
        for (int kwl = 1; kwl <= n; ++kwl) {
            sqlite3_bind_int(m_erase, 1, group);
            sqlite3_bind_int(m_erase, 2, kwl);
            step(m_erase);
        }
        for (int kwl = 1; kwl <= n; ++kwl) {
            sqlite3_bind_int(m_insert, 1, group);
            sqlite3_bind_int(m_insert, 2, kwl);
            sqlite3_bind_blob(m_insert, 3, record, recordSize, SQLITE_STATIC);
            step(m_insert);
        }
        execute("COMMIT");
    }

  private:
    void execute(const char* sql)
    {
        require(sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
    }
    sqlite3_stmt* prepare(const char* sql)
    {
        sqlite3_stmt* made = nullptr;
        require(sqlite3_prepare_v3(m_db, sql, -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr) == SQLITE_OK,
                sql);
        return made;
    }
    static void step(sqlite3_stmt* statement)
    {
        require(sqlite3_step(statement) == SQLITE_DONE, "step");
        sqlite3_reset(statement);
    }

    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_erase = nullptr;
    sqlite3_stmt* m_insert = nullptr;
};

/// A document of n load cases, of which a part is changed before each saving.
class Save
{
  public:
    Save(int count, int changed)
        : n(count), m_changed(changed), m_path(m_folder.filePath("ours.cdb")),
          m_raw(m_folder.filePath("raw.cdb"))
    {
        std::memset(m_record, 7, sizeof m_record);
        const auto file = mrl::cdb::create(m_path.toStdString());
        require(static_cast<bool>(file), "create");
        write(file.db, n);
        mrl::cdb::close(file.db);
        m_raw.rewrite(n, m_record);
        require(static_cast<bool>(m_document.host().open(m_path)), "open");
        m_document.addSaveKwh(group);
    }
    void prepareOurs()
    {
        ++m_record[100];
        write(m_document.index(), m_changed);
    }
    void ours() { require(m_document.host().save().outcome == mrl::ui::SaveOutcome::Saved, "save"); }
    void prepareRaw() { ++m_record[100]; }
    void raw() { m_raw.rewrite(n, m_record); }

  private:
    void write(int db, int last)
    {
        mrl::cdb::Transaction transaction(db);
        const int length = recordSize;
        for (int kwl = 1; kwl <= last; ++kwl) {
            require(mrl_cdb_put(db, group, kwl, m_record, &length, 0) == CD_OK, "put");
        }
        require(static_cast<bool>(transaction.commit()), "commit");
    }

    int n;
    int m_changed;
    QTemporaryDir m_folder;
    QString m_path;
    Raw m_raw;
    MRL_H_ShadowDatabase m_document;
    unsigned char m_record[recordSize];
};

/// Every load case has changed.
class SaveAll : public Save
{
  public:
    explicit SaveAll(int count) : Save(count, count) {}
};
const bench::Timed<SaveAll> saveAll("framework.save", 2.0);

/// One load case in a hundred has changed; the others are compared only.
class SaveSome : public Save
{
  public:
    explicit SaveSome(int count) : Save(count, count / 100) {}
};
const bench::Timed<SaveSome> saveSome("framework.save_one_percent", 2.0);

} // namespace
