#pragma once

/// Projects as the host handles them: files that are created, opened and closed, transactions, project facts,
/// private copies and comparisons of key ranges. The functions over single keys stand in host/mrl_cdb.h.
///
/// Everything here belongs to one thread, the user interface's. Paths and texts are UTF-8. No function
/// throws, and every function may be called with an index that is not open.
///
/// @warning Nothing else in the process may open and close the file of an open project, not even to copy it:
///          the operating system then gives up all locks of the process on that file. copyOf() is the way.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/mrl_cdb.h"
#include "host/mrl_export.h"

namespace mrl::cdb {

enum class Code : int {
    Ok = 0,
    NotOpen,       ///< no open database has this index
    NoFile,        ///< there is no such file or folder, or it must not be entered
    Exists,        ///< the file to be created exists
    NotAProject,   ///< the file is something else
    NewerFormat,   ///< a project file of a newer version of this program
    Corrupt,       ///< pages of the file are damaged
    Checksum,      ///< a record or the summary does not fit its checksum
    ReadOnly,      ///< the file, its folder or the database is read-only
    DiskFull,      ///< no room left on the device
    Locked,        ///< another process holds the file
    InputOutput,   ///< reading or writing the file failed
    OutOfMemory,   ///< no memory left
    Shared,        ///< it lies on a network folder, where it is only read
    BadArgument,   ///< the call itself makes no sense: a record without bytes, a range that is none
    NoTransaction, ///< there is no transaction to commit
};

/// What came of an operation. `text` names the file and the reason in words for a person.
struct [[nodiscard]] Result
{
    Code code = Code::Ok;
    std::string text;

    explicit operator bool() const { return code == Code::Ok; }
};

/// What came of opening: the index of the database, or -1 and the reason.
struct [[nodiscard]] Opened
{
    Result result;
    int db = -1;

