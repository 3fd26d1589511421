#include "cdb/fixture.h"
#include "cdb/raw_files.h"

using mrl::cdb::Code;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// A closed project with a few records, to be damaged.
class Files : public ::testing::Test
{
  protected:
    Files()
    {
        const int db = mrl::cdb::create(file).db;
        for (int i = 1; i <= 20; ++i) {
            putText(db, 12, i, "record " + std::to_string(i));
        }
        static_cast<void>(mrl::cdb::setFact(db, "designcode", "x.ini"));
        mrl::cdb::close(db);
    }
    /// Both ways of opening refuse it, with a text that names file and reason, and leave it as it is.
    void expectRefused(Code code, const std::string& reason)
    {
        const std::string before = contentOf(file);
        for (const auto& opened : {mrl::cdb::open(file), mrl::cdb::openReadOnly(file)}) {
            EXPECT_FALSE(opened);
            EXPECT_EQ(opened.db, -1);
            EXPECT_EQ(opened.result.code, code) << opened.result.text;
            EXPECT_THAT(opened.result.text, StartsWith(file + ": "));
            EXPECT_THAT(opened.result.text, HasSubstr(reason));
        }
        EXPECT_EQ(contentOf(file), before);
    }
    Folder folder;
    std::string file = folder / "a.cdb";
};

TEST_F(Files, RemovingOneTakesAwayWhatStandsBesideItToo)
{
    for (const char* ending : {"-journal", "-wal", "-shm", ".bak"}) {
        write(file + ending, "left behind");
    }
    mrl::cdb::removeFile(file);
    for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
        EXPECT_FALSE(std::filesystem::exists(file + ending)) << ending;
    }
    EXPECT_TRUE(std::filesystem::exists(file + ".bak")) << "somebody else's";
    mrl::cdb::removeFile(file); // nothing is there any more
}

TEST_F(Files, ReopenedProjectHoldsWhatWasWritten)
{
    const auto opened = mrl::cdb::open(file);
    ASSERT_TRUE(opened) << opened.result.text;
    EXPECT_EQ(getText(opened.db, 12, 7), "record 7");
    EXPECT_EQ(mrl::cdb::fact(opened.db, "designcode"), "x.ini");
    EXPECT_EQ(mrl::cdb::path(opened.db), file);
    EXPECT_FALSE(mrl::cdb::isReadOnly(opened.db));
    mrl::cdb::close(opened.db);
}

TEST_F(Files, ClosedProjectIsASingleFile)
{
    for (const bool readOnly : {false, true}) {
        const int db = readOnly ? mrl::cdb::openReadOnly(file).db : mrl::cdb::open(file).db;
        putText(db, 12, 1, "changed");
        getText(db, 12, 1);
        mrl::cdb::close(db);
        EXPECT_THAT(folder.files(), testing::ElementsAre("a.cdb"));
    }
}

TEST_F(Files, OnlyReadingChangesNoByte)
{
    const std::string before = contentOf(file);
    for (const bool readOnly : {false, true}) {
        const int db = readOnly ? mrl::cdb::openReadOnly(file).db : mrl::cdb::open(file).db;
        walkUp(db, 12, 0);
        mrl_cdb_del(db, 12, 999);
        mrl::cdb::close(db);
        EXPECT_EQ(contentOf(file), before);
    }
}

