#pragma once

/// A walk over the records under one key of the project database, in their order.

#include "lcdata/guards.h"

/// Use: `LCM_RecordWalk<tagCDB_LC_ACT> walk(db, LC_KWH_ACTIONS, code); while (walk.next())
/// use(walk.record());` A longer record is cut to its beginning, the rest of a shorter one is zero.
template <class Record>
class LCM_RecordWalk
{
  public:
    LCM_RecordWalk(int db, int kwh, int kwl) : m_db(db), m_kwh(kwh), m_kwl(kwl), m_key(db, kwh, kwl) {}

    /// Reads the next record. @return false when the key has no further one
    bool next()
    {
        int length = sizeof m_record;
        return mrl_cdb_get(m_db, m_kwh, m_kwl, &m_record, &length, ++m_position) < CD_END;
    }

    /// The record read last, and its position among those of the key.
    const Record& record() const { return m_record; }
    int position() const { return m_position; }

  private:
    int m_db;
    int m_kwh;
    int m_kwl;
    LCM_KeyGuard m_key;
    Record m_record{};
    int m_position = -1;
};
