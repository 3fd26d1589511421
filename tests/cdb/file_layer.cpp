#include "cdb/file_layer.h"

namespace {

FileLayer::File& of(sqlite3_file* file) { return *reinterpret_cast<FileLayer::File*>(file); }
FileLayer& layerOf(sqlite3_file* file) { return *of(file).layer; }
FileLayer& layerOf(sqlite3_vfs* vfs) { return *static_cast<FileLayer*>(vfs->pAppData); }

int onClose(sqlite3_file* f) { return layerOf(f).close(of(f)); }
int onRead(sqlite3_file* f, void* to, int size, sqlite3_int64 at)
{
    return layerOf(f).read(of(f), to, size, at);
}
int onWrite(sqlite3_file* f, const void* from, int size, sqlite3_int64 at)
{
    return layerOf(f).write(of(f), from, size, at);
}
int onTruncate(sqlite3_file* f, sqlite3_int64 size) { return layerOf(f).truncate(of(f), size); }
int onSync(sqlite3_file* f, int flags) { return layerOf(f).sync(of(f), flags); }
int onFileSize(sqlite3_file* f, sqlite3_int64* size) { return of(f).methods().xFileSize(of(f).below, size); }
int onLock(sqlite3_file* f, int how) { return of(f).methods().xLock(of(f).below, how); }
int onUnlock(sqlite3_file* f, int how) { return of(f).methods().xUnlock(of(f).below, how); }
int onCheckReservedLock(sqlite3_file* f, int* out)
{
    return of(f).methods().xCheckReservedLock(of(f).below, out);
}
int onControl(sqlite3_file* f, int what, void* argument) { return layerOf(f).control(of(f), what, argument); }
int onSectorSize(sqlite3_file* f) { return layerOf(f).sectorSize(of(f)); }
int onCharacteristics(sqlite3_file* f) { return layerOf(f).characteristics(of(f)); }
int onShmMap(sqlite3_file* f, int page, int size, int extend, void volatile** out)
{
    return of(f).methods().xShmMap(of(f).below, page, size, extend, out);
}
int onShmLock(sqlite3_file* f, int at, int n, int flags)
{
    return of(f).methods().xShmLock(of(f).below, at, n, flags);
}
void onShmBarrier(sqlite3_file* f) { of(f).methods().xShmBarrier(of(f).below); }
int onShmUnmap(sqlite3_file* f, int remove) { return of(f).methods().xShmUnmap(of(f).below, remove); }

const sqlite3_io_methods METHODS{2,
                                 onClose,
                                 onRead,
                                 onWrite,
                                 onTruncate,
                                 onSync,
                                 onFileSize,
                                 onLock,
                                 onUnlock,
                                 onCheckReservedLock,
                                 onControl,
                                 onSectorSize,
                                 onCharacteristics,
                                 onShmMap,
                                 onShmLock,
                                 onShmBarrier,
                                 onShmUnmap,
                                 nullptr,
                                 nullptr};

int onOpen(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    FileLayer::File& opened = of(file);
    opened.layer = &layerOf(vfs);
    opened.below = reinterpret_cast<sqlite3_file*>(&opened + 1);
    opened.below->pMethods = nullptr;
    opened.id = 0;
    const int status = opened.layer->open(opened, name, flags, outFlags);
    opened.base.pMethods = opened.below->pMethods != nullptr ? &METHODS : nullptr;
    return status;
}

int onRemove(sqlite3_vfs* vfs, const char* name, int syncFolder)
{
    return layerOf(vfs).remove(name, syncFolder);
}

int onLastError(sqlite3_vfs* vfs, int, char*) { return layerOf(vfs).lastError(); }

} // namespace

FileLayer::FileLayer(const char* name) : m_below(sqlite3_vfs_find(nullptr)), m_vfs(*m_below)
{
    m_vfs.zName = name;
    m_vfs.szOsFile = static_cast<int>(sizeof(File)) + m_below->szOsFile;
    m_vfs.pAppData = this;
    m_vfs.xOpen = onOpen;
    m_vfs.xDelete = onRemove;
    m_vfs.xGetLastError = onLastError;
    sqlite3_vfs_register(&m_vfs, 1);
}

FileLayer::~FileLayer() { sqlite3_vfs_unregister(&m_vfs); }

int FileLayer::open(File& file, const char* name, int flags, int* outFlags)
{
    return m_below->xOpen(m_below, name, file.below, flags, outFlags);
}

int FileLayer::remove(const char* name, int syncFolder)
{
    return m_below->xDelete(m_below, name, syncFolder);
}