TEST_F(Files, CreatingRefusesAnExistingFile)
{
    const std::string before = contentOf(file);
    const auto opened = mrl::cdb::create(file);
    EXPECT_EQ(opened.result.code, Code::Exists);
    EXPECT_EQ(opened.result.text, file + ": the file exists already");
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(Files, CreatingInAMissingFolderIsRefused)
{
    EXPECT_EQ(mrl::cdb::create(folder / "no/a.cdb").result.code, Code::NoFile);
    EXPECT_EQ(mrl::cdb::create("").result.code, Code::NoFile);
}

TEST_F(Files, NamesThatMeanSomethingToSqliteAreFiles)
{
    const auto old = std::filesystem::current_path();
    std::filesystem::current_path(folder.name());
    for (const std::string name : {":memory:", "file:a.cdb?mode=memory", "a b%20c#d?.cdb"}) {
        const auto made = mrl::cdb::create(name);
        ASSERT_TRUE(made) << made.result.text;
        putText(made.db, 12, 1, "x");
        mrl::cdb::close(made.db);
        EXPECT_TRUE(std::filesystem::exists(folder / name));
        const auto opened = mrl::cdb::openReadOnly(name);
        EXPECT_EQ(getText(opened.db, 12, 1), "x");
        mrl::cdb::close(opened.db);
    }
    std::filesystem::current_path(old);
}

TEST_F(Files, MissingFileIsNotCreated)
{
    std::filesystem::remove(file);
    EXPECT_EQ(mrl::cdb::open(file).result.code, Code::NoFile);
    EXPECT_EQ(mrl::cdb::openReadOnly(file).result.code, Code::NoFile);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Files, FolderIsNoProject) { EXPECT_EQ(mrl::cdb::open(folder.name()).result.code, Code::NotAProject); }

TEST_F(Files, EmptyAndForeignFilesAreNoProject)
{
    for (const std::string& content : {std::string(), std::string("hello"), std::string(5000, '\0'),
                                       std::string("SQLite format 3"), contentOf(file).substr(0, 99)}) {
        write(file, content);
        expectRefused(Code::NotAProject, "this is no project file");
    }
}

TEST_F(Files, ForeignDatabaseAndItsJournalAreNotTouched)
{
    std::filesystem::remove(file);
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    sqlite3_exec(raw, "PRAGMA journal_mode=WAL;CREATE TABLE t(x);INSERT INTO t VALUES(1)", nullptr, nullptr,
                 nullptr);
    const std::string log = contentOf(file + "-wal");
    ASSERT_FALSE(log.empty());
    expectRefused(Code::NotAProject, "this is no project file");
    EXPECT_EQ(contentOf(file + "-wal"), log);
    sqlite3_close(raw);
    expectRefused(Code::NotAProject, "this is no project file");
}

TEST_F(Files, NewerFormatIsToldWithBothNumbers)
{
    tamper(file, "PRAGMA user_version=3");
    expectRefused(Code::NewerFormat, "the file has format 3, this program knows formats up to 2");
}

TEST_F(Files, RecordThatDoesNotFitItsChecksumIsNamed)
{
    tamper(file, "UPDATE record SET bytes=x'0102' WHERE kwh=12 AND kwl=7");
    expectRefused(Code::Checksum, "record 12/7 does not fit its checksum");
}

TEST_F(Files, RecordUnderAnotherKeyDoesNotFitItsChecksum)
{
    tamper(file, "UPDATE record SET kwl=700 WHERE kwh=12 AND kwl=7");
    expectRefused(Code::Checksum, "record 12/700 does not fit its checksum");
}

TEST_F(Files, RecordThatVanishedDoesNotFitTheSummary)
{
    tamper(file, "DELETE FROM record WHERE kwh=12 AND kwl=7");
    expectRefused(Code::Checksum, "the summary of the records does not fit its records");
}

TEST_F(Files, FactThatDoesNotFitItsChecksumIsNamed)
{
    tamper(file, "UPDATE fact SET value='y.ini'");
    expectRefused(Code::Checksum, "the fact \"designcode\" does not fit its checksum");
    tamper(file, "DELETE FROM fact");
    expectRefused(Code::Checksum, "the summary of the records does not fit its records");
}

TEST_F(Files, TablesThatAreNotThoseOfAProjectAreDamage)
{
    tamper(file, "CREATE TABLE extra(x)");
    expectRefused(Code::Corrupt, "its tables are not those of a project");
    tamper(file, "DROP TABLE extra;DROP TABLE summary");
    expectRefused(Code::Corrupt, "its tables are not those of a project");
}

TEST_F(Files, ImpossibleRecordsAreDamage)
{
    const std::string good = contentOf(file);
    tamper(file, "UPDATE record SET bytes='text' WHERE kwl=3");
    expectRefused(Code::Corrupt, "record 12/3 has an impossible length");
    write(file, good);
    tamper(file, "UPDATE record SET bytes=x'' WHERE kwl=3");
    expectRefused(Code::Corrupt, "record 12/3 has an impossible length");
    write(file, good);
    tamper(file, "UPDATE record SET kwl=99999999999 WHERE kwl=3");
    expectRefused(Code::Corrupt, "is not made of what a record is made of");
}

TEST_F(Files, CutFileIsDamage)
{
    const std::string good = contentOf(file);
    for (std::size_t size = 4096; size < good.size(); size += 1024) {
        write(file, good.substr(0, size));
        expectRefused(Code::Corrupt, "the file is damaged");
    }
}

TEST_F(Files, PageOfRubbishIsDamage)
{
    std::string content = contentOf(file);
    for (std::size_t page = 4096; page < content.size(); page += 4096) {
        std::string bad = content;
        bad.replace(page, 4096, 4096, '\xA5');
        write(file, bad);
        expectRefused(Code::Corrupt, "the file is damaged");
    }
}

TEST_F(Files, DamageWhileOpenIsFoundByTheReadThatMeetsIt)
{
    const int db = mrl::cdb::open(file).db;
    tamper(file, "UPDATE record SET bytes=x'0102' WHERE kwh=12 AND kwl=7");
    EXPECT_EQ(getText(db, 12, 6), "record 6");
    EXPECT_TRUE(mrl::cdb::stickyError(db));
    EXPECT_EQ(getText(db, 12, 7), "<3>");
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Checksum);
    EXPECT_THAT(mrl::cdb::stickyError(db).text, HasSubstr("record 12/7"));
    // A walk with blocks meets it as well, and goes on.
    mrl::cdb::clearStickyError(db);
    int kwh = 12;
    int kwl = 0;
    int read = 0;
    for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == 12; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1)) {
        read += getText(db, kwh, kwl).front() == 'r' ? 1 : 0;
    }
    EXPECT_EQ(read, 19);
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Checksum);
    EXPECT_EQ(mrl::cdb::integrityCheck(db).code, Code::Checksum);
    bool same = true;
    EXPECT_EQ(mrl::cdb::rangesEqual(db, db, {12}, same).code, Code::Checksum);
    mrl::cdb::close(db);
}

