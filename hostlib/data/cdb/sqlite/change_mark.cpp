#include "hostlib/data/cdb/sqlite/change_mark.h"

#include <atomic>

#include <sqlite3.h>

namespace mrl::cdb {

void ChangeMark::watchNothing() { m_kind = Watch::Private; }

bool ChangeMark::watch(sqlite3* connection)
{
    constexpr int REGION_SIZE = 32768; // of the shared index, part of the format
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        file == nullptr || file->pMethods == nullptr || file->pMethods->iVersion < 2) {
        return false;
    }
    volatile void* region = nullptr;
    if (file->pMethods->xShmMap(file, 0, REGION_SIZE, 0, &region) != SQLITE_OK || region == nullptr) {
        return false;
    }
    m_shared = static_cast<const volatile std::uint64_t*>(region);
    m_kind = Watch::Shared;
    return true;
}

ChangeMark::Header ChangeMark::read() const
{
    // Of the header's 48 bytes: the counter at offset 8 (with two words that never change), the checksum
    // at 40.
    return {m_shared[1], m_shared[5]};
}

void ChangeMark::take()
{
    if (m_kind != Watch::Shared) {
        return;
    }
    m_noted = read();
    // What is read from the file after this must not be fetched before it.
    std::atomic_thread_fence(std::memory_order_seq_cst);
}

bool ChangeMark::unchanged() const
{
    if (m_kind != Watch::Shared) {
        return m_kind == Watch::Private;
    }
    // A header that is torn in the middle of a commit differs from the noted one, which is what counts.
    const Header now = read();
    return now.counter == m_noted.counter && now.checksum == m_noted.checksum;
}

} // namespace mrl::cdb
