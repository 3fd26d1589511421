#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace mrl::cdb {

/// The checksum of a record over its key, its position and its bytes.
std::uint64_t recordChecksum(int kwh, int kwl, int position, const void* data, std::size_t size);

/// The checksum of a fact over its name and its value.
std::uint64_t factChecksum(const std::string& name, const std::string& value);

} // namespace mrl::cdb
