#pragma once

#include <optional>
#include <vector>

#include "hostlib/data/cdb/standing.h"

namespace mrl::cdb {

/// Knows, while keys of a group are written in ascending order, what stands under those that come next.
///
/// The summary needs the checksum of each deleted record. Asking for it in the DELETE itself makes SQLite
/// open a statement journal each time, which doubles the cost; reading many keys at once costs next to nothing.
/// So does comparing a put with what stands there. Valid inside a write transaction only, where nobody else can
/// change what was read.
class RecordsAhead
{
  public:
    /// @param columns Checksums, or Records where the bytes are wanted
    RecordsAhead(Store& store, Columns columns) : m_store(store), m_columns(columns) {}

    /// @return nothing: not known, the caller must find out; the bytes stay until the next call
    std::optional<Standing> find(const Key& key);

    /// Forgets what is known when a key among it is written.
    void written(const Key& key);

    /// The transaction has ended or was taken back to an earlier state.
    void drop();

  private:
    static constexpr int FEWEST = 16; // rows of the first fetch

    struct Row
    {
        int kwl;
        Tally records;
        std::size_t offset; ///< of the first record's bytes
        int size;
    };

    std::optional<Standing> known(const Key& key);
    void fetch(const Key& from);
    void clear();

    Store& m_store;
    Columns m_columns;
    std::vector<Row> m_rows;
    std::vector<unsigned char> m_bytes;
    std::size_t m_at = 0;
    Key m_last;
    int m_streak = 0;     ///< ascending keys
    int m_ahead = FEWEST; ///< rows to fetch next
};

} // namespace mrl::cdb
