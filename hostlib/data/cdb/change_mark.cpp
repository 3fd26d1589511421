#include "hostlib/data/cdb/change_mark.h"

#include <atomic>

#include <sqlite3.h>

namespace mrl::cdb {

void ChangeMark::watchNothing() { kind = Watch::Private; }

bool ChangeMark::watch(sqlite3* connection)
{
    constexpr int regionSize = 32768; // of the shared index, part of the format
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        file == nullptr || file->pMethods == nullptr || file->pMethods->iVersion < 2) {
        return false;
    }
    volatile void* region = nullptr;
    if (file->pMethods->xShmMap(file, 0, regionSize, 0, &region) != SQLITE_OK || region == nullptr) {
        return false;
    }
    shared = static_cast<const volatile std::uint64_t*>(region);
    kind = Watch::Shared;
    return true;
}

ChangeMark::Header ChangeMark::read() const
{
    // Of the header's 48 bytes: the counter at offset 8 (with two words that never change), the checksum
    // at 40.
    return {shared[1], shared[5]};
}

void ChangeMark::take()
{
    if (kind != Watch::Shared) {
        return;
    }
    noted = read();
    // What is read from the file after this must not be fetched before it.
    std::atomic_thread_fence(std::memory_order_seq_cst);
}

bool ChangeMark::unchanged() const
{
    if (kind != Watch::Shared) {
        return kind == Watch::Private;
    }
    // A header that is torn in the middle of a commit differs from the noted one, which is what counts.
    const Header now = read();
    return now.counter == noted.counter && now.checksum == noted.checksum;
}

} // namespace mrl::cdb
