#include "hostlib/data/cdb/removal_ahead.h"

#include <algorithm>

namespace mrl::cdb {

namespace {

constexpr int FEWEST = 16; // rows of the first fetch
constexpr int MOST = 1024;
constexpr int LONG_ENOUGH = 2; // ascending deletions that promise more

} // namespace

bool RemovalAhead::find(const Key& key, Tally& out)
{
    const bool ascends = key.kwh == m_last.kwh && key.kwl > m_last.kwl;
    m_streak = ascends ? m_streak + 1 : 0;
    m_last = key;
    if (!ascends) {
        m_rows.clear();
        m_at = 0;
        m_ahead = FEWEST;
        return false;
    }
    if (known(key, out)) {
        return true;
    }
    if (m_streak < LONG_ENOUGH || m_at < m_rows.size()) {
        return false; // no run of deletions, or the key does not exist
    }
    fetch(key);
    return known(key, out);
}

bool RemovalAhead::known(const Key& key, Tally& out)
{
    while (m_at < m_rows.size() && m_rows[m_at].kwl < key.kwl) {
        ++m_at;
    }
    if (m_at == m_rows.size() || m_rows[m_at].kwl != key.kwl) {
        return false;
    }
    out = m_rows[m_at++].removed;
    return true;
}

void RemovalAhead::fetch(const Key& from)
{
    m_rows.clear();
    m_at = 0;
    Rows found = m_store.ahead({from.kwh, from.kwl - 1}, {true, false, Columns::Checksums, m_ahead});
    int taken = 0;
    while (found.next() == Status::Ok) {
        ++taken;
        const int kwl = found.kwl();
        if (m_rows.empty() || m_rows.back().kwl != kwl) {
            m_rows.push_back({kwl, {}});
        }
        m_rows.back().removed.add(found.checksum());
    }
    if (taken >= m_ahead) {
        m_rows.pop_back(); // it may have more records than were read
    }
    m_ahead = std::min(m_ahead * 4, MOST);
}

void RemovalAhead::written(const Key& key)
{
    if (m_at < m_rows.size() && key.kwh == m_last.kwh && key.kwl >= m_rows[m_at].kwl &&
        key.kwl <= m_rows.back().kwl) {
        drop();
    }
}

void RemovalAhead::drop()
{
    m_rows.clear();
    m_at = 0;
    m_streak = 0;
    m_ahead = FEWEST;
}

} // namespace mrl::cdb
