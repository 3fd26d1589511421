#pragma once

/// The one place that speaks SQL: records, facts and the summary in tables, and transactions over them. What a
/// write means (what a key's first record is, what a failed write does to its transaction) is told above.

#include <memory>
#include <string>
#include <vector>

#include "hostlib/data/cdb/sqlite/change_mark.h"
#include "hostlib/data/cdb/sqlite/rows.h"
#include "hostlib/data/cdb/sqlite/statement.h"
#include "hostlib/data/cdb/tally.h"

namespace mrl::cdb {

/// Private: no other process and no other connection can reach it.
enum class Access { ReadWrite, ReadOnly, Private };

/// The outermost transaction takes the file's lock, one inside it is a savepoint.
enum class Nesting { Outermost, Inner };

/// How closely the pages are looked at; the checksums are compared in any case.
enum class Depth { Quick, Full };

/// How a walk reads ahead.
struct Ahead
{
    bool up = true;
    bool otherGroups = false;        ///< beyond the key's group instead of beyond the key in its group
    Columns columns = Columns::Keys; ///< Checksums only upwards within the group
    int rows = 1;                    ///< at most
};

struct Fact
{
    std::string name;
    std::string value;
    std::uint64_t checksum = 0;
};

/// The row that vouches for all others.
struct State
{
    std::int64_t project = 0; ///< drawn by lot when the file was made
    std::int64_t version = 0; ///< raised by every transaction that writes
    Summary rows;
};

/// Which file it is: the name with links resolved, the device and the inode.
struct Place
{
    std::string path;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
};

struct OpenedStore;

/// An open database file. After Status::Failed, failure() has the reason in words.
class Store
{
  public:
    /// Opens a project file and checks its whole content. A file that fails stays as it was.
    static OpenedStore open(const std::string& path, bool readOnly);
    /// Makes a private database. @param content a database to copy; null: an empty one
    static OpenedStore makePrivate(Storage where, Store* content);

    /// @param handle an open connection whose content has been checked
    /// @param format of the file
    /// @param place empty for a private database
    Store(Connection handle, std::string file, Access access, int format, Place place);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    /// The first record of a key beyond a position.
    Rows record(const Key& key, int behind);
    /// The checksums of a key's records.
    Rows ofKey(const Key& key);
    /// The records that a walk meets next, without their positions.
    Rows ahead(const Key& from, const Ahead& how);
    /// The records of a range. @param range null: all records
    Rows range(const KeyRange* range, Columns columns);
    /// One record of each group.
    Rows groups();
    /// The position of a key's last record. @return None when the key does not exist
    Status lastPosition(const Key& key, int& position);
    /// Appends one fact, or all of them. @param name null: all. @return None when there is none
    Status facts(const std::string* name, std::vector<Fact>& out);

    /// Adds a record. @return None when its place is taken
    Status insert(const Record& record);
    /// Replaces the bytes of a record. @return None when there is none
    Status update(const Record& record);
    /// Deletes the records of a key. @param known what they add up to, as the caller has read within the
    /// transaction; another number of them is damage
    Status erase(const Key& key, const Tally& known);
    /// Sets a fact; an empty value removes it. @param gone [out] what that takes away
    Status setFact(const Fact& fact, Tally& gone);
    /// The row that vouches for all others, as the file has it now. @return None for a file of format 1
    Status state(State& out);

    /// Begins a transaction. The outermost one takes the write lock at once, except on a read-only file, and
    /// is refused when the file is no longer the one that this store left. It converts a file of an older format.
    Status begin(Nesting nesting);
    /// @param change what the transaction has changed in the summary; with the outermost one that has written,
    ///               the summary takes it over and its version rises
    Status commit(Nesting nesting, const Summary& change);
    /// Takes a transaction back. Harmless when SQLite has taken it back by itself.
    void rollback(Nesting nesting);
    /// Is a transaction open? None is when SQLite had to take it back whole.
    bool inTransaction() const { return sqlite3_get_autocommit(m_db.get()) == 0; }

    /// Tells later whether anybody has committed since.
    ChangeMark mark() const { return m_mark; }
    /// How long to wait for other processes. @param milliseconds at first 5000
    void setLockWait(int milliseconds);
    /// Checks the whole content: tables, pages, each row against its checksum, order, positions, summary.
    Result check(Depth depth);

    /// The version of the file's format.
    int format() const { return m_format; }

    const Result& failure() const { return m_failure; }
    const std::string& file() const { return m_file; }
    Access access() const { return m_access; }

  private:
    struct Texts;

    Rows::Source source() { return {m_db.get(), m_file, m_failure, m_format}; }
    Status failed(int status);
    int execute(const char* sql);
    int finish(Statement& text, const Record& record);
    void countWrite();
    void forgetWrites();
    Status beginWriting();
    Status refuse(const std::string& reason);
    Status samePlace();
    Status sameProject();
    Status convert();
    int readState(State& out);
    int raiseVersion(const Summary& change);
    static void gone(sqlite3_context* context, int count, sqlite3_value** values);

    std::string m_file; ///< as the caller named it
    Access m_access;
    Connection m_db;
    ChangeMark m_mark;
    std::unique_ptr<Texts> m_texts;
    Result m_failure;
    int m_format;
    Place m_place;
    State m_state;         ///< what the file held when it was looked at last, with our writes
    State m_next;          ///< what it holds once the open transaction is committed
    bool m_known = false;  ///< m_state has been read
    bool m_raised = false; ///< the open transaction has raised the version
    Tally m_gone;          ///< the facts counted by gone() in the statement that runs now
    int m_writes = 0;      ///< of the open transaction
};

/// A store that was made or opened, or the reason why not.
struct OpenedStore
{
    Result result;
    std::unique_ptr<Store> store;
};

} // namespace mrl::cdb
