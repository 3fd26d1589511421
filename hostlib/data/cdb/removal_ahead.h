#pragma once

#include <cstdint>
#include <vector>

#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/statement.h"

namespace mrl::cdb {

/// What a key's records take out of the summary.
struct Removed
{
    std::int64_t records = 0;
    std::uint32_t mix = 0;
};

/// Knows, while keys of a group are deleted in ascending order, the checksums of those that come next.
///
/// The summary needs the checksum of each deleted record. Asking for it in the DELETE itself makes SQLite
/// open a statement journal each time, which doubles the cost; reading the checksums of many keys at once
/// costs next to nothing. Valid inside a write transaction only, where nobody else can change what was read.
class RemovalAhead
{
  public:
    /// @return does `out` hold what deleting the key takes away; when not, the caller has to find out himself
    bool find(sqlite3* connection, const Key& key, Removed& out);

    /// Forgets what is known when a key among it is written.
    void written(const Key& key);

    /// The transaction has ended or was taken back to an earlier state.
    void drop();

  private:
    struct Ahead
    {
        int kwl;
        Removed removed;
    };
    bool known(const Key& key, Removed& out);
    void fetch(sqlite3* connection, const Key& from);

    Statement text{"SELECT kwl,crc FROM record WHERE kwh=?1 AND kwl>=?2 ORDER BY kwl,position LIMIT ?3"};
    std::vector<Ahead> rows;
    std::size_t at = 0;
    Key last;
    int streak = 0; // deletions in ascending order
    int ahead = 0;  // rows to fetch next
};

} // namespace mrl::cdb