TEST_F(Files, FactDamagedWhileOpenIsNotBelieved)
{
    const int db = mrl::cdb::open(file).db;
    tamper(file, "UPDATE fact SET value='y.ini'");
    EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "");
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Checksum);
    mrl::cdb::close(db);
}

TEST_F(Files, FirstErrorIsTheOneThatIsKept)
{
    const int db = mrl::cdb::open(file).db;
    putText(db, 12, 1, std::string((1 << 20) + 1, 'x'));
    tamper(file, "UPDATE record SET bytes=x'0102' WHERE kwh=12 AND kwl=7");
    getText(db, 12, 7);
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::BadArgument);
    mrl::cdb::clearStickyError(db);
    EXPECT_TRUE(mrl::cdb::stickyError(db));
    getText(db, 12, 7);
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Checksum);
    mrl::cdb::close(db);
}

TEST_F(Files, ReadOnlyOpeningRefusesEveryWrite)
{
    const int db = mrl::cdb::openReadOnly(file).db;
    EXPECT_TRUE(mrl::cdb::isReadOnly(db));
    EXPECT_EQ(putText(db, 12, 1, "x"), CD_NONE);
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::ReadOnly);
    EXPECT_EQ(mrl_cdb_del(db, 12, 1), CD_NONE);
    EXPECT_EQ(appendText(db, 12, 1, "x").code, Code::ReadOnly);
    EXPECT_EQ(mrl::cdb::setFact(db, "a", "b").code, Code::ReadOnly);
    mrl::cdb::Transaction transaction(db);
    EXPECT_TRUE(transaction.state());
    EXPECT_EQ(putText(db, 12, 1, "x"), CD_NONE);
    EXPECT_EQ(transaction.commit().code, Code::ReadOnly);
    EXPECT_EQ(getText(db, 12, 1), "record 1");
    mrl::cdb::close(db);
}

