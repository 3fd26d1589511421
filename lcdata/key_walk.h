#pragma once

/// A walk over the keys of one group of the project database, upward.

#include "host/mrl_cdb.h"
#include "lcdata/values/keys.h"

/// Use: `LCM_KeyWalk walk(db, LC_KWH_CASES); while (walk.next()) use(walk.kwl());`
/// The walk holds nothing of the database, and the key that it stands on may be deleted.
class LCM_KeyWalk
{
  public:
    /// @param behind the walk begins strictly behind this element
    LCM_KeyWalk(int db, int kwh, int behind = 0) : m_db(db), m_group(kwh), m_kwh(kwh), m_kwl(behind) {}

    /// Steps to the next key. @return false when the group has no further one
    bool next()
    {
        mrl_cdb_kenq_ex(m_db, &m_kwh, &m_kwl, +1);
        return m_kwh == m_group;
    }

    /// The element that the walk stands on.
    int kwl() const { return m_kwl; }

  private:
    int m_db;
    int m_group;
    int m_kwh;
    int m_kwl;
};

/// The walk over all actions by name: it begins behind the word of four blanks, so the plain numbers of the
/// superposition module are never met.
inline LCM_KeyWalk lcm_walk_actions(int db) { return LCM_KeyWalk(db, LC_KWH_ACTIONS, LC_BLANK_WORD); }
