#include "hostlib/data/cdb/sqlite/files.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <list>
#include <memory>
#include <set>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

namespace {

constexpr std::array<const char*, 3> COMPANIONS{"-journal", "-wal", "-shm"};

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

int openFile(sqlite3_vfs* layer, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    const bool journal = (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL)) != 0;
    if ((flags & SQLITE_OPEN_SUPER_JOURNAL) != 0 || (journal && !isFileOrNothing(name))) {
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }
    if ((flags & SQLITE_OPEN_MAIN_DB) != 0) {
        databases().insert(name);
    }
    return below(layer)->xOpen(below(layer), name, file, flags, outFlags);
}

int deleteFile(sqlite3_vfs* layer, const char* name, int syncFolder)
{
    return below(layer)->xDelete(below(layer), name, syncFolder);
}

int accessFile(sqlite3_vfs* layer, const char* name, int flags, int* result)
{
    // SQLite asks for its own companions, and for the super-journal that a journal names.
    const std::string path = name;
    for (const char* ending : {"-journal", "-wal"}) {
        const std::size_t length = std::strlen(ending);
        if (path.size() > length && path.compare(path.size() - length, length, ending) == 0 &&
            databases().count(path.substr(0, path.size() - length)) > 0) {
            return below(layer)->xAccess(below(layer), name, flags, result);
        }
    }
    return SQLITE_IOERR_ACCESS;
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
    if (!resolved || stat(resolved.get(), &info) != 0) {
        return failure(Code::NoFile, path, std::strerror(errno));
    }
    out = {resolved.get(), info.st_dev, info.st_ino};
    return {};
}

Result checkCompanions(const std::string& file, const std::string& path)
{
    for (const char* ending : COMPANIONS) {
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
    for (const char* ending : COMPANIONS) {
        ::unlink((path + ending).c_str());
    }
}

} // namespace mrl::cdb
