#include "cdb/fixture.h"
#include "cdb/raw_files.h"

using mrl::cdb::Code;
using mrl::cdb::Pausable;
using testing::HasSubstr;

namespace {

/// An open project whose file somebody changes by other means than a program of ours.
class ChangedUnderneath : public ::testing::Test
{
  protected:
    ChangedUnderneath()
    {
        for (int i = 1; i <= 200; ++i) {
            putText(db, 12, i, std::string(100, 'o'));
        }
        backup = contentOf(file);
    }
    ~ChangedUnderneath() override { mrl::cdb::close(db); }

    /// The next write is refused with the reason, memory is as before, and the file as the other one left it.
    void expectRefused(const std::string& reason)
    {
        const std::string theirs = contentOf(file);
        mrl::cdb::clearStickyError(db);
        mrl::cdb::Transaction transaction(db);
        EXPECT_FALSE(transaction.state());
        EXPECT_EQ(putText(db, 12, 50, "ours"), CD_NONE);
        EXPECT_EQ(transaction.commit().code, Code::InputOutput);
        EXPECT_THAT(mrl::cdb::stickyError(db).text, HasSubstr(reason));
        EXPECT_EQ(contentOf(file), theirs);
    }
    Folder folder;
    std::string file = folder / "a.cdb";
    int db = mrl::cdb::create(file).db;
    std::string backup;
};

TEST_F(ChangedUnderneath, OlderStateThatWasCopiedOverIsTold)
{
    putText(db, 12, 1, "newer");
    write(file, backup);
    expectRefused("an older state of the project was put over the file while it was open");
}

TEST_F(ChangedUnderneath, OtherStateWithTheSameCounterIsTold)
{
    const std::string other = folder / "other.cdb";
    write(other, backup);
    const int there = mrl::cdb::open(other).db;
    putText(there, 12, 2, std::string(100, 't'));
    mrl::cdb::close(there);
    putText(db, 12, 3, std::string(100, 'u'));
    write(file, contentOf(other));
    expectRefused("an older state of the project was put over the file while it was open");
    const auto sound = mrl::cdb::open(file);
    EXPECT_TRUE(sound) << sound.result.text;
    EXPECT_EQ(getText(sound.db, 12, 2), std::string(100, 't'));
    mrl::cdb::close(sound.db);
}

TEST_F(ChangedUnderneath, OtherProjectThatWasCopiedOverIsTold)
{
    const std::string other = folder / "other.cdb";
    const int there = mrl::cdb::create(other).db;
    for (int i = 1; i <= 300; ++i) {
        putText(there, 12, i, std::string(100, 'x'));
    }
    mrl::cdb::close(there);
    write(file, contentOf(other));
    expectRefused("another project was put in the place of this one while it was open");
}

TEST_F(ChangedUnderneath, FileThatWasPutInItsPlaceIsTold)
{
    write(folder / "other.cdb", backup);
    std::filesystem::rename(folder / "other.cdb", file);
    expectRefused("the file was moved, deleted or replaced while it was open");
}

TEST_F(ChangedUnderneath, FileThatIsReplacedInTheMiddleOfATransactionIsTold)
{
    write(folder / "other.cdb", backup);
    mrl::cdb::Transaction transaction(db);
    EXPECT_EQ(putText(db, 12, 50, "ours"), CD_OK);
    std::filesystem::rename(folder / "other.cdb", file);
    EXPECT_THAT(transaction.commit().text,
                HasSubstr("the file was moved, deleted or replaced while it was open"));
    EXPECT_TRUE(contentOf(file) == backup);
}

TEST_F(ChangedUnderneath, FileWithAnotherNameIsNotWritten)
{
    std::filesystem::create_hard_link(file, folder / "b.cdb");
    expectRefused("the file has more than one name (hard links)");
    std::filesystem::remove(folder / "b.cdb");
    EXPECT_EQ(putText(db, 12, 1, "ours"), CD_OK);
}

TEST_F(ChangedUnderneath, StateOfAnotherProgramIsNoReasonToRefuse)
{
    const int other = mrl::cdb::open(file).db;
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(putText(other, 12, 1, "theirs " + std::to_string(i)), CD_OK);
        EXPECT_EQ(putText(db, 12, 2, "ours " + std::to_string(i)), CD_OK);
    }
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
    mrl::cdb::close(other);
}

TEST_F(ChangedUnderneath, OlderStateCopiedOverInAPauseFailsTheTransaction)
{
    putText(db, 12, 1, "newer");
    mrl::cdb::Transaction transaction(db, Pausable::Yes);
    putText(db, 12, 2, "ours");
    {
        const mrl::cdb::WriteLockPause pause;
        write(file, backup);
    }
    EXPECT_THAT(transaction.state().text, HasSubstr("an older state"));
    EXPECT_FALSE(transaction.commit());
    EXPECT_EQ(contentOf(file), backup);
}

/// Equal edits in many records, and then old pages among the new ones, as a torn copy leaves them.
TEST(MixedPages, OldPagesAmongNewOnesAreFound)
{
    Folder folder;
    const std::string file = folder / "a.cdb";
    int db = mrl::cdb::create(file).db;
    for (int i = 1; i <= 400; ++i) {
        putText(db, 12, i, std::string(187, static_cast<char>('a' + i % 26)) + "0");
    }
    mrl::cdb::close(db);
    const std::string before = contentOf(file);
    db = mrl::cdb::open(file).db;
    {
        mrl::cdb::Transaction transaction(db);
        for (int i = 1; i <= 400; ++i) {
            putText(db, 12, i, std::string(187, static_cast<char>('a' + i % 26)) + "1");
        }
        ASSERT_TRUE(transaction.commit());
    }
    mrl::cdb::close(db);
    const std::string after = contentOf(file);
    ASSERT_EQ(before.size(), after.size());
    int tried = 0;
    for (std::size_t page = 4096; page < after.size(); page += 4096) {
        if (before.compare(page, 4096, after, page, 4096) == 0) {
            continue;
        }
        for (const bool old : {true, false}) {
            std::string mixed = old ? after : before;
            mixed.replace(page, 4096, old ? before : after, page, 4096);
            write(file, mixed);
            const auto opened = mrl::cdb::open(file);
            EXPECT_EQ(opened.result.code, Code::Checksum) << "page " << page / 4096;
            mrl::cdb::close(opened.db);
            ++tried;
        }
    }
    EXPECT_GT(tried, 30);
}

} // namespace
