#include "hostlib/data/cdb/range_reader.h"

namespace mrl::cdb {

namespace {

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
    Result result = compareRanges(*both.first, *both.second, range, [&](const Difference&) {
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
    Result result = compareRanges(*both.first, *both.second, range, [&](const Difference& difference) {
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
