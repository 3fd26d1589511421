#pragma once

#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// The statements of a store. A walk's come twice: for the rest of a group first, then for the groups beyond
/// it. A comparison of (kwh,kwl) pairs would be made for each row, a condition on one of them only at the start.
struct Store::Texts
{
    /// @param format of the file; format 1 has its checksums under another name, and is only read
    explicit Texts(int format)
        : sum(format == 1 ? "crc" : "hash"),
          // The checksums of format 1 are made anew from what they are over.
          checksums(format == 1 ? ",crc,bytes,position" : ",hash"),
          walked(format == 1 ? ",crc,bytes,position" : ",hash,bytes"), whole("," + sum + ",bytes,position")
    {
    }

    std::string sum;
    std::string checksums;
    std::string walked; ///< a walk counts the positions by itself, and each column costs time
    std::string whole;

    Statement next{"SELECT kwl,kwh" + whole +
                   " FROM record WHERE kwh=?1 AND kwl=?2 AND position>?3 ORDER BY position LIMIT 1"};
    Statement ofKey{"SELECT kwl,kwh" + checksums + " FROM record WHERE kwh=?1 AND kwl=?2"};
    Statement last{"SELECT position FROM record WHERE kwh=?1 AND kwl=?2 ORDER BY position DESC LIMIT 1"};

    Statement keysUp{"SELECT kwl,kwh FROM record WHERE kwh=?1 AND kwl>?2 ORDER BY kwl LIMIT ?3"};
    Statement keysDown{"SELECT kwl,kwh FROM record WHERE kwh=?1 AND kwl<?2 ORDER BY kwl DESC LIMIT ?3"};
    Statement checksumsUp{"SELECT kwl,kwh" + checksums +
                          " FROM record WHERE kwh=?1 AND kwl>?2 ORDER BY kwl,position LIMIT ?3"};
    Statement recordsUp{"SELECT kwl,kwh" + walked +
                        " FROM record WHERE kwh=?1 AND kwl>?2 ORDER BY kwl,position LIMIT ?3"};
    Statement keysBeyond{"SELECT kwl,kwh FROM record WHERE kwh>?1 ORDER BY kwh,kwl LIMIT ?3"};
    Statement keysBefore{"SELECT kwl,kwh FROM record WHERE kwh<?1 ORDER BY kwh DESC,kwl DESC LIMIT ?3"};
    Statement recordsBeyond{"SELECT kwl,kwh" + walked +
                            " FROM record WHERE kwh>?1 ORDER BY kwh,kwl,position LIMIT ?3"};

    Statement insert{"INSERT OR IGNORE INTO record(kwh,kwl,position,hash,bytes) VALUES(?1,?2,?3,?4,?5)"};
    Statement update{"UPDATE record SET hash=?4,bytes=?5 WHERE kwh=?1 AND kwl=?2 AND position=?3"};
    Statement erase{"DELETE FROM record WHERE kwh=?1 AND kwl=?2"};

    Statement selectFact{"SELECT name,value," + sum + " FROM fact WHERE name=?1"};
    Statement selectFacts{"SELECT name,value," + sum + " FROM fact"};
    // gone() counts each row that it meets and is always true.
    Statement eraseFact{"DELETE FROM fact WHERE name=?1 AND gone(hash)"};
    Statement insertFact{"INSERT INTO fact(name,hash,value) VALUES(?1,?2,?3)"};

    Statement readState{"SELECT project,version,records,record_sum,facts,fact_sum FROM summary WHERE id=1"};
    Statement writeState{
        "UPDATE summary SET version=?1,records=?2,record_sum=?3,facts=?4,fact_sum=?5 WHERE id=1"};
};

} // namespace mrl::cdb
