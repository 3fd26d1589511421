#pragma once

/// What a call on the database has to give back on every way out.

#include "host/mrl_cdb.h"

/// Restores the database that was current when it was made.
class LCM_CurrentDatabaseGuard
{
  public:
    LCM_CurrentDatabaseGuard() : m_old(mrl_cdb_status(-1)) {}
    ~LCM_CurrentDatabaseGuard() { mrl_cdb_use(m_old, 0); }
    LCM_CurrentDatabaseGuard(const LCM_CurrentDatabaseGuard&) = delete;
    LCM_CurrentDatabaseGuard& operator=(const LCM_CurrentDatabaseGuard&) = delete;

  private:
    int m_old;
};

/// Ends the access to a key.
class LCM_KeyGuard
{
  public:
    LCM_KeyGuard(int db, int kwh, int kwl) : m_db(db), m_kwh(kwh), m_kwl(kwl) {}
    ~LCM_KeyGuard() { mrl_cdb_free_ex(m_db, m_kwh, m_kwl); }
    LCM_KeyGuard(const LCM_KeyGuard&) = delete;
    LCM_KeyGuard& operator=(const LCM_KeyGuard&) = delete;

  private:
    int m_db;
    int m_kwh;
    int m_kwl;
};
