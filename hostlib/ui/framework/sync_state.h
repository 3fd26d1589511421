#pragma once

/// What document and project file had in common when they were read or saved last.

#include <map>
#include <vector>

#include "hostlib/data/cdb/project.h"

namespace mrl::ui {

/// Keeps fingerprints of key ranges instead of a second copy of the project. Each group is cut into pieces
/// where a range that is refreshed or saved on its own begins or ends.
class SyncState
{
  public:
    /// From now on everything that the database holds counts as common.
    mrl::cdb::Result reset(int db);

    /// Cuts the pieces at the ends of a range, so that it can be compared and noted by itself. The fingerprints
    /// of the parts come from the database that is still unchanged, document or file; when both have changed,
    /// the parts are unknown, and count as changed on both sides.
    mrl::cdb::Result cut(const mrl::cdb::KeyRange& range, int document, int file);

    /// Does a database differ from what was common, in this range?
    mrl::cdb::Result differs(int db, const mrl::cdb::KeyRange& range, bool& different) const;
    /// The same for everything.
    mrl::cdb::Result differs(int db, bool& different) const;

    /// From now on what the database holds in the range counts as common.
    mrl::cdb::Result note(int db, const mrl::cdb::KeyRange& range);

  private:
    struct Piece
    {
        mrl::cdb::KeyRange range;
        mrl::cdb::Fingerprint common;
        bool known = true;
    };
    using Pieces = std::vector<Piece>; // ascending, without gaps

    Pieces& piecesOf(int kwh);
    static mrl::cdb::Result cutBefore(Pieces& pieces, int kwl, int document, int file);
    static mrl::cdb::Result pieceDiffers(int db, const Piece& piece, bool& different);

    std::map<int, Pieces> m_groups;
};

} // namespace mrl::ui
