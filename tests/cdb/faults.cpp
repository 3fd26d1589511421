#include "cdb/faults.h"

#include <cerrno>

#include <sqlite3.h>

namespace faults {

namespace {

struct Plan
{
    int counted = 0;
    int failing = 0; // 0: none
    Kind kind = Kind::DiskFull;
    Lasting lasting = Lasting::Once;
};
Plan plan;

bool fails()
{
    ++plan.counted;
    if (plan.failing == 0) {
        return false;
    }
    return plan.lasting == Lasting::ForEver ? plan.counted >= plan.failing : plan.counted == plan.failing;
}

sqlite3_vfs* below = nullptr;

int lastErrno() { return plan.kind == Kind::DiskFull ? ENOSPC : EIO; }
int lastError(sqlite3_vfs*, int, char*) { return lastErrno(); }

struct File
{
    sqlite3_file base;
    sqlite3_file* real; // stands behind this structure, in the same allocation
};

sqlite3_file* real(sqlite3_file* file) { return reinterpret_cast<File*>(file)->real; }
const sqlite3_io_methods& methods(sqlite3_file* file) { return *real(file)->pMethods; }

int close(sqlite3_file* f) { return methods(f).xClose(real(f)); }
int read(sqlite3_file* f, void* to, int size, sqlite3_int64 at)
{
    return methods(f).xRead(real(f), to, size, at);
}
int write(sqlite3_file* f, const void* from, int size, sqlite3_int64 at)
{
    if (fails()) {
        return plan.kind == Kind::DiskFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    }
    return methods(f).xWrite(real(f), from, size, at);
}
int truncate(sqlite3_file* f, sqlite3_int64 size)
{
    return fails() ? SQLITE_IOERR_TRUNCATE : methods(f).xTruncate(real(f), size);
}
int sync(sqlite3_file* f, int flags)
{
    return fails() ? SQLITE_IOERR_FSYNC : methods(f).xSync(real(f), flags);
}
int fileSize(sqlite3_file* f, sqlite3_int64* size) { return methods(f).xFileSize(real(f), size); }
int lock(sqlite3_file* f, int how) { return methods(f).xLock(real(f), how); }
int unlock(sqlite3_file* f, int how) { return methods(f).xUnlock(real(f), how); }
int checkReservedLock(sqlite3_file* f, int* out) { return methods(f).xCheckReservedLock(real(f), out); }
int fileControl(sqlite3_file* f, int what, void* argument)
{
    if (what == SQLITE_FCNTL_LAST_ERRNO) {
        *static_cast<int*>(argument) = lastErrno();
        return SQLITE_OK;
    }
    return methods(f).xFileControl(real(f), what, argument);
}
int sectorSize(sqlite3_file* f) { return methods(f).xSectorSize(real(f)); }
int characteristics(sqlite3_file* f) { return methods(f).xDeviceCharacteristics(real(f)); }
int shmMap(sqlite3_file* f, int page, int size, int extend, void volatile** out)
{
    return methods(f).xShmMap(real(f), page, size, extend, out);
}
int shmLock(sqlite3_file* f, int at, int n, int flags) { return methods(f).xShmLock(real(f), at, n, flags); }
void shmBarrier(sqlite3_file* f) { methods(f).xShmBarrier(real(f)); }
int shmUnmap(sqlite3_file* f, int remove) { return methods(f).xShmUnmap(real(f), remove); }

const sqlite3_io_methods layer{2,
                               close,
                               read,
                               write,
                               truncate,
                               sync,
                               fileSize,
                               lock,
                               unlock,
                               checkReservedLock,
                               fileControl,
                               sectorSize,
                               characteristics,
                               shmMap,
                               shmLock,
                               shmBarrier,
                               shmUnmap,
                               nullptr,
                               nullptr};

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* mine = reinterpret_cast<File*>(file);
    mine->real = reinterpret_cast<sqlite3_file*>(mine + 1);
    const int status = below->xOpen(below, name, mine->real, flags, outFlags);
    mine->base.pMethods = mine->real->pMethods != nullptr ? &layer : nullptr;
    return status;
}

} // namespace

void install()
{
    static sqlite3_vfs vfs;
    if (below != nullptr) {
        return;
    }
    below = sqlite3_vfs_find(nullptr);
    vfs = *below;
    vfs.zName = "faults";
    vfs.szOsFile = static_cast<int>(sizeof(File)) + below->szOsFile;
    vfs.xOpen = open;
    vfs.xGetLastError = lastError;
    sqlite3_vfs_register(&vfs, 1);
}

void failAt(int n, Kind kind, Lasting lasting) { plan = {0, n, kind, lasting}; }

int disarm()
{
    const int counted = plan.counted;
    plan = {};
    return counted;
}

} // namespace faults
