#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <sqlite3.h>

namespace mrl::cdb {

/// A file that is read through a layer of SQLite. Closing a descriptor of our own would give up all locks that this
/// process holds on the file, those of a database that has it open included.
class RawFile
{
  public:
    /// @param kind SQLITE_OPEN_MAIN_DB or SQLITE_OPEN_MAIN_JOURNAL
    RawFile(sqlite3_vfs* files, const std::string& path, int kind)
        : m_name(sqlite3_create_filename(path.c_str(), "", "", 0, nullptr)),
          m_place(static_cast<std::size_t>(files->szOsFile) / sizeof(std::max_align_t) + 1)
    {
        m_status = m_name != nullptr
                       ? files->xOpen(files, m_name, file(), kind | SQLITE_OPEN_READONLY, nullptr)
                       : SQLITE_NOMEM;
    }
    ~RawFile()
    {
        if (file()->pMethods != nullptr) {
            file()->pMethods->xClose(file());
        }
        sqlite3_free_filename(m_name); // harmless for null
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;

    /// What came of opening it, a code of SQLite.
    int status() const { return m_status; }

    /// @return a code of SQLite; SQLITE_IOERR_SHORT_READ behind the end, where the rest is zero
    int read(void* to, int size, sqlite3_int64 at)
    {
        return m_status == SQLITE_OK ? file()->pMethods->xRead(file(), to, size, at) : m_status;
    }
    int size(sqlite3_int64& out)
    {
        return m_status == SQLITE_OK ? file()->pMethods->xFileSize(file(), &out) : m_status;
    }

  private:
    sqlite3_file* file() { return reinterpret_cast<sqlite3_file*>(m_place.data()); }

    const char* m_name;
    std::vector<std::max_align_t> m_place;
    int m_status = SQLITE_OK;
};

inline std::uint32_t bigEndian(const unsigned char* at)
{
    return static_cast<std::uint32_t>(at[0]) << 24U | static_cast<std::uint32_t>(at[1]) << 16U |
           static_cast<std::uint32_t>(at[2]) << 8U | static_cast<std::uint32_t>(at[3]);
}

} // namespace mrl::cdb
