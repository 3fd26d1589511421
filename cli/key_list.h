#pragma once

#include <climits>

#include "host/mrl_cdb.h"

namespace mrl::cli {

/// A walk over every key of a project, or over every key of one group, negative elements too.
class AllKeys
{
  public:
    explicit AllKeys(int index) : db(index) {}
    AllKeys(int index, int group) : db(index), last(group)
    {
        if (group > INT_MIN) {
            m_kwh = group - 1;
            m_kwl = INT_MAX;
        }
    }

    bool next() { return mrl_cdb_kenq_ex(db, &m_kwh, &m_kwl, +1) == 0 && m_kwh <= last; }

    int kwh() const { return m_kwh; }
    int kwl() const { return m_kwl; }

  private:
    int db;
    int m_kwh = INT_MIN;
    int m_kwl = INT_MIN;
    int last = INT_MAX;
};

} // namespace mrl::cli
