#include <cstring>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/registry.h"

namespace mrl::cdb {

namespace {

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
    int kwl() const { return m_rows.kwl(); }
    const void* bytes() const { return m_rows.bytes(); }
    int size() const { return m_rows.size(); }
    int position() const { return m_rows.position(); }

    bool sameRecord(const RangeReader& other) const
    {
        return position() == other.position() && size() == other.size() &&
               std::memcmp(bytes(), other.bytes(), static_cast<std::size_t>(size())) == 0;
    }

  private:
    bool check()
    {
        const Record record = m_rows.record();
        if (fitsChecksum(record)) {
            return true;
        }
        m_over = true;
        m_error = m_db.failures().keep(checksumFailure(m_db.file(), record.key));
        return false;
    }

    Database& m_db;
    Rows m_rows;
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
template <class Differs>
Result compare(Database& a, Database& b, const KeyRange& range, Differs differs)
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
            hereLeft = hereLeft && left.next() && left.kwl() == key;
            hereRight = hereRight && right.next() && right.kwl() == key;
            single = single && !hereLeft && !hereRight;
        }
        if (!left.result() || !right.result()) {
            break;
        }
        if (!same && !differs(Difference{key, single})) {
            break;
        }
    }
    return left.result() ? right.result() : left.result();
}

/// Replaces the records of a key by those that the reader stands at the first of.
Outcome copyRecords(RangeReader& reader, Database& to, const Key& key)
{
    do {
        if (to.append(key, reader.bytes(), reader.size()) != Outcome::Done) {
            return Outcome::Failed;
        }
    } while (reader.next() && reader.kwl() == key.kwl);
    return Outcome::Done;
}

/// Makes keys equal to those of another database. @param differing in ascending order
Result copyKeys(Database& from, Database& to, const KeyRange& range, const std::vector<Difference>& differing)
{
    if (differing.empty()) {
        return {};
    }
    RangeReader reader(from, {range.kwh, differing.front().kwl, range.last});
    reader.next();
    for (const auto& difference : differing) {
        const Key key{range.kwh, difference.kwl};
        const bool present = reader.seek(key.kwl) && reader.kwl() == key.kwl;
        if (!reader.result()) {
            return reader.result();
        }
        Outcome outcome = Outcome::Done;
        if (present && difference.overwrites) {
            outcome = to.overwrite(key, 0, reader.bytes(), reader.size());
        } else if (outcome = to.remove(key); present && outcome != Outcome::Failed) {
            outcome = copyRecords(reader, to, key);
        }
        if (outcome == Outcome::Failed) {
            return to.transactions().lastFailure();
        }
    }
    return reader.result();
}

Result collectKeys(Database& database, const KeyRange* range, std::vector<Key>& out)
{
    if (Result settled = database.transactions().settle(); !settled) {
        return settled;
    }
    Rows rows = database.store().range(range, Columns::Keys);
    Status status = Status::Ok;
    bool first = true;
    while ((status = rows.next()) == Status::Ok) {
        const Key key = rows.key();
        if (first || out.back() != key) {
            out.push_back(key);
        }
        first = false;
    }
    return status == Status::None ? Result{} : database.failures().keep(database.store().failure());
}

} // namespace

Result keys(int db, const KeyRange& range, std::vector<Key>& out)
{
    auto* database = Registry::instance().find(db);
    return database != nullptr ? collectKeys(*database, &range, out) : notOpen(db);
}

Result keys(int db, std::vector<Key>& out)
{
    auto* database = Registry::instance().find(db);
    return database != nullptr ? collectKeys(*database, nullptr, out) : notOpen(db);
}

Result groups(int db, std::set<int>& out)
{
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    if (Result settled = database->transactions().settle(); !settled) {
        return settled;
    }
    Rows rows = database->store().groups();
    Status status = Status::Ok;
    while ((status = rows.next()) == Status::Ok) {
        out.insert(rows.kwh());
    }
    return status == Status::None ? Result{} : database->failures().keep(database->store().failure());
}

Result fingerprint(int db, const KeyRange& range, Fingerprint& out)
{
    out = {};
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    if (Result settled = database->transactions().settle(); !settled) {
        return settled;
    }
    Rows rows = database->store().range(&range, Columns::Checksums);
    Fingerprint sum;
    Status status = Status::Ok;
    while ((status = rows.next()) == Status::Ok) {
        ++sum.count;
        sum.sum += rows.checksum();
    }
    if (status == Status::Failed) {
        return database->failures().keep(database->store().failure());
    }
    out = sum;
    return {};
}

Result rangesEqual(int a, int b, const KeyRange& range, bool& equal)
{
    equal = false;
    const Both both(a, b);
    if (!both.found) {
        return both.found;
    }
    bool differs = false;
    Result result = compare(*both.first, *both.second, range, [&](const Difference&) {
        differs = true;
        return false;
    });
    equal = result && !differs;
    return result;
}

Result replaceRange(int from, int to, const KeyRange& range, int* changed)
{
    if (changed != nullptr) {
        *changed = 0;
    }
    const Both both(from, to);
    if (!both.found) {
        return both.found;
    }
    // The lock comes ahead of the comparison: what is compared must still be there when it is written.
    Transaction transaction(to);
    if (Result state = transaction.state(); !state) {
        return state;
    }
    std::vector<Difference> differing;
    Result result = compare(*both.first, *both.second, range, [&](const Difference& difference) {
        differing.push_back(difference);
        return true;
    });
    if (result) {
        result = copyKeys(*both.first, *both.second, range, differing);
    }
    if (!result) {
        return result;
    }
    if (changed != nullptr) {
        *changed = static_cast<int>(differing.size());
    }
    return transaction.commit();
}

} // namespace mrl::cdb
