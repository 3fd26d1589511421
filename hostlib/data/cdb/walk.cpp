#include "hostlib/data/cdb/walk.h"

#include <algorithm>

namespace mrl::cdb {

namespace {

constexpr int fewestAhead = 2; // rows
constexpr int mostAhead = 1024;
constexpr int growth = 32;

bool before(const Key& a, const Key& b, bool up)
{
    const bool less = a.kwh != b.kwh ? a.kwh < b.kwh : a.kwl < b.kwl;
    return up ? less : a != b && !less;
}

} // namespace

int Walk::step(sqlite3* connection, Key& key, bool up)
{
    const bool goesOn = standsOn(key) && up == upward && mark.unchanged();
    if (goesOn && next(key)) {
        return SQLITE_ROW;
    }
    if (goesOn && complete) {
        return SQLITE_DONE;
    }
    // A start, or a walk that somebody's commit has overtaken: small again, or a writer in a walk would fetch
    // a whole block for each step.
    ahead = goesOn ? std::min(ahead * growth, mostAhead) : fewestAhead;
    // The first key is mostly read at once, and the row behind it tells whether it has a second record.
    withBytes = up && (wantsBytes || !goesOn);
    const int status = fill(connection, key, up);
    if (status != SQLITE_OK) {
        drop();
        return status;
    }
    if (next(key)) {
        return SQLITE_ROW;
    }
    return SQLITE_DONE;
}

bool Walk::next(Key& key)
{
    while (at < rows.size() && valid && rows[at].key == current) {
        ++at;
    }
    if (at >= rows.size()) {
        return false;
    }
    begin = at;
    current = key = rows[at].key;
    currentGone = false;
    valid = true;
    return true;
}

int Walk::fill(sqlite3* connection, const Key& from, bool up)
{
    rows.clear();
    arena.clear();
    at = begin = 0;
    current = from;
    valid = true;
    currentGone = true; // until the walk stands on a row of this block
    wantsBytes = false;
    upward = up;
    complete = false;
    taken = 0;
    mark.take();
    int status = takeRest(connection, from, up);
    if (status == SQLITE_DONE && !full()) {
        status = takeBeyond(connection, from, up);
    }
    complete = status == SQLITE_DONE && !full();
    return status == SQLITE_ROW || status == SQLITE_DONE ? SQLITE_OK : status;
}

int Walk::takeRest(sqlite3* connection, const Key& from, bool up)
{
    Run run(withBytes ? restRecords : (up ? restUp : restDown), connection);
    run.bind(1, from.kwh).bind(2, from.kwl).bind(3, ahead);
    int status = SQLITE_OK;
    while (!full() && (status = run.step()) == SQLITE_ROW) {
        if (!add(run, from.kwh, up)) {
            return SQLITE_CORRUPT;
        }
    }
    return status;
}

int Walk::takeBeyond(sqlite3* connection, const Key& from, bool up)
{
    Run run(withBytes ? beyondRecords : (up ? beyondUp : beyondDown), connection);
    run.bind(1, from.kwh).bind(2, ahead - taken);
    int status = SQLITE_OK;
    while (!full() && (status = run.step()) == SQLITE_ROW) {
        if (!add(run, run.integer(withBytes ? 3 : 1), up)) {
            return SQLITE_CORRUPT;
        }
    }
    return status;
}

bool Walk::add(const Run& run, int kwh, bool up)
{
    ++taken;
    Row row{{kwh, run.integer(0)}, 0, 0, 0, 0};
    const bool sameKey = !rows.empty() && rows.back().key == row.key;
    if (sameKey && !withBytes) {
        return true;
    }
    if (!sameKey && !before(rows.empty() ? current : rows.back().key, row.key, up)) {
        return false;
    }
    if (withBytes) {
        // The positions of a key count up from 0 without a gap; the checksum, which covers the position,
        // tells when they do not.
        row.position = sameKey ? rows.back().position + 1 : 0;
        row.checksum = static_cast<std::uint32_t>(run.integer(1));
        row.offset = static_cast<std::uint32_t>(arena.size());
        row.size = run.size(2);
        const auto* bytes = static_cast<const unsigned char*>(run.bytes(2));
        arena.insert(arena.end(), bytes, bytes + row.size);
    }
    rows.push_back(row);
    return true;
}

Walk::Serve Walk::find(const Key& key, int behind, Found& out)
{
    if (!standsOn(key)) {
        return Serve::NotHere;
    }
    wantsBytes = true;
    if (currentGone || !upward || !mark.unchanged()) {
        return Serve::NotHere;
    }
    if (!withBytes) {
        // A lister has become a reader: the next step shall fetch a block with bytes.
        const auto beyond = std::find_if(rows.begin() + static_cast<std::ptrdiff_t>(begin), rows.end(),
                                         [&](const Row& row) { return row.key != key; });
        if (beyond != rows.end()) {
            rows.erase(beyond, rows.end());
            complete = false;
        }
        return Serve::NotHere;
    }
    // A block begins with the first record of a key.
    const std::size_t i = begin + static_cast<std::size_t>(behind + 1);
    if (i >= rows.size() && !complete) {
        return Serve::NotHere;
    }
    if (i >= rows.size() || rows[i].key != key) {
        return Serve::EndOfKey;
    }
    out = {rows[i].position, rows[i].checksum, arena.data() + rows[i].offset, rows[i].size};
    return Serve::FromBlock;
}

void Walk::written(const Key& key)
{
    if (!valid) {
        return;
    }
    if (key == current) {
        currentGone = true;
    } else if (before(current, key, upward) &&
               (complete || (!rows.empty() && !before(rows.back().key, key, upward)))) {
        drop();
    }
}

void Walk::drop()
{
    valid = false;
    rows.clear();
    arena.clear();
    at = begin = 0;
}

} // namespace mrl::cdb
