#pragma once

#include <array>
#include <chrono>
#include <cstdint>

struct sqlite3;
struct sqlite3_file;

namespace mrl::cdb {

/// Tells whether anybody has committed to a database since some moment.
///
/// Each commit raises the change counter in the file's header before it ends; SQLite itself compares it to
/// decide whether its page cache still holds. Reading it takes a system call, so a comparison is believed for
/// twenty microseconds, which is less than the end of a commit on a disk takes. Commits of this process count
/// at once.
class ChangeMark
{
  public:
    /// A database that nobody else can reach never changes but by its own writes.
    void watchNothing() { m_kind = Watch::Private; }
    /// @param format of the file: format 1 keeps the newest commits in a log, where SQLite has to look
    void watch(sqlite3* connection, int format);

    /// Notes the present moment.
    void take();
    /// Forgets the moment: unchanged() is false until take().
    void drop() { m_taken = false; }
    /// Has nobody committed since take()?
    bool unchanged() const;
    /// The same without belief in an earlier comparison.
    bool compare() const;

    /// A connection of this process has committed.
    static void committedHere();

  private:
    using Header = std::array<unsigned char, 16>; // the counter and what SQLite compares with it
    bool read(Header& out) const;

    enum class Watch { Never, File, Private } m_kind = Watch::Never;
    sqlite3* m_connection = nullptr;
    int m_format = 0;
    Header m_noted{};
    bool m_taken = false;
    std::uint64_t m_commitsHere = 0;
    mutable std::chrono::steady_clock::time_point m_compared;
};

} // namespace mrl::cdb