TEST_F(Files, ReadOnlyOpeningSeesWhatOthersCommit)
{
    const int writer = mrl::cdb::open(file).db;
    const int reader = mrl::cdb::openReadOnly(file).db;
    EXPECT_EQ(getText(reader, 12, 1), "record 1");
    putText(writer, 12, 1, "changed");
    EXPECT_EQ(getText(reader, 12, 1), "changed");
    mrl::cdb::close(writer);
    EXPECT_EQ(getText(reader, 12, 1), "changed");
    mrl::cdb::close(reader);
}

TEST_F(Files, FileLockedByAnotherConnectionIsTold)
{
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    const int db = mrl::cdb::open(file).db;
    mrl::cdb::setLockWait(db, 10);
    ASSERT_EQ(sqlite3_exec(raw, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(putText(db, 12, 1, "x"), CD_NONE);
    EXPECT_EQ(mrl::cdb::stickyError(db).text, file + ": the file is locked by another process");
    EXPECT_EQ(getText(db, 12, 1), "record 1");
    sqlite3_close(raw);
    EXPECT_EQ(putText(db, 12, 1, "x"), CD_OK);
    mrl::cdb::close(db);
}

/// The codes of opening for writing and for reading, as one number.
int codesOfOpening(const std::string& file)
{
    const auto writing = mrl::cdb::open(file);
    const auto reading = mrl::cdb::openReadOnly(file);
    const int codes = static_cast<int>(writing.result.code) * 10 + static_cast<int>(reading.result.code);
    const bool readable = !reading || getText(reading.db, 12, 7) == "record 7";
    mrl::cdb::close(writing.db);
    mrl::cdb::close(reading.db);
    return readable ? codes : 98;
}

TEST_F(Files, FileWithoutTheRightToWriteOpensForReadingOnly)
{
    chmod(folder.name().c_str(), 0777);
    chmod(file.c_str(), 0444);
    const std::string before = contentOf(file);
    EXPECT_EQ(asNobody([&] { return codesOfOpening(file); }), static_cast<int>(Code::ReadOnly) * 10);
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(Files, FolderWithoutTheRightToWriteOpensForReadingOnly)
{
    chmod(folder.name().c_str(), 0555);
    chmod(file.c_str(), 0666);
    const std::string before = contentOf(file);
    EXPECT_EQ(asNobody([&] { return codesOfOpening(file); }), static_cast<int>(Code::ReadOnly) * 10);
    EXPECT_EQ(asNobody([&] { return static_cast<int>(mrl::cdb::create(folder / "b.cdb").result.code); }),
              static_cast<int>(Code::ReadOnly));
    chmod(folder.name().c_str(), 0755);
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(Files, FileWithoutTheRightToReadIsTold)
{
    chmod(folder.name().c_str(), 0755);
    chmod(file.c_str(), 0200);
    EXPECT_EQ(asNobody([&] { return static_cast<int>(mrl::cdb::open(file).result.code); }),
              static_cast<int>(Code::NoFile));
}

TEST_F(Files, FileDeletedWhileOpenIsToldByTheNextWrite)
{
    const int db = mrl::cdb::open(file).db;
    std::filesystem::remove(file);
    EXPECT_EQ(putText(db, 12, 1, "x"), CD_NONE);
    EXPECT_THAT(mrl::cdb::stickyError(db).text,
                HasSubstr("was moved, deleted or replaced while it was open"));
    mrl::cdb::close(db);
}

} // namespace
