#include "hostlib/ui/framework/sync_state.h"

#include <algorithm>
#include <set>

namespace mrl::ui {

namespace cdb = mrl::cdb;

namespace {

bool overlap(const cdb::KeyRange& a, const cdb::KeyRange& b)
{
    return a.first <= b.last && b.first <= a.last;
}

/// The fingerprint of two ranges side by side.
cdb::Fingerprint together(const cdb::Fingerprint& a, const cdb::Fingerprint& b)
{
    return {a.count + b.count, a.sum + b.sum};
}

} // namespace

SyncState::Pieces& SyncState::piecesOf(int kwh)
{
    auto& pieces = m_groups[kwh];
    // A group that the project didn't have is empty on both sides.
    if (pieces.empty()) {
        pieces.push_back({{kwh}, {}, true});
    }
    return pieces;
}

cdb::Result SyncState::reset(int db)
{
    m_groups.clear();
    std::set<int> groups;
    if (auto result = cdb::groups(db, groups); !result) {
        return result;
    }
    for (const int kwh : groups) {
        if (auto result = note(db, {kwh}); !result) {
            return result;
        }
    }
    return {};
}

cdb::Result SyncState::cut(const cdb::KeyRange& range, int document, int file)
{
    auto& pieces = piecesOf(range.kwh);
    if (auto result = cutBefore(pieces, range.first, document, file); !result) {
        return result;
    }
    if (range.last == INT32_MAX) {
        return {};
    }
    return cutBefore(pieces, range.last + 1, document, file);
}

cdb::Result SyncState::cutBefore(Pieces& pieces, int kwl, int document, int file)
{
    const auto found = std::find_if(pieces.begin(), pieces.end(), [kwl](const Piece& piece) {
        return piece.range.first < kwl && kwl <= piece.range.last;
    });
    if (found == pieces.end()) {
        return {};
    }
    const Piece whole = *found;
    Piece lower{{whole.range.kwh, whole.range.first, kwl - 1}, {}, false};
    Piece upper{{whole.range.kwh, kwl, whole.range.last}, {}, false};
    for (const int db : {document, file}) {
        if (!whole.known || lower.known || db < 0) {
            continue;
        }
        if (auto result = cdb::fingerprint(db, lower.range, lower.common); !result) {
            return result;
        }
        if (auto result = cdb::fingerprint(db, upper.range, upper.common); !result) {
            return result;
        }
        lower.known = upper.known = together(lower.common, upper.common) == whole.common;
    }
    *found = upper;
    pieces.insert(found, lower);
    return {};
}

cdb::Result SyncState::pieceDiffers(int db, const Piece& piece, bool& different)
{
    different = true;
    if (!piece.known) {
        return {};
    }
    cdb::Fingerprint now;
    auto result = cdb::fingerprint(db, piece.range, now);
    different = !result || now != piece.common;
    return result;
}

cdb::Result SyncState::differs(int db, const cdb::KeyRange& range, bool& different) const
{
    different = false;
    const auto group = m_groups.find(range.kwh);
    if (group == m_groups.end()) {
        return pieceDiffers(db, {range, {}, true}, different);
    }
    for (const Piece& piece : group->second) {
        if (!overlap(piece.range, range)) {
            continue;
        }
        if (auto result = pieceDiffers(db, piece, different); !result || different) {
            return result;
        }
    }
    return {};
}

cdb::Result SyncState::differs(int db, bool& different) const
{
    different = true;
    std::set<int> groups;
    if (auto result = cdb::groups(db, groups); !result) {
        return result;
    }
    for (const auto& group : m_groups) {
        groups.insert(group.first);
    }
    different = false;
    for (const int kwh : groups) {
        if (auto result = differs(db, {kwh}, different); !result || different) {
            return result;
        }
    }
    return {};
}

cdb::Result SyncState::note(int db, const cdb::KeyRange& range)
{
    for (Piece& piece : piecesOf(range.kwh)) {
        if (!overlap(piece.range, range)) {
            continue;
        }
        auto result = cdb::fingerprint(db, piece.range, piece.common);
        piece.known = static_cast<bool>(result);
        if (!result) {
            return result;
        }
    }
    return {};
}

} // namespace mrl::ui
