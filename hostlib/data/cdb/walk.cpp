#include "hostlib/data/cdb/walk.h"

#include <algorithm>

namespace mrl::cdb {

namespace {

constexpr int FEWEST_AHEAD = 2; // rows
constexpr int MOST_AHEAD = 1024;
constexpr int GROWTH = 32;

bool before(const Key& a, const Key& b, bool up)
{
    const bool less = a.kwh != b.kwh ? a.kwh < b.kwh : a.kwl < b.kwl;
    return up ? less : a != b && !less;
}

} // namespace

Status Walk::step(Key& key, bool up)
{
    const bool goesOn = standsOn(key) && up == m_upward && m_mark.unchanged();
    if (goesOn && next(key)) {
        return Status::Ok;
    }
    if (goesOn && m_complete) {
        return Status::None;
    }
    // A start, or a walk that another commit has overtaken: small again, or a writer in a walk would fetch
    // a whole block for each step.
    m_ahead = goesOn ? std::min(m_ahead * GROWTH, MOST_AHEAD) : FEWEST_AHEAD;
    // The first key is mostly read at once, and the row behind it tells whether it has a second record.
    m_withBytes = up && (m_wantsBytes || !goesOn);
    if (fill(key, up) == Status::Failed) {
        drop();
        return Status::Failed;
    }
    if (next(key)) {
        return Status::Ok;
    }
    return Status::None;
}

bool Walk::next(Key& key)
{
    while (m_at < m_rows.size() && m_valid && m_rows[m_at].key == m_current) {
        ++m_at;
    }
    if (m_at >= m_rows.size()) {
        return false;
    }
    m_begin = m_at;
    m_current = key = m_rows[m_at].key;
    m_currentGone = false;
    m_valid = true;
    return true;
}

Status Walk::fill(const Key& from, bool up)
{
    m_rows.clear();
    m_arena.clear();
    m_at = m_begin = 0;
    m_current = from;
    m_valid = true;
    m_currentGone = true; // until the walk stands on a row of this block
    m_wantsBytes = false;
    m_upward = up;
    m_complete = false;
    m_taken = 0;
    m_mark.take();
    Status status = take(from, up, false);
    if (status == Status::None && !full()) {
        status = take(from, up, true);
    }
    m_complete = status == Status::None && !full();
    // Another commit may have come between the mark and the rows.
    if (!m_mark.compare()) {
        m_mark.drop();
    }
    return status;
}

Status Walk::take(const Key& from, bool up, bool otherGroups)
{
    const Columns columns = m_withBytes ? Columns::Records : Columns::Keys;
    Rows found = m_store.ahead(from, {up, otherGroups, columns, m_ahead - m_taken});
    Status status = Status::Ok;
    while (!full() && (status = found.next()) == Status::Ok) {
        if (!add(found, {otherGroups ? found.kwh() : from.kwh, found.kwl()}, up)) {
            return found.damaged();
        }
    }
    return status;
}

bool Walk::add(const Rows& found, const Key& key, bool up)
{
    ++m_taken;
    Row row{key, 0, 0, 0, 0};
    const bool sameKey = !m_rows.empty() && m_rows.back().key == row.key;
    if (sameKey && !m_withBytes) {
        return true;
    }
    if (!sameKey && !before(m_rows.empty() ? m_current : m_rows.back().key, row.key, up)) {
        return false;
    }
    if (m_withBytes) {
        // The positions of a key count up from 0 without a gap; the checksum, which covers the position,
        // tells when they do not.
        row.position = sameKey ? m_rows.back().position + 1 : 0;
        row.checksum = found.checksum();
        row.offset = static_cast<std::uint32_t>(m_arena.size());
        row.size = found.size();
        const auto* bytes = static_cast<const unsigned char*>(found.bytes());
        m_arena.insert(m_arena.end(), bytes, bytes + row.size);
    }
    m_rows.push_back(row);
    return true;
}

Walk::Serve Walk::find(const Key& key, int behind, Record& out)
{
    if (!standsOn(key)) {
        return Serve::NotHere;
    }
    m_wantsBytes = true;
    if (m_currentGone || !m_upward || !m_mark.unchanged()) {
        return Serve::NotHere;
    }
    if (!m_withBytes) {
        // A lister has become a reader: the next step shall fetch a block with bytes.
        const auto beyond = std::find_if(m_rows.begin() + static_cast<std::ptrdiff_t>(m_begin), m_rows.end(),
                                         [&](const Row& row) { return row.key != key; });
        if (beyond != m_rows.end()) {
            m_rows.erase(beyond, m_rows.end());
            m_complete = false;
        }
        return Serve::NotHere;
    }
    // A block begins with the first record of a key.
    const std::size_t i = m_begin + static_cast<std::size_t>(behind + 1);
    if (i >= m_rows.size() && !m_complete) {
        return Serve::NotHere;
    }
    if (i >= m_rows.size() || m_rows[i].key != key) {
        return Serve::EndOfKey;
    }
    out = {key, m_rows[i].position, m_rows[i].checksum, m_arena.data() + m_rows[i].offset, m_rows[i].size};
    return Serve::FromBlock;
}

std::optional<Standing> Walk::standing(const Key& key) const
{
    if (!standsOn(key) || m_currentGone || !m_upward || !m_withBytes || !m_mark.unchanged()) {
        return std::nullopt;
    }
    const Row& first = m_rows[m_begin];
    Standing found{{}, m_arena.data() + first.offset, first.size};
    std::size_t i = m_begin;
    for (; i < m_rows.size() && m_rows[i].key == key; ++i) {
        found.records.add(m_rows[i].checksum);
    }
    found.isWhole = i < m_rows.size() || m_complete;
    return found;
}

void Walk::written(const Key& key)
{
    if (!m_valid) {
        return;
    }
    if (key == m_current) {
        m_currentGone = true;
    } else if (before(m_current, key, m_upward) &&
               (m_complete || (!m_rows.empty() && !before(m_rows.back().key, key, m_upward)))) {
        drop();
    }
}

void Walk::drop()
{
    m_valid = false;
    m_rows.clear();
    m_arena.clear();
    m_at = m_begin = 0;
}

} // namespace mrl::cdb
