#include "hostlib/data/cdb/sqlite/files.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <list>
#include <memory>
#include <new>
#include <set>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/network.h"
#include "hostlib/data/cdb/sqlite/recovery.h"

namespace mrl::cdb {

namespace {

const std::string JOURNAL = "-journal";
const std::string LOG = "-wal"; // of format 1
const std::array<std::string, 3> COMPANIONS{JOURNAL, LOG, "-shm"};

sqlite3_vfs* below(sqlite3_vfs* layer) { return static_cast<sqlite3_vfs*>(layer->pAppData); }

bool isFileOrNothing(const char* path)
{
    struct stat info = {};
    return lstat(path, &info) != 0 || S_ISREG(info.st_mode);
}

/// The databases that were opened through a layer.
std::set<std::string>& databases()
{
    static std::set<std::string> names;
    return names;
}

/// Runs our part of a call. SQLite, which called, knows no exceptions.
template <class Work>
int guarded(Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return SQLITE_IOERR_NOMEM;
    }
}

/// Does SQLite open a journal in order to take back what a crashed program left unfinished? A transaction of its own
/// makes the journal, and looking at one does not write.
bool isRecovery(int flags)
{
    return (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0 && (flags & SQLITE_OPEN_READWRITE) != 0 &&
           (flags & SQLITE_OPEN_CREATE) == 0;
}

int mayOpen(sqlite3_vfs* layer, const char* name, int flags)
{
    const bool journal = (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL)) != 0;
    if ((flags & SQLITE_OPEN_SUPER_JOURNAL) != 0 || (journal && !isFileOrNothing(name))) {
        return SQLITE_CANTOPEN;
    }
    if ((flags & SQLITE_OPEN_MAIN_DB) != 0) {
        databases().insert(name);
    }
    const std::string path = name != nullptr ? name : "";
    return isRecovery(flags) ? mayRecover(below(layer), path.substr(0, path.size() - JOURNAL.size()))
                             : SQLITE_OK;
}

int openFile(sqlite3_vfs* layer, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    const int status = guarded([&] { return mayOpen(layer, name, flags); });
    if (status != SQLITE_OK) {
        file->pMethods = nullptr;
        return status;
    }
    return below(layer)->xOpen(below(layer), name, file, flags, outFlags);
}

int deleteFile(sqlite3_vfs* layer, const char* name, int syncFolder)
{
    return below(layer)->xDelete(below(layer), name, syncFolder);
}

bool isCompanion(const std::string& path)
{
    for (const std::string& ending : {JOURNAL, LOG}) {
        if (path.size() > ending.size() &&
            path.compare(path.size() - ending.size(), ending.size(), ending) == 0 &&
            databases().count(path.substr(0, path.size() - ending.size())) > 0) {
            return true;
        }
    }
    return false;
}

int accessFile(sqlite3_vfs* layer, const char* name, int flags, int* result)
{
    // SQLite asks for its own companions, and for the super-journal that a journal names.
    return guarded([&] {
        return isCompanion(name) ? below(layer)->xAccess(below(layer), name, flags, result)
                                 : SQLITE_IOERR_ACCESS;
    });
}

int fullPathname(sqlite3_vfs* layer, const char* name, int size, char* out)
{
    return below(layer)->xFullPathname(below(layer), name, size, out);
}

int lastError(sqlite3_vfs* layer, int size, char* out)
{
    return below(layer)->xGetLastError(below(layer), size, out);
}

/// Our layer above one of SQLite's.
struct Layer
{
    explicit Layer(sqlite3_vfs* base) : name(std::string("mrl-") + base->zName), vfs(*base)
    {
        vfs.zName = name.c_str();
        vfs.pAppData = base;
        vfs.pNext = nullptr;
        vfs.xOpen = openFile;
        vfs.xDelete = deleteFile;
        vfs.xAccess = accessFile;
        vfs.xFullPathname = fullPathname;
        vfs.xGetLastError = lastError;
        sqlite3_vfs_register(&vfs, 0);
    }
    std::string name;
    sqlite3_vfs vfs;
};

} // namespace

const char* fileLayer()
{
    // One for each layer below, since a connection keeps the sizes of the one that it was opened with.
    static std::list<Layer> layers;
    sqlite3_vfs* base = sqlite3_vfs_find(nullptr);
    for (const Layer& layer : layers) {
        if (layer.vfs.pAppData == base) {
            return layer.name.c_str();
        }
    }
    layers.emplace_back(base);
    return layers.back().name.c_str();
}

Result findPlace(const std::string& path, Place& out)
{
    struct Free
    {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> resolved(realpath(path.c_str(), nullptr));
    struct stat info = {};
    if (path.empty()) {
        return failure(Code::NoFile, "\"\"", "a file needs a name");
    }
    if (!resolved || stat(resolved.get(), &info) != 0) {
        return failure(Code::NoFile, path, std::strerror(errno));
    }
    out = {resolved.get(), info.st_dev, info.st_ino};
    return {};
}

Result checkCompanions(const std::string& file, const std::string& path)
{
    for (const std::string& ending : COMPANIONS) {
        const std::string companion = path + ending;
        if (!isFileOrNothing(companion.c_str())) {
            return failure(Code::NotAProject, file,
                           companion + " stands beside it and is no file; remove it");
        }
    }
    return {};
}

std::string folderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

Result mayBeWritten(const std::string& file, const std::string& path)
{
    if (Result here = onThisMachine(file, path); !here) {
        return here;
    }
    if (access(path.c_str(), W_OK) != 0) {
        return failure(Code::ReadOnly, file, "the file is read-only");
    }
    // The journal stands beside the file.
    if (access(folderOf(path).c_str(), W_OK) != 0) {
        return failure(Code::ReadOnly, file, "its folder is read-only");
    }
    return {};
}

Result failureToMake(int number, const std::string& file)
{
    switch (number) {
    case EEXIST:
        return failure(Code::Exists, file, "the file exists already");
    case EACCES:
    case EPERM:
    case EROFS:
        return failure(Code::ReadOnly, file, "the folder is read-only");
    case ENOSPC:
    case EDQUOT:
        return failure(Code::DiskFull, file, "the disk is full");
    case ENOENT:
    case ENOTDIR:
        return failure(Code::NoFile, file, "there is no such folder");
    default:
        return failure(Code::NoFile, file, std::strerror(number));
    }
}

void removeFile(const std::string& path)
{
    ::unlink(path.c_str());
    for (const std::string& ending : COMPANIONS) {
        ::unlink((path + ending).c_str());
    }
}

} // namespace mrl::cdb
