#pragma once

#include <climits>

#include "host/mrl_cdb.h"

namespace mrl::exchange {

/// A walk over every key of a project, or over every key of one group, negative elements too.
class AllKeys
{
  public:
    explicit AllKeys(int db) : m_db(db) {}
    AllKeys(int db, int group) : m_db(db), m_last(group)
    {
        if (group > INT_MIN) {
            m_kwh = group - 1;
            m_kwl = INT_MAX;
        }
    }

    bool next()
    {
        if (!m_started) {
            m_started = true;
            if (isLowestKey()) {
                return true;
            }
        }
        return mrl_cdb_kenq_ex(m_db, &m_kwh, &m_kwl, +1) == 0 && m_kwh <= m_last;
    }

    int kwh() const { return m_kwh; }
    int kwl() const { return m_kwl; }

  private:
    /// A step leads strictly beyond a key, so none leads to the lowest of all.
    bool isLowestKey() const
    {
        char byte = 0;
        int length = sizeof byte;
        return m_kwh == INT_MIN && m_kwl == INT_MIN &&
               mrl_cdb_get(m_db, m_kwh, m_kwl, &byte, &length, 0) < CD_END;
    }

    int m_db;
    int m_kwh = INT_MIN;
    int m_kwl = INT_MIN;
    int m_last = INT_MAX;
    bool m_started = false;
};

} // namespace mrl::exchange
