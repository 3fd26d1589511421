#pragma once

#include <cstdint>
#include <vector>

#include "hostlib/data/cdb/change_mark.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/statement.h"

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
    /// A record in the block; the bytes are unchecked.
    struct Found
    {
        int position = 0;
        std::uint32_t checksum = 0;
        const unsigned char* bytes = nullptr;
        int size = 0;
    };
    enum class Serve { FromBlock, EndOfKey, NotHere };

    ChangeMark mark;

    /// Steps to the next key beyond the given one.
    /// @param key [in, out] as it was unless the result is SQLITE_ROW
    /// @return SQLITE_ROW, SQLITE_DONE beyond the last key, or an error code
    int step(sqlite3* connection, Key& key, bool up);

    /// Looks for the record of the key behind a position, where the key is the one that the walk stands on.
    Serve find(const Key& key, int behind, Found& out);

    /// Forgets the block's record of a key that is written. The walk itself stays where it is.
    void written(const Key& key);

    /// Forgets the block.
    void drop();

  private:
    struct Row
    {
        Key key;
        int position;
        std::uint32_t checksum;
        std::uint32_t offset;
        int size;
    };
    bool standsOn(const Key& key) const { return valid && key == current; }
    bool next(Key& key);
    int fill(sqlite3* connection, const Key& from, bool up);
    int takeRest(sqlite3* connection, const Key& from, bool up);
    int takeBeyond(sqlite3* connection, const Key& from, bool up);
    bool add(const Run& run, int kwh, bool up);
    bool full() const { return taken >= ahead || arena.size() >= mostBytes; }

    static constexpr std::size_t mostBytes = 256 << 10; // of one block

    // The rest of the group first, then the groups beyond: a comparison of (kwh,kwl) pairs would be made for
    // each row, a condition on the one or the other only at the start.
    Statement restUp{"SELECT kwl FROM record WHERE kwh=?1 AND kwl>?2 ORDER BY kwl LIMIT ?3"};
    Statement restDown{"SELECT kwl FROM record WHERE kwh=?1 AND kwl<?2 ORDER BY kwl DESC LIMIT ?3"};
    Statement restRecords{
        "SELECT kwl,crc,bytes FROM record WHERE kwh=?1 AND kwl>?2 ORDER BY kwl,position LIMIT ?3"};
    Statement beyondUp{"SELECT kwl,kwh FROM record WHERE kwh>?1 ORDER BY kwh,kwl LIMIT ?2"};
    Statement beyondDown{"SELECT kwl,kwh FROM record WHERE kwh<?1 ORDER BY kwh DESC,kwl DESC LIMIT ?2"};
    Statement beyondRecords{
        "SELECT kwl,crc,bytes,kwh FROM record WHERE kwh>?1 ORDER BY kwh,kwl,position LIMIT ?2"};

    std::vector<Row> rows;
    std::vector<unsigned char> arena;
    std::size_t at = 0;       // the next row to serve as a key
    std::size_t begin = 0;    // the first row of the current key
    Key current;              // where the walk stands
    int ahead = 0;            // how many rows the block takes
    int taken = 0;            // how many it has
    bool valid = false;       // the walk stands somewhere
    bool upward = true;       // its direction
    bool withBytes = false;   // the block holds the records
    bool complete = false;    // nothing lies beyond the block
    bool wantsBytes = false;  // the current block's keys are being read
    bool currentGone = false; // the current key was written since it was fetched
};

} // namespace mrl::cdb
