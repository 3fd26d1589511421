#pragma once

#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// The statements of a store. A walk's come twice: for the rest of a group first, then for the groups beyond
/// it. A comparison of (kwh,kwl) pairs would be made for each row, a condition on one of them only at the start.
struct Store::Texts
{
    Statement next{"SELECT kwl,kwh,crc,bytes,position FROM record WHERE kwh=?1 AND kwl=?2 AND position>?3 "
                   "ORDER BY position LIMIT 1"};
    Statement last{"SELECT position FROM record WHERE kwh=?1 AND kwl=?2 ORDER BY position DESC LIMIT 1"};

    Statement keysUp{"SELECT kwl,kwh FROM record WHERE kwh=?1 AND kwl>?2 ORDER BY kwl LIMIT ?3"};
    Statement keysDown{"SELECT kwl,kwh FROM record WHERE kwh=?1 AND kwl<?2 ORDER BY kwl DESC LIMIT ?3"};
    Statement checksumsUp{"SELECT kwl,kwh,crc FROM record WHERE kwh=?1 AND kwl>?2 "
                          "ORDER BY kwl,position LIMIT ?3"};
    Statement recordsUp{"SELECT kwl,kwh,crc,bytes,position FROM record WHERE kwh=?1 AND kwl>?2 "
                        "ORDER BY kwl,position LIMIT ?3"};
    Statement keysBeyond{"SELECT kwl,kwh FROM record WHERE kwh>?1 ORDER BY kwh,kwl LIMIT ?3"};
    Statement keysBefore{"SELECT kwl,kwh FROM record WHERE kwh<?1 ORDER BY kwh DESC,kwl DESC LIMIT ?3"};
    Statement recordsBeyond{"SELECT kwl,kwh,crc,bytes,position FROM record WHERE kwh>?1 "
                            "ORDER BY kwh,kwl,position LIMIT ?3"};

    // gone() counts each row that it meets and is always true: the summary learns what a statement takes
    // away without a second search for the row.
    Statement insert{"INSERT OR IGNORE INTO record(kwh,kwl,position,crc,bytes) VALUES(?1,?2,?3,?4,?5)"};
    Statement update{
        "UPDATE record SET crc=?4,bytes=?5 WHERE kwh=?1 AND kwl=?2 AND position=?3 AND gone(crc)"};
    Statement erase{"DELETE FROM record WHERE kwh=?1 AND kwl=?2 AND gone(crc)"};
    Statement eraseKnown{"DELETE FROM record WHERE kwh=?1 AND kwl=?2"};

    Statement selectFact{"SELECT name,value,crc FROM fact WHERE name=?1"};
    Statement selectFacts{"SELECT name,value,crc FROM fact"};
    Statement eraseFact{"DELETE FROM fact WHERE name=?1 AND gone(crc)"};
    Statement insertFact{"INSERT INTO fact(name,crc,value) VALUES(?1,?2,?3)"};

    // SQLite has no operator for xor.
    Statement summary{"UPDATE summary SET records=records+?1,record_xor=(record_xor|?2)-(record_xor&?2),"
                      "facts=facts+?3,fact_xor=(fact_xor|?4)-(fact_xor&?4) WHERE id=1"};
};

} // namespace mrl::cdb
