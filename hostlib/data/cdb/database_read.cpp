#include <climits>
#include <cstring>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/database.h"
#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

namespace {

constexpr int beforeFirst = -1; // positions count from 0

} // namespace

Result Database::readFailed(Result error)
{
    if (sticky) {
        sticky = error;
    }
    return error;
}

Result Database::readFailed(int status) { return readFailed(failureOf(status, db.get(), path)); }

int Database::step(int* kwh, int* kwl, int direction)
{
    const bool up = direction >= 0;
    Key key{*kwh, *kwl};
    const int status = walk.step(db.get(), key, up);
    if (status == SQLITE_ROW) {
        *kwh = key.kwh;
        *kwl = key.kwl;
        return 0;
    }
    if (status != SQLITE_DONE) {
        static_cast<void>(readFailed(status));
    }
    const int extreme = up ? INT_MAX : INT_MIN;
    // A walk over the outermost group itself has to see another one, too.
    *kwh = *kwh != extreme ? extreme : (up ? INT_MIN : INT_MAX);
    *kwl = extreme;
    return 1;
}

int Database::behindOf(const Key& key) const
{
    if (readAt.empty()) {
        return 0;
    }
    const auto found = readAt.find(key);
    return found != readAt.end() ? found->second : 0;
}

void Database::noteRead(const Key& key, int position)
{
    if (position > 0) {
        readAt[key] = position;
    } else if (!readAt.empty()) {
        readAt.erase(key);
    }
}

cd_error_t Database::get(const Key& key, void* buffer, int* length, int position)
{
    const int behind = position > 0 ? behindOf(key) : beforeFirst;
    Walk::Found record;
    switch (walk.find(key, behind, record)) {
    case Walk::Serve::FromBlock:
        return deliver(key, record, buffer, length);
    case Walk::Serve::EndOfKey:
        return CD_END;
    case Walk::Serve::NotHere:
        break;
    }
    return read(key, behind, buffer, length);
}

cd_error_t Database::read(const Key& key, int behind, void* buffer, int* length)
{
    Run run(next, db.get());
    const int status = run.bind(1, key.kwh).bind(2, key.kwl).bind(3, behind).step();
    if (status == SQLITE_DONE) {
        return behind == beforeFirst ? CD_NONE : absent(key);
    }
    if (status != SQLITE_ROW) {
        static_cast<void>(readFailed(status));
        return CD_NONE;
    }
    Walk::Found record;
    record.position = run.integer(0);
    record.checksum = static_cast<std::uint32_t>(run.integer(1));
    record.bytes = static_cast<const unsigned char*>(run.bytes(2));
    record.size = run.size(2);
    return deliver(key, record, buffer, length);
}

cd_error_t Database::absent(const Key& key)
{
    Run run(exists, db.get());
    const int status = run.bind(1, key.kwh).bind(2, key.kwl).step();
    if (status == SQLITE_ROW) {
        return CD_END;
    }
    if (status != SQLITE_DONE) {
        static_cast<void>(readFailed(status));
    }
    return CD_NONE;
}

cd_error_t Database::deliver(const Key& key, const Walk::Found& record, void* buffer, int* length)
{
    const auto size = static_cast<std::size_t>(record.size);
    if (recordChecksum(key.kwh, key.kwl, record.position, record.bytes, size) != record.checksum) {
        const auto name = std::to_string(key.kwh) + "/" + std::to_string(key.kwl);
        static_cast<void>(
            readFailed(failure(Code::Checksum, path, "record " + name + " does not fit its checksum")));
        return CD_NONE;
    }
    noteRead(key, record.position);
    const auto room = static_cast<std::size_t>(*length);
    const auto taken = size < room ? size : room;
    if (taken > 0) {
        std::memcpy(buffer, record.bytes, taken);
    }
    if (room > taken) {
        std::memset(static_cast<char*>(buffer) + taken, 0, room - taken);
    }
    *length = static_cast<int>(taken);
    return size > room ? CD_CUT : CD_OK;
}

int Database::listElements(int kwh, std::list<int>& out)
{
    Run run(elements, db.get());
    run.bind(1, kwh);
    int status = SQLITE_OK;
    // A key with several records comes once for each.
    while ((status = run.step()) == SQLITE_ROW) {
        if (const int element = run.integer(0); out.empty() || out.back() != element) {
            out.push_back(element);
        }
    }
    if (status != SQLITE_DONE) {
        static_cast<void>(readFailed(status));
    }
    return status;
}

std::string Database::fact(const std::string& name)
{
    if (!factsMark.unchanged()) {
        knownFacts.clear();
        factsMark = walk.mark;
        factsMark.take();
    }
    if (const auto known = knownFacts.find(name); known != knownFacts.end()) {
        return known->second;
    }
    Run run(selectFact, db.get());
    const int status = run.bind(1, name).step();
    if (status == SQLITE_DONE) {
        return knownFacts[name] = {};
    }
    if (status != SQLITE_ROW) {
        static_cast<void>(readFailed(status));
        return {};
    }
    return checkFact(run, name) ? knownFacts[name] = run.text(1) : std::string();
}

Result Database::facts(std::map<std::string, std::string>& out)
{
    out.clear();
    Run run(selectFacts, db.get());
    int status = SQLITE_OK;
    while ((status = run.step()) == SQLITE_ROW) {
        const std::string name = run.text(2);
        if (Result sound = checkFact(run, name); !sound) {
            return sound;
        }
        out[name] = run.text(1);
    }
    return status == SQLITE_DONE ? Result{} : readFailed(status);
}

/// @param row its checksum and its value
Result Database::checkFact(const Run& row, const std::string& name)
{
    if (row.wide(0) == static_cast<std::int32_t>(factChecksum(name, row.text(1)))) {
        return {};
    }
    return readFailed(failure(Code::Checksum, path, "the fact \"" + name + "\" does not fit its checksum"));
}

} // namespace mrl::cdb
