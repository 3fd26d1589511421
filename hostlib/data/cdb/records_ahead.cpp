#include "hostlib/data/cdb/records_ahead.h"

#include <algorithm>

namespace mrl::cdb {

namespace {

constexpr int MOST = 1024;
constexpr int LONG_ENOUGH = 2; // ascending keys that promise more

} // namespace

std::optional<Standing> RecordsAhead::find(const Key& key)
{
    const bool ascends = key.kwh == m_last.kwh && key.kwl > m_last.kwl;
    m_streak = ascends ? m_streak + 1 : 0;
    m_last = key;
    if (!ascends) {
        clear();
        m_ahead = FEWEST;
        return std::nullopt;
    }
    if (const auto standing = known(key)) {
        return standing;
    }
    if (m_streak < LONG_ENOUGH || m_at < m_rows.size()) {
        return std::nullopt; // no run of keys, or the key does not exist
    }
    fetch(key);
    return known(key);
}

std::optional<Standing> RecordsAhead::known(const Key& key)
{
    while (m_at < m_rows.size() && m_rows[m_at].kwl < key.kwl) {
        ++m_at;
    }
    if (m_at == m_rows.size() || m_rows[m_at].kwl != key.kwl) {
        return std::nullopt;
    }
    const Row& row = m_rows[m_at++];
    return Standing{row.records, m_columns == Columns::Records ? m_bytes.data() + row.offset : nullptr,
                    row.size};
}

void RecordsAhead::fetch(const Key& from)
{
    clear();
    Rows found = m_store.ahead({from.kwh, from.kwl - 1}, {true, false, m_columns, m_ahead});
    int taken = 0;
    while (found.next() == Status::Ok) {
        ++taken;
        const int kwl = found.kwl();
        if (m_rows.empty() || m_rows.back().kwl != kwl) {
            m_rows.push_back({kwl, {}, m_bytes.size(), 0});
            if (m_columns == Columns::Records) {
                m_rows.back().size = found.size();
                const auto* bytes = static_cast<const unsigned char*>(found.bytes());
                m_bytes.insert(m_bytes.end(), bytes, bytes + found.size());
            }
        }
        m_rows.back().records.add(found.checksum());
    }
    if (taken >= m_ahead) {
        m_rows.pop_back(); // it may have more records than were read
    }
    m_ahead = std::min(m_ahead * 4, MOST);
}

void RecordsAhead::written(const Key& key)
{
    if (m_at < m_rows.size() && key.kwh == m_last.kwh && key.kwl >= m_rows[m_at].kwl &&
        key.kwl <= m_rows.back().kwl) {
        drop();
    }
}

void RecordsAhead::clear()
{
    m_rows.clear();
    m_bytes.clear();
    m_at = 0;
}

void RecordsAhead::drop()
{
    clear();
    m_streak = 0;
    m_ahead = FEWEST;
}

} // namespace mrl::cdb
