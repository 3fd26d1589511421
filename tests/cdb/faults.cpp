#include "cdb/faults.h"

#include <cerrno>

#include "cdb/file_layer.h"

namespace faults {

namespace {

struct Plan
{
    int counted = 0;
    int failing = 0; // 0: none
    Kind kind = Kind::DiskFull;
    Lasting lasting = Lasting::Once;
    Calls calls = Calls::Changes;
};
Plan plan;
bool failed = false; ///< some call has, since the plan was made

bool fails(Calls calls)
{
    if (calls == Calls::All && plan.calls == Calls::Changes) {
        return false;
    }
    ++plan.counted;
    const bool here = plan.failing != 0 && (plan.lasting == Lasting::ForEver ? plan.counted >= plan.failing
                                                                             : plan.counted == plan.failing);
    failed = failed || here;
    return here;
}
bool changeFails() { return fails(Calls::Changes); }
bool callFails() { return fails(Calls::All); }

int number() { return plan.kind == Kind::DiskFull ? ENOSPC : EIO; }

class Layer : public FileLayer
{
  public:
    Layer() : FileLayer("faults") {}

    int lastError() override { return failed ? number() : 0; }
    int open(File& file, const char* name, int flags, int* outFlags) override
    {
        return callFails() ? SQLITE_CANTOPEN : FileLayer::open(file, name, flags, outFlags);
    }
    int remove(const char* name, int syncFolder) override
    {
        return callFails() ? SQLITE_IOERR_DELETE : FileLayer::remove(name, syncFolder);
    }
    int read(File& file, void* to, int size, sqlite3_int64 at) override
    {
        return callFails() ? SQLITE_IOERR_READ : FileLayer::read(file, to, size, at);
    }
    int write(File& file, const void* from, int size, sqlite3_int64 at) override
    {
        if (changeFails()) {
            return plan.kind == Kind::DiskFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
        }
        return FileLayer::write(file, from, size, at);
    }
    int truncate(File& file, sqlite3_int64 size) override
    {
        return changeFails() ? SQLITE_IOERR_TRUNCATE : FileLayer::truncate(file, size);
    }
    int sync(File& file, int flags) override
    {
        return changeFails() ? SQLITE_IOERR_FSYNC : FileLayer::sync(file, flags);
    }
    int control(File& file, int what, void* argument) override
    {
        if (what == SQLITE_FCNTL_LAST_ERRNO && failed) {
            *static_cast<int*>(argument) = number();
            return SQLITE_OK;
        }
        return FileLayer::control(file, what, argument);
    }
};

} // namespace

void install() { static Layer layer; }

void failAt(int n, Kind kind, Lasting lasting, Calls calls)
{
    plan = {0, n, kind, lasting, calls};
    failed = false;
}

int disarm()
{
    const int counted = plan.counted;
    const Kind kind = plan.kind; // a failure may be asked about later
    plan = {};
    plan.kind = kind;
    return counted;
}

} // namespace faults
