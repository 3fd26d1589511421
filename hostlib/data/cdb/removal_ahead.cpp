#include "hostlib/data/cdb/removal_ahead.h"

#include <algorithm>

namespace mrl::cdb {

namespace {

constexpr int fewest = 16; // rows of the first fetch
constexpr int most = 1024;
constexpr int longEnough = 2; // ascending deletions that promise more

} // namespace

bool RemovalAhead::find(sqlite3* connection, const Key& key, Removed& out)
{
    const bool ascends = key.kwh == last.kwh && key.kwl > last.kwl;
    streak = ascends ? streak + 1 : 0;
    last = key;
    if (!ascends) {
        rows.clear();
        at = 0;
        ahead = fewest;
        return false;
    }
    if (known(key, out)) {
        return true;
    }
    if (streak < longEnough || at < rows.size()) {
        return false; // no run of deletions, or the key does not exist
    }
    fetch(connection, key);
    return known(key, out);
}

bool RemovalAhead::known(const Key& key, Removed& out)
{
    while (at < rows.size() && rows[at].kwl < key.kwl) {
        ++at;
    }
    if (at == rows.size() || rows[at].kwl != key.kwl) {
        return false;
    }
    out = rows[at++].removed;
    return true;
}

void RemovalAhead::fetch(sqlite3* connection, const Key& from)
{
    rows.clear();
    at = 0;
    Run run(text, connection);
    run.bind(1, from.kwh).bind(2, from.kwl).bind(3, ahead);
    int taken = 0;
    while (run.row()) {
        ++taken;
        const int kwl = run.integer(0);
        if (rows.empty() || rows.back().kwl != kwl) {
            rows.push_back({kwl, {}});
        }
        ++rows.back().removed.records;
        rows.back().removed.mix ^= static_cast<std::uint32_t>(run.integer(1));
    }
    if (taken >= ahead) {
        rows.pop_back(); // it may have more records than were read
    }
    ahead = std::min(ahead * 4, most);
}

void RemovalAhead::written(const Key& key)
{
    if (at < rows.size() && key.kwh == last.kwh && key.kwl >= rows[at].kwl && key.kwl <= rows.back().kwl) {
        drop();
    }
}

void RemovalAhead::drop()
{
    rows.clear();
    at = 0;
    streak = 0;
    ahead = fewest;
}

} // namespace mrl::cdb
