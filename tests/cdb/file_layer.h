#pragma once

/// A layer between SQLite and the file system that lets everything through. Tests derive from it to let calls fail or
/// to note them.

#include <string>

#include <sqlite3.h>

class FileLayer
{
  public:
    /// A file that is open through the layer. What stands below follows it in the same allocation.
    struct File
    {
        sqlite3_file base;
        FileLayer* layer;
        sqlite3_file* below;
        int id; ///< 0, or what open() gives it
        const sqlite3_io_methods& methods() const { return *below->pMethods; }
    };

    /// Puts the layer in front of all databases that are opened from now on. It has to outlive them.
    explicit FileLayer(const char* name);
    virtual ~FileLayer();
    FileLayer(const FileLayer&) = delete;
    FileLayer& operator=(const FileLayer&) = delete;

    virtual int open(File& file, const char* name, int flags, int* outFlags);
    virtual int remove(const char* name, int syncFolder);
    virtual int lastError() { return 0; }

    virtual int close(File& file) { return file.methods().xClose(file.below); }
    virtual int read(File& file, void* to, int size, sqlite3_int64 at)
    {
        return file.methods().xRead(file.below, to, size, at);
    }
    virtual int write(File& file, const void* from, int size, sqlite3_int64 at)
    {
        return file.methods().xWrite(file.below, from, size, at);
    }
    virtual int truncate(File& file, sqlite3_int64 size)
    {
        return file.methods().xTruncate(file.below, size);
    }
    virtual int sync(File& file, int flags) { return file.methods().xSync(file.below, flags); }
    virtual int control(File& file, int what, void* argument)
    {
        return file.methods().xFileControl(file.below, what, argument);
    }
    virtual int sectorSize(File& file) { return file.methods().xSectorSize(file.below); }
    virtual int characteristics(File& file) { return file.methods().xDeviceCharacteristics(file.below); }

  private:
    sqlite3_vfs* m_below;
    sqlite3_vfs m_vfs;
};
