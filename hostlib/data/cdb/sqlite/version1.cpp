#include "hostlib/data/cdb/sqlite/version1.h"

#include <array>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/sqlite/file_format.h"
#include "hostlib/data/cdb/sqlite/statement.h"
#include "hostlib/data/cdb/tally.h"

namespace mrl::cdb::version1 {

const char* const RECORD_TABLE = "CREATE TABLE record(kwh INTEGER NOT NULL,kwl INTEGER NOT NULL,"
                                 "position INTEGER NOT NULL,crc INTEGER NOT NULL,bytes BLOB NOT NULL,"
                                 "PRIMARY KEY(kwh,kwl,position))WITHOUT ROWID";
const char* const FACT_TABLE = "CREATE TABLE fact(name TEXT NOT NULL PRIMARY KEY,crc INTEGER NOT NULL,"
                               "value TEXT NOT NULL)WITHOUT ROWID";
const char* const SUMMARY_TABLE = "CREATE TABLE summary(id INTEGER PRIMARY KEY,records INTEGER NOT NULL,"
                                  "record_xor INTEGER NOT NULL,facts INTEGER NOT NULL,"
                                  "fact_xor INTEGER NOT NULL)";

namespace {

constexpr std::uint32_t POLYNOMIAL = 0x82F63B78U; // Castagnoli, bits reversed

/// The first table steps over one byte; each further one over a byte more, so that eight go at once.
using Tables = std::array<std::array<std::uint32_t, 256>, 8>;

constexpr Tables makeTables()
{
    Tables tables{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t crc = i;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? POLYNOMIAL : 0U);
        }
        tables[0][i] = crc;
    }
    for (std::uint32_t i = 0; i < 256; ++i) {
        for (std::size_t step = 1; step < tables.size(); ++step) {
            const std::uint32_t before = tables[step - 1][i];
            tables[step][i] = (before >> 8) ^ tables[0][before & 0xFFU];
        }
    }
    return tables;
}

constexpr Tables TABLES = makeTables();

std::uint32_t goOn(std::uint32_t crc, const void* data, std::size_t size)
{
    const auto* p = static_cast<const unsigned char*>(data);
    for (; size >= 8; size -= 8, p += 8) {
        std::uint32_t next = 0;
        for (std::size_t i = 0; i < 8; ++i) {
            const std::uint32_t byte = i < 4 ? (p[i] ^ (crc >> (8 * i))) & 0xFFU : p[i];
            next ^= TABLES[7 - i][byte];
        }
        crc = next;
    }
    for (; size > 0; --size, ++p) {
        crc = (crc >> 8) ^ TABLES[0][(crc ^ *p) & 0xFFU];
    }
    return crc;
}

} // namespace

std::uint32_t recordChecksum(const Key& key, int position, const void* data, std::size_t size)
{
    std::array<unsigned char, 12> head{};
    std::size_t at = 0;
    for (const int word : {key.kwh, key.kwl, position}) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            head[at++] = static_cast<unsigned char>(static_cast<std::uint32_t>(word) >> shift);
        }
    }
    return ~goOn(goOn(0xFFFFFFFFU, head.data(), head.size()), data, size);
}

std::uint32_t factChecksum(const std::string& name, const std::string& value)
{
    return ~goOn(goOn(0xFFFFFFFFU, name.c_str(), name.size() + 1), value.data(), value.size());
}

namespace {

/// SQL's record_hash(kwh,kwl,position,bytes) and fact_hash(name,value): the checksums of the present format.
void recordHash(sqlite3_context* context, int, sqlite3_value** values)
{
    const auto sum = cdb::recordChecksum(sqlite3_value_int(values[0]), sqlite3_value_int(values[1]),
                                         sqlite3_value_int(values[2]), sqlite3_value_blob(values[3]),
                                         static_cast<std::size_t>(sqlite3_value_bytes(values[3])));
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(sum));
}

std::string textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text != nullptr ? text : "";
}

void factHash(sqlite3_context* context, int, sqlite3_value** values)
{
    const auto sum = cdb::factChecksum(textOf(values[0]), textOf(values[1]));
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(sum));
}

/// The sum of one column modulo 2^64, which SQL's own sum() has not.
int sumOf(sqlite3* connection, const char* sql, Tally& out)
{
    Statement text(sql);
    Run run(text, connection);
    int status = SQLITE_OK;
    while ((status = run.step()) == SQLITE_ROW) {
        out.add(static_cast<std::uint64_t>(run.wide(0)));
    }
    return status == SQLITE_DONE ? SQLITE_OK : status;
}

int fillTables(sqlite3* connection)
{
    sqlite3_create_function_v2(connection, "record_hash", 4, SQLITE_UTF8 | SQLITE_DIRECTONLY, nullptr,
                               recordHash, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(connection, "fact_hash", 2, SQLITE_UTF8 | SQLITE_DIRECTONLY, nullptr, factHash,
                               nullptr, nullptr, nullptr);
    return sqlite3_exec(connection,
                        "INSERT INTO record SELECT kwh,kwl,position,record_hash(kwh,kwl,position,bytes),"
                        "bytes FROM record_1 ORDER BY kwh,kwl,position;"
                        "INSERT INTO fact SELECT name,fact_hash(name,value),value FROM fact_1;"
                        "DROP TABLE record_1;DROP TABLE fact_1;DROP TABLE summary_1",
                        nullptr, nullptr, nullptr);
}

} // namespace

int convert(sqlite3* connection)
{
    int status = sqlite3_exec(connection,
                              "ALTER TABLE record RENAME TO record_1;ALTER TABLE fact RENAME TO fact_1;"
                              "ALTER TABLE summary RENAME TO summary_1",
                              nullptr, nullptr, nullptr);
    if (status == SQLITE_OK) {
        status = sqlite3_exec(connection, tableTexts().c_str(), nullptr, nullptr, nullptr);
    }
    if (status == SQLITE_OK) {
        status = fillTables(connection);
    }
    Tally records;
    Tally facts;
    if (status == SQLITE_OK) {
        status = sumOf(connection, "SELECT hash FROM record", records);
    }
    if (status == SQLITE_OK) {
        status = sumOf(connection, "SELECT hash FROM fact", facts);
    }
    if (status != SQLITE_OK) {
        return status;
    }
    Statement text("UPDATE summary SET version=1,records=?1,record_sum=?2,facts=?3,fact_sum=?4");
    Run run(text, connection);
    run.bind(1, records.count).bind(2, static_cast<sqlite3_int64>(records.sum));
    run.bind(3, facts.count).bind(4, static_cast<sqlite3_int64>(facts.sum));
    status = run.step();
    return status == SQLITE_DONE ? SQLITE_OK : status;
}

} // namespace mrl::cdb::version1
