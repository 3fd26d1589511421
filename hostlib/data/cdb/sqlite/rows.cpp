#include "hostlib/data/cdb/sqlite/rows.h"

#include "hostlib/data/cdb/sqlite/sqlite_failure.h"
#include "hostlib/data/cdb/sqlite/version1.h"

namespace mrl::cdb {

Status Rows::failed(int status)
{
    m_source.failure = failureOf(status, m_source.connection, m_source.file);
    return Status::Failed;
}

/// @return the checksum that the record has in the present format; another one when its own does not fit it
std::uint64_t Rows::checksumOfFormat1(std::uint64_t kept) const
{
    const auto length = static_cast<std::size_t>(size());
    const auto present = recordChecksum(kwh(), kwl(), position(), bytes(), length);
    const auto own = version1::recordChecksum(key(), position(), bytes(), length);
    return own == static_cast<std::uint32_t>(kept) ? present : ~present;
}

} // namespace mrl::cdb
