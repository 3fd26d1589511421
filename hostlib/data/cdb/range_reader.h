#pragma once

#include <cstring>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/registry.h"

namespace mrl::cdb {

/// Reads the records of a range in order, each checked against its checksum.
class RangeReader
{
  public:
    RangeReader(Database& database, const KeyRange& range)
        : m_db(database), m_rows(database.store().range(&range, Columns::Records))
    {
    }

    /// Goes on to the first record of a key ahead, or of the next one there is.
    /// @return is there a record; false also on failure, see result()
    bool seek(int key)
    {
        // Stepping over a few records costs less than a new search.
        constexpr int NEAR = 8;
        for (int steps = 0; !m_over && kwl() < key && steps < NEAR; ++steps) {
            next();
        }
        if (m_over || kwl() >= key) {
            return !m_over;
        }
        m_rows.restart(key);
        return next();
    }

    /// @return is there a record; false also on failure, see result()
    bool next()
    {
        const Status status = m_rows.next();
        if (status == Status::Ok) {
            return check();
        }
        m_over = true;
        if (status == Status::Failed) {
            m_error = m_db.failures().keep(m_db.store().failure());
        }
        return false;
    }
    const Result& result() const { return m_error; }
    bool atEnd() const { return m_over; }
    int kwl() const { return m_record.key.kwl; }
    const void* bytes() const { return m_record.bytes; }
    int size() const { return m_record.size; }
    int position() const { return m_record.position; }

    bool sameRecord(const RangeReader& other) const
    {
        return position() == other.position() && size() == other.size() &&
               std::memcmp(bytes(), other.bytes(), static_cast<std::size_t>(size())) == 0;
    }

  private:
    bool check()
    {
        m_record = m_rows.record();
        if (fitsChecksum(m_record)) {
            return true;
        }
        m_over = true;
        m_error = m_db.failures().keep(checksumFailure(m_db.file(), m_record.key));
        return false;
    }

    Database& m_db;
    Rows m_rows;
    Record m_record; ///< that it stands at; asking the row for a column costs each time
    bool m_over = false;
    Result m_error;
};

/// A key whose records differ.
struct Difference
{
    int kwl;
    bool overwrites; ///< it holds one record on both sides, at the same position 0
};

/// Walks two ranges side by side and hands each key that differs to `differs`, once and in ascending order;
/// a result of false ends the walk.
/// @param seen is called with the reader of `a` at each of its records, ahead of the verdict on their key
/// @param goesOn is asked behind each key; false ends the walk
template <class Differs, class Seen, class GoesOn>
Result compareRanges(Database& a, Database& b, const KeyRange& range, Differs differs, Seen seen,
                     GoesOn goesOn)
{
    for (Database* database : {&a, &b}) {
        if (Result settled = database->transactions().settle(); !settled) {
            return settled;
        }
    }
    RangeReader left(a, range);
    RangeReader right(b, range);
    left.next();
    right.next();
    while (left.result() && right.result() && !(left.atEnd() && right.atEnd())) {
        const bool onlyLeft = right.atEnd() || (!left.atEnd() && left.kwl() < right.kwl());
        const bool onlyRight = !onlyLeft && (left.atEnd() || right.kwl() < left.kwl());
        const int key = onlyRight ? right.kwl() : left.kwl();
        bool same = !onlyLeft && !onlyRight;
        bool single = same && left.position() == 0 && right.position() == 0;
        // Through the records of this key on both sides.
        bool hereLeft = !onlyRight;
        bool hereRight = !onlyLeft;
        while (hereLeft || hereRight) {
            same = same && hereLeft && hereRight && left.sameRecord(right);
            if (hereLeft) {
                seen(left);
            }
            hereLeft = hereLeft && left.next() && left.kwl() == key;
            hereRight = hereRight && right.next() && right.kwl() == key;
            single = single && !hereLeft && !hereRight;
        }
        if (!left.result() || !right.result()) {
            break;
        }
        if ((!same && !differs(Difference{key, single})) || !goesOn(key)) {
            break;
        }
    }
    return left.result() ? right.result() : left.result();
}

template <class Differs>
Result compareRanges(Database& a, Database& b, const KeyRange& range, Differs differs)
{
    return compareRanges(
        a, b, range, differs, [](const RangeReader&) {}, [](int) { return true; });
}

} // namespace mrl::cdb
