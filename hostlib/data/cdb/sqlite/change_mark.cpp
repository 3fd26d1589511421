#include "hostlib/data/cdb/sqlite/change_mark.h"

#include <cstring>

#include <sqlite3.h>

namespace mrl::cdb {

namespace {

constexpr std::chrono::microseconds BELIEVED{20};
constexpr int COUNTER_OFFSET = 24; // in the file's header, part of SQLite's format

std::uint64_t commitsHere = 0; // of all databases of the process, which belong to one thread

int keepNumber(void* header, int, char** values, char**)
{
    std::strncpy(static_cast<char*>(header), values[0], 15); // the sixteenth byte is zero from the beginning
    return 0;
}

} // namespace

void ChangeMark::committedHere() { ++commitsHere; }

void ChangeMark::watch(sqlite3* connection, int format)
{
    m_format = format;
    m_connection = connection;
    m_kind = Watch::File;
}

bool ChangeMark::read(Header& out) const
{
    if (m_format == 1) {
        return sqlite3_exec(m_connection, "PRAGMA data_version", keepNumber, out.data(), nullptr) ==
               SQLITE_OK;
    }
    sqlite3_file* file = nullptr;
    return sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_FILE_POINTER, &file) == SQLITE_OK &&
           file != nullptr && file->pMethods != nullptr &&
           file->pMethods->xRead(file, out.data(), static_cast<int>(out.size()), COUNTER_OFFSET) == SQLITE_OK;
}

void ChangeMark::take()
{
    m_commitsHere = commitsHere;
    m_noted = {};
    m_taken = m_kind == Watch::File && read(m_noted);
    m_compared = std::chrono::steady_clock::now();
}

bool ChangeMark::compare() const
{
    if (m_kind != Watch::File) {
        return m_kind == Watch::Private;
    }
    Header now{};
    m_compared = std::chrono::steady_clock::now();
    return m_taken && m_commitsHere == commitsHere && read(now) && now == m_noted;
}

bool ChangeMark::unchanged() const
{
    if (m_kind != Watch::File) {
        return m_kind == Watch::Private;
    }
    if (!m_taken || m_commitsHere != commitsHere) {
        return false;
    }
    return std::chrono::steady_clock::now() - m_compared < BELIEVED || compare();
}

} // namespace mrl::cdb
