#include "hostlib/data/cdb/sqlite/content_check.h"

#include <array>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/file_format.h"
#include "hostlib/data/cdb/sqlite/sqlite_failure.h"
#include "hostlib/data/cdb/sqlite/version1.h"
#include "hostlib/data/cdb/write.h"

namespace mrl::cdb {

namespace {

/// Is this the tally in two columns of the summary?
bool fits(const Tally& tally, const Run& run, int column)
{
    return run.wide(column) == tally.count && run.wide(column + 1) == static_cast<sqlite3_int64>(tally.sum);
}

class Checker
{
  public:
    Checker(sqlite3* connection, const std::string& file, int format)
        : m_db(connection), m_file(file), m_format(format)
    {
    }

    Result run(Depth depth)
    {
        Result result = tables();
        if (result) {
            result = pages(depth);
        }
        if (result) {
            result = records();
        }
        if (result) {
            result = facts();
        }
        if (result) {
            result = summary();
        }
        return result;
    }

  private:
    Result damaged(const std::string& what) const
    {
        return failure(Code::Corrupt, m_file, "the file is damaged (" + what + ")");
    }

    Result tables()
    {
        Statement text("SELECT sql FROM sqlite_schema ORDER BY name");
        Run run(text, m_db);
        const std::array<const char*, 3> present{FACT_TABLE, RECORD_TABLE, SUMMARY_TABLE};
        const std::array<const char*, 3> older{version1::FACT_TABLE, version1::RECORD_TABLE,
                                               version1::SUMMARY_TABLE};
        for (const char* expected : m_format == 1 ? older : present) {
            const int status = run.step();
            if (status != SQLITE_ROW && status != SQLITE_DONE) {
                return failureOf(status, m_db, m_file);
            }
            if (status == SQLITE_DONE || run.text(0) != expected) {
                return damaged("its tables are not those of a project");
            }
        }
        return run.step() == SQLITE_DONE ? Result{} : damaged("its tables are not those of a project");
    }

    Result pages(Depth depth)
    {
        Statement text(depth == Depth::Full ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)");
        Run run(text, m_db);
        const int status = run.step();
        if (status != SQLITE_ROW) {
            return failureOf(status, m_db, m_file);
        }
        const std::string verdict = run.text(0);
        return verdict == "ok" ? Result{} : damageOf(m_db, m_file, verdict);
    }

    Result records()
    {
        Statement text("SELECT kwh,kwl,position," + sumColumn() +
                       ",bytes FROM record ORDER BY kwh,kwl,position");
        Run run(text, m_db);
        Key last;
        int position = -1;
        int status = SQLITE_OK;
        while ((status = run.step()) == SQLITE_ROW) {
            const Key key{run.integer(0), run.integer(1)};
            position = m_summary.records.count > 0 && key == last ? position + 1 : 0;
            if (Result result = record(run, key, last, position); !result) {
                return result;
            }
            last = key;
        }
        return status == SQLITE_DONE ? Result{} : failureOf(status, m_db, m_file);
    }

    Result record(const Run& run, const Key& key, const Key& last, int position)
    {
        const std::string name = "record " + std::to_string(key.kwh) + "/" + std::to_string(key.kwl);
        for (int column = 0; column < 4; ++column) {
            const auto value = run.wide(column);
            const bool wide = column == 3 && m_format > 1;
            if (run.type(column) != SQLITE_INTEGER || (!wide && (value < INT32_MIN || value > INT32_MAX))) {
                return damaged(name + " is not made of what a record is made of");
            }
        }
        if (run.type(4) != SQLITE_BLOB || run.size(4) < 1 || run.size(4) > LONGEST_RECORD) {
            return damaged(name + " has an impossible length");
        }
        const auto size = static_cast<std::size_t>(run.size(4));
        const std::uint64_t sum = m_format == 1
                                      ? version1::recordChecksum(key, run.integer(2), run.bytes(4), size)
                                      : recordChecksum(key.kwh, key.kwl, run.integer(2), run.bytes(4), size);
        if (sum != storedSum(run, 3)) {
            return failure(Code::Checksum, m_file, name + " does not fit its checksum");
        }
        const bool ascending = key.kwh != last.kwh ? key.kwh > last.kwh : key.kwl >= last.kwl;
        if (m_summary.records.count > 0 && !ascending) {
            return damaged(name + " stands in the wrong place");
        }
        if (run.integer(2) != position) {
            return damaged(name + " has a gap in its positions");
        }
        add(m_summary.records, sum);
        return {};
    }

    Result facts()
    {
        Statement text("SELECT name," + sumColumn() + ",value FROM fact ORDER BY name");
        Run run(text, m_db);
        int status = SQLITE_OK;
        while ((status = run.step()) == SQLITE_ROW) {
            const std::uint64_t sum = m_format == 1 ? version1::factChecksum(run.text(0), run.text(2))
                                                    : factChecksum(run.text(0), run.text(2));
            if (sum != storedSum(run, 1)) {
                return failure(Code::Checksum, m_file,
                               "the fact \"" + run.text(0) + "\" does not fit its checksum");
            }
            add(m_summary.facts, sum);
        }
        return status == SQLITE_DONE ? Result{} : failureOf(status, m_db, m_file);
    }

    Result summary()
    {
        Statement text(m_format == 1 ? "SELECT records,record_xor,facts,fact_xor,id FROM summary"
                                     : "SELECT records,record_sum,facts,fact_sum,id FROM summary");
        Run run(text, m_db);
        const int status = run.step();
        if (status != SQLITE_ROW && status != SQLITE_DONE) {
            return failureOf(status, m_db, m_file);
        }
        if (status == SQLITE_DONE || run.integer(4) != 1 || !fits(m_summary.records, run, 0) ||
            !fits(m_summary.facts, run, 2)) {
            return failure(Code::Checksum, m_file, "the summary of the records does not fit its records");
        }
        return run.step() == SQLITE_DONE ? Result{} : damaged("it has more than one summary");
    }

    std::string sumColumn() const { return m_format == 1 ? "crc" : "hash"; }
    std::uint64_t storedSum(const Run& run, int column) const
    {
        const auto sum = static_cast<std::uint64_t>(run.wide(column));
        return m_format == 1 ? static_cast<std::uint32_t>(sum) : sum;
    }
    void add(Tally& tally, std::uint64_t sum) const
    {
        if (m_format == 1) {
            ++tally.count;
            tally.sum ^= sum;
        } else {
            tally.add(sum);
        }
    }

    sqlite3* m_db;
    const std::string& m_file;
    int m_format;
    Summary m_summary;
};

} // namespace

Result checkContent(sqlite3* connection, const std::string& file, int format, Depth depth)
{
    // One snapshot for all, since the summary has to fit the records. Inside a transaction there is one.
    const bool own = sqlite3_get_autocommit(connection) != 0;
    if (own) {
        const int status = sqlite3_exec(connection, "BEGIN", nullptr, nullptr, nullptr);
        if (status != SQLITE_OK) {
            return failureOf(status, connection, file);
        }
    }
    Result result = Checker(connection, file, format).run(depth);
    if (own) {
        sqlite3_exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    return result;
}

} // namespace mrl::cdb
