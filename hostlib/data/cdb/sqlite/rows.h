#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/sqlite/statement.h"

namespace mrl::cdb {

/// What came of an operation on the store. None: there is no such row, which is no error.
enum class Status { Ok, None, Failed };

/// What a cursor delivers of each record.
/// Checksums spares the bytes of long records.
enum class Columns { Keys, Checksums, Records };

/// A record as it stands in its row. The bytes are unchecked.
struct Record
{
    Key key;
    int position = 0;
    std::uint64_t checksum = 0;
    const void* bytes = nullptr;
    int size = 0;
};

inline bool fitsChecksum(const Record& record)
{
    const auto size = static_cast<std::size_t>(record.size);
    return recordChecksum(record.key.kwh, record.key.kwl, record.position, record.bytes, size) ==
           record.checksum;
}

/// A cursor over records in the order of their keys and positions. From its first row to its end no other
/// process can commit, so it must not outlive the call that made it.
class Rows
{
  public:
    /// What all cursors of a store have in common.
    struct Source
    {
        sqlite3* connection;
        const std::string& file;
        Result& failure; ///< receives the reason when a step fails
        int format;      ///< of the file
    };
    using Bound = std::initializer_list<int>; ///< the values of the statement's parameters

    /// @param kept a statement that belongs to the store
    Rows(Statement& kept, const Source& source, Bound values)
        : m_run(kept, source.connection), m_source(source)
    {
        bind(values);
    }
    /// @param own a statement that ends with the cursor
    Rows(std::unique_ptr<Statement> own, const Source& source, Bound values)
        : m_own(std::move(own)), m_run(*m_own, source.connection), m_source(source)
    {
        bind(values);
    }

    /// Goes to the next record, at first to the first one. @return None beyond the last one
    Status next()
    {
        const int status = m_run.step();
        if (status == SQLITE_ROW) {
            return Status::Ok;
        }
        return status == SQLITE_DONE ? Status::None : failed(status);
    }

    /// Tells that the rows make no sense, as failing to read them would. @return Failed
    Status damaged() { return failed(SQLITE_CORRUPT); }
    /// Begins a range anew, at another first element.
    void restart(int first) { m_run.rewind().bind(2, first); }

    int kwl() const { return m_run.integer(0); }
    int kwh() const { return m_run.integer(1); }
    Key key() const { return {kwh(), kwl()}; }
    // Only of a cursor that delivers them.
    std::uint64_t checksum() const
    {
        const auto kept = static_cast<std::uint64_t>(m_run.wide(2));
        return m_source.format == 1 ? checksumOfFormat1(kept) : kept;
    }
    const void* bytes() const { return m_run.bytes(3); }
    int size() const { return m_run.size(3); }
    int position() const { return m_run.integer(4); }
    Record record() const { return {key(), position(), checksum(), bytes(), size()}; }

  private:
    void bind(Bound values)
    {
        int at = 0;
        for (const int value : values) {
            m_run.bind(++at, value);
        }
    }
    Status failed(int status);
    std::uint64_t checksumOfFormat1(std::uint64_t kept) const;

    std::unique_ptr<Statement> m_own;
    Run m_run;
    Source m_source;
};

} // namespace mrl::cdb
