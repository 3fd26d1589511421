#pragma once

#include <cstdint>

struct sqlite3;

namespace mrl::cdb {

/// Tells, without a system call, whether anybody has committed to a database since some moment.
///
/// In WAL mode every commit rewrites the header of the index that all processes share in memory, and its
/// change counter with it; SQLite itself compares that header to decide whether its page cache still holds.
/// Two equal headers mean an equal content of the file.
class ChangeMark
{
  public:
    /// A database that nobody else can reach never changes but by its own writes.
    void watchNothing();
    /// @return false when the header cannot be had; then unchanged() is never true
    bool watch(sqlite3* connection);

    /// Notes the present moment.
    void take();
    /// Has nobody committed since take()?
    bool unchanged() const;

  private:
    /// What changes with each commit: the change counter, and the checksum of the whole header.
    struct Header
    {
        std::uint64_t counter = 0;
        std::uint64_t checksum = 0;
    };
    Header read() const;

    enum class Watch { Never, Shared, Private } m_kind = Watch::Never;
    const volatile std::uint64_t* m_shared = nullptr; // belongs to the connection, as long as it is open
    Header m_noted{};
};

} // namespace mrl::cdb
