#include "exchange/raw_records.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "host/mrl_cdb.h"
#include "lcdata/guards.h"

namespace mrl::exchange {

namespace {

constexpr std::size_t FIRST_BUFFER_BYTES = 4096; // almost every record fits; a longer one is read again
constexpr std::size_t BUFFER_GROWTH = 16;

/// Walks the key with one buffer. @return false when a record was cut
bool readWith(char* buffer, std::size_t size, int db, int kwh, int kwl, std::vector<std::string>& records)
{
    records.clear();
    const LCM_KeyGuard guard(db, kwh, kwl);
    for (int position = 0;; ++position) {
        int length = static_cast<int>(size);
        const cd_error_t result = mrl_cdb_get(db, kwh, kwl, buffer, &length, position);
        if (result >= CD_END) {
            return true;
        }
        if (result == CD_CUT) {
            return false;
        }
        records.emplace_back(buffer, static_cast<std::size_t>(length));
    }
}

} // namespace

std::vector<std::string> readRecords(int db, int kwh, int kwl)
{
    std::vector<std::string> records;
    std::array<char, FIRST_BUFFER_BYTES> first; // not filled: most keys hold one short record
    if (readWith(first.data(), first.size(), db, kwh, kwl, records)) {
        return records;
    }
    std::string buffer(FIRST_BUFFER_BYTES * BUFFER_GROWTH, '\0');
    while (!readWith(buffer.data(), buffer.size(), db, kwh, kwl, records)) {
        buffer.resize(buffer.size() * BUFFER_GROWTH);
    }
    return records;
}

bool holdsJust(int db, int kwh, int kwl, std::string_view bytes)
{
    const LCM_KeyGuard guard(db, kwh, kwl);
    char buffer[256];
    int length = sizeof buffer;
    if (bytes.size() > sizeof buffer || mrl_cdb_get(db, kwh, kwl, buffer, &length, 0) != CD_OK ||
        std::string_view(buffer, static_cast<std::size_t>(length)) != bytes) {
        return false;
    }
    length = sizeof buffer;
    return mrl_cdb_get(db, kwh, kwl, buffer, &length, 1) >= CD_END;
}

bool putRecord(int db, int kwh, int kwl, std::string_view bytes)
{
    const LCM_KeyGuard guard(db, kwh, kwl);
    const int length = static_cast<int>(bytes.size());
    return mrl_cdb_put(db, kwh, kwl, bytes.data(), &length, 0) == CD_OK;
}

bool overwriteRecord(int db, int kwh, int kwl, int position, const void* data, std::size_t size)
{
    const std::vector<std::string> records = readRecords(db, kwh, kwl);
    if (position < 0 || static_cast<std::size_t>(position) >= records.size()) {
        return false;
    }
    std::string bytes = records[static_cast<std::size_t>(position)];
    bytes.resize(std::max(bytes.size(), size));
    std::memcpy(bytes.data(), data, size);
    const LCM_KeyGuard guard(db, kwh, kwl);
    char head[4];
    for (int i = 0; i <= position; ++i) {
        int length = sizeof head;
        if (mrl_cdb_get(db, kwh, kwl, head, &length, i) >= CD_END) {
            return false;
        }
    }
    const int length = static_cast<int>(bytes.size());
    return mrl_cdb_put(db, kwh, kwl, bytes.data(), &length, -1) < CD_END;
}

std::string toHex(std::string_view bytes)
{
    constexpr char DIGITS[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += DIGITS[byte >> 4];
        text += DIGITS[byte & 0xF];
    }
    return text;
}

bool fromHex(std::string_view text, std::string& bytes)
{
    bytes.clear();
    if (text.size() % 2 != 0) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); i += 2) {
        unsigned value = 0;
        const char* const last = text.data() + i + 2;
        const auto [end, error] = std::from_chars(text.data() + i, last, value, 16);
        if (error != std::errc() || end != last) {
            return false;
        }
        bytes += static_cast<char>(value);
    }
    return true;
}

} // namespace mrl::exchange
