#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/removal_ahead.h"
#include "hostlib/data/cdb/statement.h"
#include "hostlib/data/cdb/walk.h"

namespace mrl::cdb {

/// What came of a write. Missing: there is no such key, which is no error.
enum class Outcome { Done, Missing, Failed };

/// A write as it can be done again.
struct Write
{
    enum class Kind { Put, Append, Overwrite, Delete, SetFact } kind = Kind::Put;
    Key key;
    int position = 0;  ///< Overwrite
    std::string name;  ///< SetFact
    std::string bytes; ///< the record, or the fact's value
};

/// One open database: its connection, its transactions and what it remembers between two calls.
class Database
{
  public:
    /// Private: nobody else can reach it.
    enum class Access { ReadWrite, ReadOnly, Private };

    /// @param handle an open, checked connection
    Database(Connection handle, std::string name, Access how);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const std::string& file() const { return path; }
    void setFile(const std::string& name) { path = name; }
    bool isReadOnly() const { return access == Access::ReadOnly; }
    sqlite3* connection() const { return db.get(); }

    // Reading: database_read.cpp
    int step(int* kwh, int* kwl, int direction);
    cd_error_t get(const Key& key, void* buffer, int* length, int position);
    std::string fact(const std::string& name);
    /// Gives all facts by name. @param out [out] those read so far on failure
    Result facts(std::map<std::string, std::string>& out);
    /// Appends the elements of a group in order. @return SQLITE_DONE, or an error code
    int listElements(int kwh, std::list<int>& out);

    // Writing: database_write.cpp
    Outcome putWhole(const Key& key, const void* data, int size);
    Outcome overwriteLastRead(const Key& key, const void* data, int size);
    /// Overwrites the record at position 0, which is there.
    Outcome overwriteFirst(const Key& key, const void* data, int size);
    Outcome append(const Key& key, const void* data, int size);
    Outcome remove(const Key& key);
    Outcome setFact(const std::string& name, const std::string& value);
    /// A call that makes no sense: recorded as a failed write.
    Outcome refuse(const std::string& reason);

    // Transactions: database_transaction.cpp
    Result begin(Pausable pausable);
    /// Ends the innermost transaction.
    Result commit();
    void rollback();
    std::size_t depth() const { return levels.size(); }
    const Result& transactionState() const { return failed; }
    void pause();
    void resume();

    // Errors
    const Result& stickyError() const { return sticky; }
    void clearStickyError() { sticky = {}; }
    /// The reason of the last Outcome::Failed.
    const Result& lastFailure() const { return lastError; }
    /// Keeps an error of a read, and gives it back.
    Result readFailed(int status);
    Result readFailed(Result error);

  private:
    /// What the open transaction changes in the summary.
    struct Change
    {
        std::int64_t records = 0;
        std::uint32_t recordMix = 0;
        std::int64_t facts = 0;
        std::uint32_t factMix = 0;
    };
    struct Level
    {
        Change before;
        std::size_t journalSize = 0;
    };
    struct HashKey
    {
        std::size_t operator()(const Key& k) const
        {
            const auto wide = static_cast<std::uint64_t>(static_cast<std::uint32_t>(k.kwh)) << 32U;
            return std::hash<std::uint64_t>()(wide | static_cast<std::uint32_t>(k.kwl));
        }
    };

    int behindOf(const Key& key) const;
    void noteRead(const Key& key, int position);
    cd_error_t read(const Key& key, int behind, void* buffer, int* length);
    cd_error_t deliver(const Key& key, const Walk::Found& record, void* buffer, int* length);
    cd_error_t absent(const Key& key);
    Result checkFact(const Run& row, const std::string& name);

    Outcome write(const Write& what, const void* data, int size);
    Outcome apply(const Write& what, const void* data, int size);
    Outcome insertWhole(const Key& key, const void* data, int size);
    Outcome insertBehind(const Key& key, const void* data, int size);
    Outcome replaceAt(const Key& key, int position, const void* data, int size);
    Outcome deleteRows(const Key& key);
    Outcome replaceFact(const std::string& name, const std::string& value);
    Outcome writeFailed(int status);
    Outcome writeFailed(Result error);
    bool mayWrite();

    int execute(const char* sql);
    void fail(Result error);
    int beginWriting();
    int writeSummary();
    /// Forgets what was read ahead: the content is another one.
    void forgetRead();
    void endLevel(bool keepWrites);
    /// Counts a write of the open transaction. A long one gets room: pages that it would otherwise write to
    /// the log, read back and write again are kept until the commit.
    void countWrite();
    int replay();
    void checkpoint();
    static void gone(sqlite3_context* context, int count, sqlite3_value** values);
    static int committed(void* self, sqlite3* connection, const char* name, int pages);

    std::string path;
    Access access;
    Connection db;
    Connection guard; // holds the write lock while a checkpoint runs

    Walk walk;
    std::unordered_map<Key, int, HashKey> readAt; // the position read last, where it is not the first

    std::map<std::string, std::string> knownFacts; // read since the mark; without the damaged ones
    ChangeMark factsMark;

    std::vector<Level> levels;
    std::vector<Write> journal;
    Change change;
    RemovalAhead removals;
    Removed removed; // counted by gone() in the statement that runs now
    Result failed;   // of the open transaction
    bool pausable = false;
    bool paused = false;
    bool replaying = false;
    int writes = 0; // of the open transaction
    int logPages = 0;

    Result sticky;
    Result lastError;

    Statement next{"SELECT position,crc,bytes FROM record WHERE kwh=?1 AND kwl=?2 AND position>?3 "
                   "ORDER BY position LIMIT 1"};
    Statement elements{"SELECT kwl FROM record WHERE kwh=?1 ORDER BY kwl"};
    Statement exists{"SELECT 1 FROM record WHERE kwh=?1 AND kwl=?2 LIMIT 1"};
    Statement last{"SELECT position FROM record WHERE kwh=?1 AND kwl=?2 ORDER BY position DESC LIMIT 1"};
    Statement insert{"INSERT OR IGNORE INTO record(kwh,kwl,position,crc,bytes) VALUES(?1,?2,?3,?4,?5)"};
    // gone() adds the checksum of each row that it meets to `removed` and is always true: the summary learns
    // what a delete takes away without a second search for the row.
    Statement erase{"DELETE FROM record WHERE kwh=?1 AND kwl=?2 AND gone(crc)"};
    Statement eraseKnown{"DELETE FROM record WHERE kwh=?1 AND kwl=?2"};
    Statement update{
        "UPDATE record SET crc=?4,bytes=?5 WHERE kwh=?1 AND kwl=?2 AND position=?3 AND gone(crc)"};
    Statement selectFact{"SELECT crc,value FROM fact WHERE name=?1"};
    Statement selectFacts{"SELECT crc,value,name FROM fact"};
    Statement eraseFact{"DELETE FROM fact WHERE name=?1 AND gone(crc)"};
    Statement insertFact{"INSERT INTO fact(name,crc,value) VALUES(?1,?2,?3)"};
    // SQLite has no operator for xor.
    Statement summary{"UPDATE summary SET records=records+?1,record_xor=(record_xor|?2)-(record_xor&?2),"
                      "facts=facts+?3,fact_xor=(fact_xor|?4)-(fact_xor&?4) WHERE id=1"};
};

} // namespace mrl::cdb
