#pragma once

#include <array>
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
    static constexpr int words = 12; // the first copy of the header, 48 bytes
    using Header = std::array<std::uint32_t, words>;
    Header read() const;

    enum class Watch { Never, Shared, Private } kind = Watch::Never;
    const volatile std::uint32_t* shared = nullptr; // belongs to the connection, as long as it is open
    Header noted{};
};

} // namespace mrl::cdb
