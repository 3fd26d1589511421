#include "cdb/fixture.h"
#include "cdb/raw_files.h"

using mrl::cdb::Code;
using testing::HasSubstr;

namespace {

/// A project in one folder and links to it in another one.
class Links : public ::testing::Test
{
  protected:
    Links()
    {
        const int db = mrl::cdb::create(target).db;
        for (int i = 1; i <= 200; ++i) {
            putText(db, 12, i, std::string(100, 'o'));
        }
        mrl::cdb::close(db);
        std::filesystem::create_symlink(target, link);
        chmod(targets.name().c_str(), 0777);
        chmod(target.c_str(), 0666);
    }
    Folder targets;
    Folder links;
    std::string target = targets / "a.cdb";
    std::string link = links / "link.cdb";
};

TEST_F(Links, WriteThroughALinkToALinkReachesTheFile)
{
    const std::string second = links / "second.cdb";
    std::filesystem::create_symlink(link, second);
    const int db = mrl::cdb::open(second).db;
    EXPECT_EQ(putText(db, 12, 1, "changed"), CD_OK);
    EXPECT_EQ(mrl::cdb::path(db), second);
    mrl::cdb::close(db);
    const int direct = mrl::cdb::open(target).db;
    EXPECT_EQ(getText(direct, 12, 1), "changed");
    mrl::cdb::close(direct);
}

TEST_F(Links, LinkThatLeadsNowhereIsTold)
{
    std::filesystem::remove(target);
    EXPECT_EQ(mrl::cdb::open(link).result.code, Code::NoFile);
    EXPECT_EQ(mrl::cdb::openReadOnly(link).result.code, Code::NoFile);
    EXPECT_EQ(mrl::cdb::create(link).result.code, Code::Exists);
}

TEST_F(Links, JournalBesideTheFileCountsAndNotOneBesideTheLink)
{
    write(link + "-journal", "nothing of ours");
    const auto opened = mrl::cdb::open(link);
    EXPECT_TRUE(opened) << opened.result.text;
    mrl::cdb::close(opened.db);
    EXPECT_EQ(contentOf(link + "-journal"), "nothing of ours");
    crashInTheMiddle(target, target + "2", "UPDATE record SET bytes=zeroblob(100)");
    std::filesystem::rename(target + "2", target);
    std::filesystem::rename(target + "2-journal", target + "-journal");
    const auto recovered = mrl::cdb::openReadOnly(link);
    ASSERT_TRUE(recovered) << recovered.result.text;
    EXPECT_EQ(getText(recovered.db, 12, 150), std::string(100, 'o'));
    mrl::cdb::close(recovered.db);
}

TEST_F(Links, LinkInAReadOnlyFolderCanBeWrittenThrough)
{
    chmod(links.name().c_str(), 0555);
    EXPECT_EQ(asNobody([&] {
                  const auto opened = mrl::cdb::open(link);
                  const bool put = opened && putText(opened.db, 12, 1, "changed") == CD_OK;
                  mrl::cdb::close(opened.db);
                  return put ? 0 : 1;
              }),
              0);
    chmod(links.name().c_str(), 0755);
}

TEST_F(Links, FolderOfTheFileDecidesWhetherItCanBeWritten)
{
    chmod(targets.name().c_str(), 0555);
    chmod(links.name().c_str(), 0777);
    EXPECT_EQ(asNobody([&] {
                  const auto writing = mrl::cdb::open(link);
                  const auto reading = mrl::cdb::openReadOnly(link);
                  const bool whole = reading && getText(reading.db, 12, 150) == std::string(100, 'o');
                  return writing.result.code == Code::ReadOnly && whole ? 0 : 1;
              }),
              0);
    chmod(targets.name().c_str(), 0755);
}

/// A reader that may not take back what a crash left unfinished must not show it either.
TEST_F(Links, ReaderWithoutRightsIsToldOfAnUnfinishedChange)
{
    crashInTheMiddle(target, targets / "b.cdb", "UPDATE record SET bytes=zeroblob(100)");
    chmod(targets.name().c_str(), 0555);
    chmod((targets / "b.cdb").c_str(), 0444);
    chmod((targets / "b.cdb-journal").c_str(), 0444);
    EXPECT_EQ(asNobody([&] {
                  const auto reading = mrl::cdb::openReadOnly(targets / "b.cdb");
                  const bool told = reading.result.text.find("an unfinished change") != std::string::npos;
                  return !reading && told ? 0 : 1;
              }),
              0);
    chmod(targets.name().c_str(), 0755);
}

TEST_F(Links, CompanionThatIsNoFileIsRefusedAtOnce)
{
    const std::string before = contentOf(target);
    for (const char* ending : {"-journal", "-wal", "-shm"}) {
        for (const bool pipe : {true, false}) {
            const std::string companion = target + ending;
            if (pipe) {
                ASSERT_EQ(mkfifo(companion.c_str(), 0666), 0);
            } else {
                std::filesystem::create_symlink(links / "elsewhere", companion);
            }
            for (const auto& opened : {mrl::cdb::open(link), mrl::cdb::openReadOnly(target)}) {
                EXPECT_EQ(opened.result.code, Code::NotAProject);
                EXPECT_THAT(opened.result.text, HasSubstr(companion + " stands beside it and is no file"));
            }
            std::filesystem::remove(companion);
        }
    }
    EXPECT_EQ(contentOf(target), before);
    EXPECT_FALSE(std::filesystem::exists(links / "elsewhere"));
}

std::string bigEndian(std::uint32_t value)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        text += static_cast<char>(value >> shift);
    }
    return text;
}

/// What SQLite writes at the end of a journal that belongs to a transaction over several databases.
std::string superJournalRecord(const std::string& name)
{
    std::uint32_t sum = 0;
    for (const char c : name) {
        sum += static_cast<std::uint32_t>(static_cast<signed char>(c));
    }
    return bigEndian(0x40000000 / 4096 + 1) + name + bigEndian(static_cast<std::uint32_t>(name.size())) +
           bigEndian(sum) + "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
}

TEST_F(Links, JournalThatNamesASuperJournalIsRefusedAndItsVictimSurvives)
{
    crashInTheMiddle(target, targets / "b.cdb", "UPDATE record SET bytes=zeroblob(100)");
    const std::string file = targets / "b.cdb";
    const std::string plain = contentOf(file + "-journal");
    for (const std::string ending : {"victim.txt", "victim-journal", "absent"}) {
        const std::string victim = links / ending;
        if (ending != "absent") {
            write(victim, "dear");
        }
        write(file + "-journal", plain + superJournalRecord(victim));
        for (const auto& opened : {mrl::cdb::open(file), mrl::cdb::openReadOnly(file)}) {
            EXPECT_FALSE(opened) << ending;
            mrl::cdb::close(opened.db);
        }
        EXPECT_EQ(std::filesystem::exists(victim), ending != "absent");
        crashInTheMiddle(target, file, "UPDATE record SET bytes=zeroblob(100)");
    }
}

} // namespace
