#include "cdb/fixture.h"
#include "cdb/raw_files.h"
#include "cdb/sql_of_format1.h"

using mrl::cdb::Code;
using testing::ElementsAre;
using testing::HasSubstr;
namespace version1 = mrl::cdb::version1;

namespace {

class Format1 : public ::testing::Test
{
  protected:
    Format1() { tamper(file, sqlOfFormat1(COUNT)); }

    void expectWhole(int db) const
    {
        EXPECT_EQ(walkUp(db, 12, 0).size(), std::size_t{COUNT});
        EXPECT_EQ(getText(db, 12, 7), "record 7");
        EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "x.ini");
        EXPECT_TRUE(mrl::cdb::integrityCheck(db));
        EXPECT_TRUE(mrl::cdb::stickyError(db)) << mrl::cdb::stickyError(db).text;
    }
    static constexpr int COUNT = 300;
    Folder folder;
    std::string file = folder / "a.cdb";
};

TEST_F(Format1, OpensAndIsNotChangedByReading)
{
    const std::string before = contentOf(file);
    for (const bool readOnly : {false, true}) {
        const auto opened = readOnly ? mrl::cdb::openReadOnly(file) : mrl::cdb::open(file);
        ASSERT_TRUE(opened) << opened.result.text;
        EXPECT_EQ(mrl::cdb::formatVersion(opened.db), 1);
        expectWhole(opened.db);
        mrl::cdb::close(opened.db);
        EXPECT_EQ(contentOf(file), before);
        EXPECT_THAT(folder.files(), ElementsAre("a.cdb"));
    }
}

TEST_F(Format1, FirstWriteConvertsIt)
{
    mrl::cdb::Fingerprint before;
    mrl::cdb::Fingerprint after;
    const int db = mrl::cdb::open(file).db;
    ASSERT_TRUE(mrl::cdb::fingerprint(db, {12, 1, 100}, before));
    ASSERT_EQ(putText(db, 12, 200, "changed"), CD_OK) << mrl::cdb::stickyError(db).text;
    EXPECT_EQ(mrl::cdb::formatVersion(db), 2);
    ASSERT_TRUE(mrl::cdb::fingerprint(db, {12, 1, 100}, after));
    EXPECT_EQ(before, after);
    expectWhole(db);
    mrl::cdb::close(db);
    EXPECT_THAT(folder.files(), ElementsAre("a.cdb"));
    const auto again = mrl::cdb::openReadOnly(file);
    ASSERT_TRUE(again) << again.result.text;
    EXPECT_EQ(mrl::cdb::formatVersion(again.db), 2);
    expectWhole(again.db);
    EXPECT_EQ(getText(again.db, 12, 200), "changed");
    mrl::cdb::close(again.db);
}

TEST_F(Format1, OlderProgramThatHasItOpenDelaysTheConversion)
{
    sqlite3* older = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &older), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(older, "SELECT * FROM record", nullptr, nullptr, nullptr), SQLITE_OK);
    const int db = mrl::cdb::open(file).db;
    mrl::cdb::setLockWait(db, 0);
    EXPECT_EQ(putText(db, 12, 1, "changed"), CD_NONE);
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Locked);
    EXPECT_EQ(mrl::cdb::formatVersion(db), 1);
    EXPECT_EQ(getText(db, 12, 1), "record 1");
    sqlite3_close(older);
    EXPECT_EQ(putText(db, 12, 1, "changed"), CD_OK);
    mrl::cdb::close(db);
}

TEST_F(Format1, OlderProgramCannotWriteToTheConvertedFile)
{
    const int db = mrl::cdb::open(file).db;
    ASSERT_EQ(putText(db, 12, 1, "changed"), CD_OK);
    sqlite3* older = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &older), SQLITE_OK);
    for (const char* sql : {"INSERT INTO record(kwh,kwl,position,crc,bytes) VALUES(12,999,0,0,x'00')",
                            "UPDATE record SET crc=0,bytes=x'00' WHERE kwh=12",
                            "UPDATE summary SET records=0,record_xor=0 WHERE id=1"}) {
        EXPECT_EQ(sqlite3_exec(older, sql, nullptr, nullptr, nullptr), SQLITE_ERROR) << sql;
    }
    sqlite3_close(older);
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
    mrl::cdb::close(db);
}

TEST_F(Format1, CommitOfAnOlderProgramIsSeenInAWalk)
{
    const int db = mrl::cdb::open(file).db;
    EXPECT_EQ(walkUp(db, 12, 290).size(), 10U);
    // The sum of checksums is of no interest here.
    tamper(file, "DELETE FROM record WHERE kwl=295");
    EXPECT_EQ(walkUp(db, 12, 290).size(), 9U);
    mrl::cdb::close(db);
}