    explicit operator bool() const { return static_cast<bool>(result); }
};

/// Makes a new, empty project file and opens it. An existing file is refused and stays as it is. The file gets
/// its name when it is whole and on the disk: a crash leaves either nothing of that name or the project.
MRL_HOST_API Opened create(const std::string& path);

/// The same for a project that is not empty.
/// @param fill writes the content to a database that is no file of that name yet; when it fails, none appears
MRL_HOST_API Opened create(const std::string& path, const std::function<Result(int db)>& fill);

/// Opens a project for reading and writing. The whole content is checked against its checksums; a file that
/// fails is refused and stays as it was. So is one beside a damaged journal, and one on a network folder.
MRL_HOST_API Opened open(const std::string& path);

/// The same for reading only; it needs no right to write to the file or its folder.
MRL_HOST_API Opened openReadOnly(const std::string& path);

/// An empty project in memory; it is gone with its closing.
MRL_HOST_API Opened openMemory();

/// Where a private copy lives.
enum class Storage { Memory, TemporaryFile };

/// A private copy of an open database, for reading and writing. Its path is that of the original. Refused
/// (Code::Locked) while a transaction is open on it.
MRL_HOST_API Opened copyOf(int db, Storage where = Storage::Memory);

/// Closes a database; an open transaction is rolled back, and its object then refuses to commit. The index is
/// never used again. When it was current, no database is. Harmless for an index that is not open.
MRL_HOST_API void close(int db);

/// Removes the file of a project that nobody has open, and what SQLite may have left beside it. Harmless for
/// a file that is not there.
MRL_HOST_API void removeFile(const std::string& path);

MRL_HOST_API bool isOpen(int db);

/// The file as it was named at opening (that of the original for a copy); empty for a project in memory.
MRL_HOST_API std::string path(int db);

MRL_HOST_API bool isReadOnly(int db);

/// The version of the format in which files are written.
constexpr int CURRENT_FORMAT = 2;

/// The version of the file's format. A file of an older one is converted by the first write, and older programs
/// can't open it any more then.
MRL_HOST_API int formatVersion(int db);

/// A moment in the life of a project: each transaction that writes raises the number, and the sums are those of the
/// hashes of what stands there then.
struct Version
{
    std::int64_t project = 0; ///< drawn by lot when the project was made
    std::int64_t number = 0;
    std::uint64_t records = 0;
    std::uint64_t facts = 0;
};

inline bool operator==(const Version& a, const Version& b)
{
    return a.project == b.project && a.number == b.number && a.records == b.records && a.facts == b.facts;
}
inline bool operator!=(const Version& a, const Version& b) { return !(a == b); }

/// The version that a database has now. As long as it stays, so does the content.
/// @return nothing where there is none: format 1, a transaction that has written and isn't over, a file that can't
///         be read
MRL_HOST_API std::optional<Version> versionOf(int db);

/// How long a write waits for another process to let go of the file, at first 5000 ms.
MRL_HOST_API void setLockWait(int db, int milliseconds);

/// A fact about the project; empty when it is not set. "designcode" is the file name of its design code.
MRL_HOST_API std::string fact(int db, const std::string& name);

/// All facts by name. @param out [out] receives them beside what it holds; those read so far on failure
MRL_HOST_API Result facts(int db, std::map<std::string, std::string>& out);

/// Sets a fact; an empty value removes it.
MRL_HOST_API Result setFact(int db, const std::string& name, const std::string& value);

/// Makes the facts of one database equal to those of another. Runs in the caller's transaction on `to`, or in
/// one of its own.
MRL_HOST_API Result replaceFacts(int from, int to);

/// Adds a record behind those that the key holds; makes the key when there is none.
MRL_HOST_API Result append(int db, int kwh, int kwl, const void* data, int length);

/// The first error that a read or write of this database met since clearStickyError: Code::Ok when none did.
/// The absence of a key is no error.
MRL_HOST_API Result stickyError(int db);
MRL_HOST_API void clearStickyError(int db);

/// Checks the pages of the file, the checksum of every record and the summary.
MRL_HOST_API Result integrityCheck(int db);

/// Can the transaction let go of the write lock while a message waits for the user?
enum class Pausable { No, Yes };

/// A transaction on a database. The outermost one takes the write lock at once (BEGIN IMMEDIATE), one inside
/// it is a savepoint. Transactions of a database end in the opposite order of their making.
///
/// A transaction in which a write failed cannot be committed, even if later writes succeed.
class MRL_HOST_API Transaction
{
  public:
    /// @param pausable keeps a journal of the writes, for WriteLockPause; the outermost one's word counts
    explicit Transaction(int db, Pausable pausable = Pausable::No);
    /// Rolls back what was not committed.
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Ok while everything went well; else why it cannot be committed (the lock was not to be had, a write
    /// failed).
    Result state() const;

    /// Makes the writes durable. On failure the transaction is rolled back and the database is as before it.
    Result commit();

    /// Takes the writes back now; harmless when it has ended already.
    void rollback();

  private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// While one lives, no pausable transaction of the process holds the write lock: their writes are taken out
/// of the file and done again at its end. Code that shows a message in the middle of a save puts one around it.
/// When the writes cannot be done again (another process holds the file), their transaction counts as failed.
/// A write to a paused database is refused, and makes its transaction fail. Costs nothing when no transaction
/// is open.
class MRL_HOST_API WriteLockPause
{
  public:
    WriteLockPause();
    ~WriteLockPause();
    WriteLockPause(const WriteLockPause&) = delete;
    WriteLockPause& operator=(const WriteLockPause&) = delete;
};

/// Keys of one group, both ends included.
struct KeyRange
{
    int kwh = 0;
    int first = INT32_MIN;
    int last = INT32_MAX;
};

struct Key
{
    int kwh = 0;
    int kwl = 0;
};

inline bool operator==(const Key& a, const Key& b) { return a.kwh == b.kwh && a.kwl == b.kwl; }
inline bool operator!=(const Key& a, const Key& b) { return !(a == b); }

/// Keys in ascending order. @param out [out] receives them behind what it holds
MRL_HOST_API Result keys(int db, std::vector<Key>& out);
MRL_HOST_API Result keys(int db, const KeyRange& range, std::vector<Key>& out);

/// The groups that have a key. @param out [out] receives them beside what it holds
MRL_HOST_API Result groups(int db, std::set<int>& out);

/// What a key range holds, in a few words: equal content has an equal fingerprint, and different content has
/// a different one except with probability 2^-64.
struct Fingerprint
{
    std::int64_t count = 0; ///< records
    std::uint64_t sum = 0;  ///< of the records' checksums, modulo 2^64
};

inline bool operator==(const Fingerprint& a, const Fingerprint& b)
{
    return a.count == b.count && a.sum == b.sum;
}
inline bool operator!=(const Fingerprint& a, const Fingerprint& b) { return !(a == b); }

/// @param out [out] zero on failure
MRL_HOST_API Result fingerprint(int db, const KeyRange& range, Fingerprint& out);

/// Compares a key range of two databases byte by byte. @param equal [out] false on failure
MRL_HOST_API Result rangesEqual(int a, int b, const KeyRange& range, bool& equal);

/// Makes a key range of one database equal to that of another, keys that are gone included; keys that are
/// equal already are not written. Runs in the caller's transaction on `to`, or in one of its own.
/// @param changed [out] how many keys were written or deleted; may be null
MRL_HOST_API Result replaceRange(int from, int to, const KeyRange& range, int* changed = nullptr);

} // namespace mrl::cdb
