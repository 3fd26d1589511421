#pragma once

#include <vector>

#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// Knows, while keys of a group are deleted in ascending order, the checksums of those that come next.
///
/// The summary needs the checksum of each deleted record. Asking for it in the DELETE itself makes SQLite
/// open a statement journal each time, which doubles the cost; reading the checksums of many keys at once
/// costs next to nothing. Valid inside a write transaction only, where nobody else can change what was read.
class RemovalAhead
{
  public:
    explicit RemovalAhead(Store& store) : m_store(store) {}

    /// @param out [out] what deleting the key takes away
    /// @return false: the caller must determine it
    bool find(const Key& key, Tally& out);

    /// Forgets what is known when a key among it is written.
    void written(const Key& key);

    /// The transaction has ended or was taken back to an earlier state.
    void drop();

  private:
    struct Coming
    {
        int kwl;
        Tally removed;
    };
    bool known(const Key& key, Tally& out);
    void fetch(const Key& from);

    Store& m_store;
    std::vector<Coming> m_rows;
    std::size_t m_at = 0;
    Key m_last;
    int m_streak = 0; ///< deletions in ascending order
    int m_ahead = 0;  ///< rows to fetch next
};

} // namespace mrl::cdb