TEST_F(Format1, DamagedRecordIsNamed)
{
    tamper(file, "UPDATE record SET bytes=x'0102' WHERE kwh=12 AND kwl=7");
    const auto opened = mrl::cdb::open(file);
    EXPECT_EQ(opened.result.code, Code::Checksum);
    EXPECT_THAT(opened.result.text, HasSubstr("record 12/7 does not fit its checksum"));
}

TEST_F(Format1, DamageWhileOpenIsFoundByTheReadThatMeetsItAndForbidsTheConversion)
{
    const int db = mrl::cdb::open(file).db;
    tamper(file, "UPDATE record SET bytes=x'0102' WHERE kwh=12 AND kwl=7");
    EXPECT_EQ(getText(db, 12, 7), "<3>");
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Checksum);
    EXPECT_EQ(putText(db, 12, 1, "changed"), CD_NONE);
    EXPECT_EQ(mrl::cdb::formatVersion(db), 1);
    mrl::cdb::close(db);
}

TEST_F(Format1, LogOfACrashedProgramIsReadAndKeptByAReader)
{
    sqlite3* older = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &older), SQLITE_OK);
    const std::string bytes = "in the log";
    const auto crc = version1::recordChecksum({13, 1}, 0, bytes.data(), bytes.size());
    const std::string sql = "BEGIN;INSERT INTO record VALUES(13,1,0," +
                            std::to_string(static_cast<std::int32_t>(crc)) + ",CAST('" + bytes +
                            "' AS BLOB));UPDATE summary SET records=301,record_xor=(record_xor|" +
                            std::to_string(crc) + ")-(record_xor&" + std::to_string(crc) + ");COMMIT";
    ASSERT_EQ(sqlite3_exec(older, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    const std::string crashed = folder / "crashed.cdb";
    write(crashed, contentOf(file));
    write(crashed + "-wal", contentOf(file + "-wal"));
    sqlite3_close(older);
    const std::string before = contentOf(crashed);
    const auto reader = mrl::cdb::openReadOnly(crashed);
    ASSERT_TRUE(reader) << reader.result.text;
    EXPECT_EQ(getText(reader.db, 13, 1), bytes);
    mrl::cdb::close(reader.db);
    EXPECT_EQ(contentOf(crashed), before);
    const int writer = mrl::cdb::open(crashed).db;
    ASSERT_EQ(putText(writer, 12, 1, "changed"), CD_OK) << mrl::cdb::stickyError(writer).text;
    EXPECT_EQ(getText(writer, 13, 1), bytes);
    mrl::cdb::close(writer);
    EXPECT_FALSE(std::filesystem::exists(crashed + "-wal"));
}

TEST_F(Format1, PrivateCopyIsConvertedByItsFirstWrite)
{
    const int db = mrl::cdb::openReadOnly(file).db;
    const auto copy = mrl::cdb::copyOf(db);
    ASSERT_TRUE(copy) << copy.result.text;
    expectWhole(copy.db);
    EXPECT_EQ(putText(copy.db, 12, 200, "changed"), CD_OK) << mrl::cdb::stickyError(copy.db).text;
    expectWhole(copy.db);
    mrl::cdb::close(copy.db);
    mrl::cdb::close(db);
}

TEST_F(Format1, NothingStaysBesideAFileThatCannotBeWritten)
{
    chmod(folder.name().c_str(), 0777);
    chmod(file.c_str(), 0444);
    EXPECT_EQ(asNobody([&] {
                  const auto reading = mrl::cdb::openReadOnly(file);
                  const bool whole = reading && getText(reading.db, 12, 7) == "record 7";
                  mrl::cdb::close(reading.db);
                  return whole ? 0 : 1;
              }),
              0);
    EXPECT_THAT(folder.files(), ElementsAre("a.cdb"));
}

TEST_F(Format1, LogInAFolderThatCannotBeWrittenIsToldAsSuch)
{
    sqlite3* older = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &older), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(older, "DELETE FROM fact", nullptr, nullptr, nullptr), SQLITE_OK);
    const std::string crashed = folder / "crashed.cdb";
    write(crashed, contentOf(file));
    write(crashed + "-wal", contentOf(file + "-wal"));
    sqlite3_close(older);
    chmod(folder.name().c_str(), 0555);
    EXPECT_EQ(asNobody([&] {
                  const auto reading = mrl::cdb::openReadOnly(crashed);
                  return reading.result.text.find("-wal, the log of an older program") != std::string::npos
                             ? 0
                             : 1;
              }),
              0);
    chmod(folder.name().c_str(), 0755);
}

} // namespace
