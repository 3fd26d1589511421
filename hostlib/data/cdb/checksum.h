#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace mrl::cdb {

/// Continues a CRC-32C (Castagnoli polynomial, reflected) over more bytes; start with 0.
std::uint32_t crc32c(std::uint32_t crc, const void* data, std::size_t size);

/// The same without the processor's instruction, for processors that have none.
std::uint32_t crc32cByTable(std::uint32_t crc, const void* data, std::size_t size);

/// The checksum that stands beside a record: over KWH, KWL and position as little-endian words, then the
/// bytes.
std::uint32_t recordChecksum(int kwh, int kwl, int position, const void* data, std::size_t size);

/// The checksum that stands beside a project fact: over the name, a zero byte and the value.
std::uint32_t factChecksum(const std::string& name, const std::string& value);

} // namespace mrl::cdb
