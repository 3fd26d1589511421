#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "hostlib/data/cdb/sqlite/store.h"
#include "hostlib/data/cdb/standing.h"

namespace mrl::cdb {

/// The cursor that follows a walk over keys.
///
/// It fetches ahead in blocks with one statement each and holds neither the statement nor a snapshot
/// afterwards: before a key or a record is served from the block, the change mark tells whether it still
/// holds. A walk whose keys are read gets blocks with the records' bytes, one that only counts or lists gets
/// keys alone. The first step of a walk fetches two rows, since many callers take no second one.
class Walk
{
  public:
    enum class Serve { FromBlock, EndOfKey, NotHere };

    explicit Walk(Store& store) : m_store(store), m_mark(store.mark()) {}

    /// Steps to the next key beyond the given one.
    /// @param key [in, out] as it was unless the result is Ok
    /// @return None beyond the last key
    Status step(Key& key, bool up);

    /// Looks for the record of the key behind a position, where the key is the one that the walk stands on.
    /// @param out [out] its bytes are unchecked and stay until the next call
    Serve find(const Key& key, int behind, Record& out);

    /// @return what stands under the key that the walk stands on, where the block has it and still holds; its bytes
    /// stay until the next call
    std::optional<Standing> standing(const Key& key) const;

    /// Forgets the block's record of a key that is written. The walk itself stays where it is.
    void written(const Key& key);

    /// Forgets the block.
    void drop();

  private:
    struct Row
    {
        Key key;
        int position;
        std::uint64_t checksum;
        std::uint32_t offset;
        int size;
    };
    bool standsOn(const Key& key) const { return m_valid && key == m_current; }
    bool next(Key& key);
    Status fill(const Key& from, bool up);
    Status take(const Key& from, bool up, bool otherGroups);
    bool add(const Rows& rows, const Key& key, bool up);
    bool full() const { return m_taken >= m_ahead || m_arena.size() >= MOST_BYTES; }

    static constexpr std::size_t MOST_BYTES = 256 << 10; // of one block

    Store& m_store;
    ChangeMark m_mark;
    std::vector<Row> m_rows;
    std::vector<unsigned char> m_arena;
    std::size_t m_at = 0;       // the next row to serve as a key
    std::size_t m_begin = 0;    // the first row of the current key
    Key m_current;              // where the walk stands
    int m_ahead = 0;            // how many rows the block takes
    int m_taken = 0;            // how many it has
    bool m_valid = false;       // the walk stands somewhere
    bool m_upward = true;       // its direction
    bool m_withBytes = false;   // the block holds the records
    bool m_complete = false;    // nothing lies beyond the block
    bool m_wantsBytes = false;  // the current block's keys are being read
    bool m_currentGone = false; // the current key was written since it was fetched
};

} // namespace mrl::cdb
