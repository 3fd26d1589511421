#include <cstring>
#include <optional>

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
        : db(database), kwh(range.kwh),
          text("SELECT kwl,position,crc,bytes FROM record WHERE kwh=?1 AND kwl BETWEEN ?2 AND ?3 "
               "ORDER BY kwh,kwl,position"),
          last(range.last)
    {
        from(range.first);
    }

    /// Goes on to the first record of a key ahead, or of the next one there is.
    /// @return is there a record; false also on failure, see result()
    bool seek(int key)
    {
        // Stepping over a few records costs less than a new search.
        constexpr int near = 8;
        for (int steps = 0; !over && kwl() < key && steps < near; ++steps) {
            next();
        }
        if (over || kwl() >= key) {
            return !over;
        }
        from(key);
        return next();
    }

    /// @return is there a record; false also on failure, see result()
    bool next()
    {
        const int status = run->step();
        if (status == SQLITE_ROW) {
            return check();
        }
        over = true;
        if (status != SQLITE_DONE) {
            error = db.readFailed(status);
        }
        return false;
    }
    const Result& result() const { return error; }
    bool atEnd() const { return over; }
    int kwl() const { return run->integer(0); }
    int position() const { return run->integer(1); }
    const void* bytes() const { return run->bytes(3); }
    int size() const { return run->size(3); }

    bool sameRecord(const RangeReader& other) const
    {
        return position() == other.position() && size() == other.size() &&
               std::memcmp(bytes(), other.bytes(), static_cast<std::size_t>(size())) == 0;
    }

  private:
    void from(int first)
    {
        run.emplace(text, db.connection());
        run->bind(1, kwh).bind(2, first).bind(3, last);
    }
    bool check()
    {
        const auto sum = recordChecksum(kwh, kwl(), position(), bytes(), static_cast<std::size_t>(size()));
        if (sum == static_cast<std::uint32_t>(run->integer(2))) {
            return true;
        }
        over = true;
        const auto name = std::to_string(kwh) + "/" + std::to_string(kwl());
        error = db.readFailed(
            failure(Code::Checksum, db.file(), "record " + name + " does not fit its checksum"));
        return false;
    }

    Database& db;
    int kwh;
    Statement text;
    int last;
    std::optional<Run> run;
    bool over = false;
    Result error;
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
            outcome = to.overwriteFirst(key, reader.bytes(), reader.size());
        } else if (outcome = to.remove(key); present && outcome != Outcome::Failed) {
            outcome = copyRecords(reader, to, key);
        }
        if (outcome == Outcome::Failed) {
            return to.lastFailure();
        }
    }
    return reader.result();
}

/// @param run gives the group and the element of each record, in order
Result collectKeys(Database& database, Run& run, std::vector<Key>& out)
{
    int status = SQLITE_OK;
    bool first = true;
    while ((status = run.step()) == SQLITE_ROW) {
        const Key key{run.integer(0), run.integer(1)};
        if (first || out.back() != key) {
            out.push_back(key);
        }
        first = false;
    }
    return status == SQLITE_DONE ? Result{} : database.readFailed(status);
}

} // namespace

Result keys(int db, const KeyRange& range, std::vector<Key>& out)
{
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    Statement text("SELECT kwh,kwl FROM record WHERE kwh=?1 AND kwl BETWEEN ?2 AND ?3 ORDER BY kwh,kwl");
    Run run(text, database->connection());
    return collectKeys(*database, run.bind(1, range.kwh).bind(2, range.first).bind(3, range.last), out);
}

Result keys(int db, std::vector<Key>& out)
{
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    Statement text("SELECT kwh,kwl FROM record ORDER BY kwh,kwl");
    Run run(text, database->connection());
    return collectKeys(*database, run, out);
}

Result groups(int db, std::set<int>& out)
{
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    Statement text("SELECT DISTINCT kwh FROM record");
    Run run(text, database->connection());
    int status = SQLITE_OK;
    while ((status = run.step()) == SQLITE_ROW) {
        out.insert(run.integer(0));
    }
    return status == SQLITE_DONE ? Result{} : database->readFailed(status);
}

Result fingerprint(int db, const KeyRange& range, Fingerprint& out)
{
    out = {};
    auto* database = Registry::instance().find(db);
    if (database == nullptr) {
        return notOpen(db);
    }
    Statement text("SELECT crc FROM record WHERE kwh=?1 AND kwl BETWEEN ?2 AND ?3");
    Run run(text, database->connection());
    run.bind(1, range.kwh).bind(2, range.first).bind(3, range.last);
    Fingerprint sum;
    int status = SQLITE_OK;
    while ((status = run.step()) == SQLITE_ROW) {
        const auto checksum = static_cast<std::uint32_t>(run.integer(0));
        ++sum.count;
        sum.mix ^= checksum;
        sum.sum += checksum;
    }
    if (status != SQLITE_DONE) {
        return database->readFailed(status);
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
