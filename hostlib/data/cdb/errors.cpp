#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

Result failure(Code code, const std::string& file, const std::string& reason)
{
    return {code, (file.empty() ? std::string("project in memory") : file) + ": " + reason};
}

Result checksumFailure(const std::string& file, const Key& key)
{
    const auto name = std::to_string(key.kwh) + "/" + std::to_string(key.kwl);
    return failure(Code::Checksum, file, "record " + name + " does not fit its checksum");
}

Result notOpen(int db) { return {Code::NotOpen, "database " + std::to_string(db) + ": it is not open"}; }

} // namespace mrl::cdb
