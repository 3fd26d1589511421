#pragma once

/// A project with n load cases under a shipped design code, and the raw side's database with the same
/// records.

#include <cstring>
#include <vector>

#include "bench/raw_database.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/actions.h"
#include "lcdata/load_cases.h"

namespace bench {

class LoadCases
{
  public:
    explicit LoadCases(int count) : n(count)
    {
        const auto opened = mrl::cdb::create(folder / "ours.cdb");
        require(static_cast<bool>(opened), "create");
        db = opened.db;
        require(static_cast<bool>(mrl::cdb::setFact(db, "designcode", "en1990")), "design code");
        rawSide.compile();
        mrl::cdb::Transaction transaction(db);
        rawSide.execute("BEGIN IMMEDIATE");
        storeAll();
        rawSide.execute("COMMIT");
        require(static_cast<bool>(transaction.commit()), "commit");
    }

  protected:
    ~LoadCases() { mrl::cdb::close(db); }

    void putRaw(int number, const tagCDB_LC_CTRL& record)
    {
        sqlite3_bind_int(rawSide.insert, 1, 12);
        sqlite3_bind_int(rawSide.insert, 2, number);
        sqlite3_bind_blob(rawSide.insert, 3, &record, sizeof record, SQLITE_STATIC);
        require(sqlite3_step(rawSide.insert) == SQLITE_DONE, "insert");
        sqlite3_reset(rawSide.insert);
    }
    void deleteRaw(int number)
    {
        sqlite3_bind_int(rawSide.erase, 1, 12);
        sqlite3_bind_int(rawSide.erase, 2, number);
        require(sqlite3_step(rawSide.erase) == SQLITE_DONE, "delete");
        sqlite3_reset(rawSide.erase);
    }

    int n;
    Folder folder;
    Raw rawSide{folder / "raw.db"};
    int db = -1;

  private:
    /// Every action of the design code in turn, as a project uses them.
    void storeAll()
    {
        std::vector<int> actions;
        mrl_lc_get_default_action_list(db, actions);
        require(!actions.empty(), "the shipped design code en1990 was not found");
        for (const int code : actions) {
            require(mrl_lc_create_default_action(db, code), "action");
        }
        tagCDB_LC_CTRL record{};
        for (int number = 1; number <= n; ++number) {
            record.action = actions[static_cast<std::size_t>(number) % actions.size()];
            record.factor = 1.0f;
            require(mrl_lc_put(db, number, record), "put");
            putRaw(number, record);
        }
    }
};

} // namespace bench
