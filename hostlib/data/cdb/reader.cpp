#include "hostlib/data/cdb/reader.h"

#include <climits>
#include <cstring>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

namespace {

constexpr int BEFORE_FIRST = -1; // positions count from 0

} // namespace

/// Steps over a key that is deleted already by deleting all of them: step by step, many would be met again.
Status Reader::next(Key& key, bool up)
{
    const Key from = key;
    const Status status = m_walk.step(key, up);
    if (status != Status::Ok || !m_pending.contains(key)) {
        return status;
    }
    m_walk.drop();
    key = from;
    return m_pending.flush() == Status::Failed ? Status::Failed : m_walk.step(key, up);
}

int Reader::step(int* kwh, int* kwl, int direction)
{
    const bool up = direction >= 0;
    Key key{*kwh, *kwl};
    const Status status = next(key, up);
    if (status == Status::Ok) {
        *kwh = key.kwh;
        *kwl = key.kwl;
        return 0;
    }
    if (status == Status::Failed) {
        static_cast<void>(m_failures.keep(m_store.failure()));
    }
    const int extreme = up ? INT_MAX : INT_MIN;
    // A walk over the outermost group itself has to see another one, too.
    *kwh = *kwh != extreme ? extreme : (up ? INT_MIN : INT_MAX);
    *kwl = extreme;
    return 1;
}

int Reader::lastRead(const Key& key) const
{
    if (m_readAt.empty()) {
        return 0;
    }
    const auto found = m_readAt.find(key);
    return found != m_readAt.end() ? found->second : 0;
}

void Reader::noteRead(const Key& key, int position)
{
    if (position > 0) {
        m_readAt[key] = position;
    } else if (!m_readAt.empty()) {
        m_readAt.erase(key);
    }
}

void Reader::deleted(const Key& key)
{
    if (!m_readAt.empty()) {
        m_readAt.erase(key);
    }
}

cd_error_t Reader::get(const Key& key, void* buffer, int* length, int position)
{
    if (m_pending.contains(key)) {
        return CD_NONE;
    }
    const int behind = position > 0 ? lastRead(key) : BEFORE_FIRST;
    Record record;
    switch (m_walk.find(key, behind, record)) {
    case Walk::Serve::FromBlock:
        return deliver(record, buffer, length);
    case Walk::Serve::EndOfKey:
        return CD_END;
    case Walk::Serve::NotHere:
        break;
    }
    return read(key, behind, buffer, length);
}

cd_error_t Reader::read(const Key& key, int behind, void* buffer, int* length)
{
    Rows rows = m_store.record(key, behind);
    const Status status = rows.next();
    if (status == Status::None) {
        return behind == BEFORE_FIRST ? CD_NONE : absent(key);
    }
    if (status == Status::Failed) {
        static_cast<void>(m_failures.keep(m_store.failure()));
        return CD_NONE;
    }
    return deliver(rows.record(), buffer, length);
}

cd_error_t Reader::absent(const Key& key)
{
    int position = 0;
    const Status status = m_store.lastPosition(key, position);
    if (status == Status::Failed) {
        static_cast<void>(m_failures.keep(m_store.failure()));
    }
    return status == Status::Ok ? CD_END : CD_NONE;
}

cd_error_t Reader::deliver(const Record& record, void* buffer, int* length)
{
    if (!fitsChecksum(record)) {
        static_cast<void>(m_failures.keep(checksumFailure(m_store.file(), record.key)));
        return CD_NONE;
    }
    noteRead(record.key, record.position);
    const auto size = static_cast<std::size_t>(record.size);
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

bool Reader::elements(int kwh, std::list<int>& out)
{
    const KeyRange group{kwh};
    if (m_pending.flush() == Status::Failed) {
        static_cast<void>(m_failures.keep(m_store.failure()));
        return false;
    }
    Rows rows = m_store.range(&group, Columns::Keys);
    Status status = Status::Ok;
    // A key with several records comes once for each.
    while ((status = rows.next()) == Status::Ok) {
        if (const int element = rows.kwl(); out.empty() || out.back() != element) {
            out.push_back(element);
        }
    }
    if (status == Status::Failed) {
        static_cast<void>(m_failures.keep(m_store.failure()));
    }
    return status != Status::Failed;
}

} // namespace mrl::cdb
