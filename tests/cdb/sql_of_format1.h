#pragma once

#include <string>

#include "hostlib/data/cdb/sqlite/version1.h"

/// The SQL by which an older program makes a project with load cases 1 to n and a design code.
inline std::string sqlOfFormat1(int n)
{
    std::string sql = std::string("PRAGMA journal_mode=WAL;PRAGMA application_id=1297239107;") +
                      "PRAGMA user_version=1;" + mrl::cdb::version1::RECORD_TABLE + ";" +
                      mrl::cdb::version1::FACT_TABLE + ";" + mrl::cdb::version1::SUMMARY_TABLE + ";BEGIN;";
    std::uint32_t mix = 0;
    for (int i = 1; i <= n; ++i) {
        const std::string bytes = "record " + std::to_string(i);
        const auto crc = mrl::cdb::version1::recordChecksum({12, i}, 0, bytes.data(), bytes.size());
        mix ^= crc;
        sql += "INSERT INTO record VALUES(12," + std::to_string(i) + ",0," +
               std::to_string(static_cast<std::int32_t>(crc)) + ",CAST('" + bytes + "' AS BLOB));";
    }
    const auto crc = mrl::cdb::version1::factChecksum("designcode", "x.ini");
    sql += "INSERT INTO fact VALUES('designcode'," + std::to_string(static_cast<std::int32_t>(crc)) +
           ",'x.ini');";
    return sql + "INSERT INTO summary VALUES(1," + std::to_string(n) + "," + std::to_string(mix) + ",1," +
           std::to_string(crc) + ");COMMIT";
}
