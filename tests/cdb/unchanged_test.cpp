#include <map>
#include <random>

#include "cdb/fixture.h"
#include "cdb/raw_files.h"

using mrl::cdb::Pausable;
using mrl::cdb::Transaction;
using mrl::cdb::WriteLockPause;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int COUNT = 5000;

/// A saving that deletes all keys of a group and puts them again.
class Rewriting : public ::testing::Test
{
  protected:
    Rewriting()
    {
        Transaction transaction(db);
        for (int i = 1; i <= COUNT; ++i) {
            putText(db, 12, i, textOf(i));
        }
        EXPECT_TRUE(transaction.commit());
        before = contentOf(file);
    }
    ~Rewriting() override { mrl::cdb::close(db); }

    static std::string textOf(int i) { return std::to_string(i) + std::string(150, 'x'); }
    void rewrite(int changed = 0)
    {
        for (const int kwl : walkUp(db, 12, 0)) {
            ASSERT_EQ(mrl_cdb_del(db, 12, kwl), CD_OK);
        }
        for (int i = 1; i <= COUNT; ++i) {
            ASSERT_EQ(putText(db, 12, i, i == changed ? "changed" : textOf(i)), CD_OK);
        }
    }
    std::size_t changedPages() const
    {
        const std::string now = contentOf(file);
        std::size_t pages = 0;
        for (std::size_t at = 0; at < now.size(); at += 4096) {
            pages += before.compare(at, 4096, now, at, 4096) != 0 ? 1 : 0;
        }
        return pages;
    }
    Folder folder;
    std::string file = folder / "a.cdb";
    int db = mrl::cdb::create(file).db;
    std::string before;
};

TEST_F(Rewriting, OfTheSameRecordsTouchesNoPage)
{
    Transaction transaction(db);
    rewrite();
    ASSERT_TRUE(transaction.commit());
    EXPECT_EQ(changedPages(), 0U);
    putText(db, 12, 7, textOf(7)); // alone, too
    static_cast<void>(mrl::cdb::setFact(db, "none", ""));
    EXPECT_EQ(changedPages(), 0U);
}

TEST_F(Rewriting, OfOneChangedRecordTouchesItsPageAndTheSummary)
{
    Transaction transaction(db);
    rewrite(2500);
    ASSERT_TRUE(transaction.commit());
    EXPECT_LE(changedPages(), 3U); // the record's, the summary's, and the one with the file's header
    EXPECT_EQ(getText(db, 12, 2500), "changed");
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(Rewriting, AfterAPauseIsComparedWithWhatIsThereThen)
{
    const int other = mrl::cdb::open(file).db;
    Transaction transaction(db, Pausable::Yes);
    rewrite();
    {
        const WriteLockPause pause;
        ASSERT_EQ(putText(other, 12, 7, "theirs"), CD_OK);
        ASSERT_EQ(putText(other, 12, COUNT + 1, "theirs"), CD_OK);
    }
    ASSERT_TRUE(transaction.commit());
    EXPECT_EQ(getText(other, 12, 7), textOf(7));
    EXPECT_EQ(getText(other, 12, COUNT + 1), "theirs");
    EXPECT_TRUE(mrl::cdb::integrityCheck(other));
    mrl::cdb::close(other);
}

/// In group 0 the first key follows the key 0/0, from which a run of deletions is told.
TEST(FirstGroup, KeysThatAreDeletedInARowAreGone)
{
    const int db = mrl::cdb::openMemory().db;
    for (int i = 1; i <= 40; ++i) {
        putText(db, 0, i, "record " + std::to_string(i));
    }
    const int copy = mrl::cdb::copyOf(db).db;
    {
        Transaction transaction(copy);
        for (int i = 1; i <= 40; ++i) {
            ASSERT_EQ(mrl_cdb_del(copy, 0, i), CD_OK);
        }
        ASSERT_TRUE(transaction.commit());
    }
    EXPECT_THAT(walkUp(copy, 0, 0), IsEmpty());
    EXPECT_TRUE(mrl::cdb::integrityCheck(copy));
    mrl::cdb::close(copy);
    mrl::cdb::close(db);
}

TEST_F(Rewriting, InAnyOrderAndTwiceLeavesWhatWasPutLast)
{
    Transaction transaction(db);
    for (const int kwl : walkUp(db, 12, 0)) {
        ASSERT_EQ(mrl_cdb_del(db, 12, kwl), CD_OK);
    }
    // Up as it was, some of them changed and changed back, then down.
    for (int i = 1; i <= COUNT; ++i) {
        ASSERT_EQ(putText(db, 12, i, textOf(i)), CD_OK);
        if (i % 7 == 0) {
            ASSERT_EQ(putText(db, 12, i, "changed"), CD_OK);
            ASSERT_EQ(putText(db, 12, i + 1, "early"), CD_OK);
        }
    }
    for (int i = COUNT; i > COUNT / 2; --i) {
        ASSERT_EQ(mrl_cdb_del(db, 12, i), CD_OK);
        ASSERT_EQ(putText(db, 12, i, textOf(i)), CD_OK);
    }
    ASSERT_TRUE(transaction.commit());
    for (int i = 1; i <= COUNT; ++i) {
        ASSERT_EQ(getText(db, 12, i), i % 7 == 0 && i <= COUNT / 2 ? "changed" : textOf(i)) << i;
    }
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

/// What a key holds, in a second bookkeeping that knows nothing of blocks.
using Content = std::map<int, std::vector<std::string>>;

/// Keys with one to three records, so that the blocks of a walk end within a key too.
Content randomContent(std::mt19937& random, int db)
{
    Content content;
    for (int kwl = 1; kwl <= 3000; ++kwl) {
        for (int left = 1 + static_cast<int>(random() % 3); left > 0; --left) {
            content[kwl].push_back(std::to_string(random()) + std::string(random() % 200, 'x'));
            EXPECT_TRUE(appendText(db, 12, kwl, content[kwl].back()));
        }
    }
    return content;
}

/// Deletes some keys in a walk that reads each one, and puts some of those again: as they were, or else.
void changeInAWalk(std::mt19937& random, int db, Content& content)
{
    std::vector<std::string> gone(3001);
    int kwh = 12;
    for (int kwl = 0; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1) == 0 && kwh == 12;) {
        const std::string first = getText(db, 12, kwl);
        if (random() % 3 != 0) {
            ASSERT_EQ(mrl_cdb_del(db, 12, kwl), CD_OK);
            gone[static_cast<std::size_t>(kwl)] = first;
            content.erase(kwl);
        }
    }
    for (int kwl = 1; kwl <= 3000; ++kwl) {
        const std::string& first = gone[static_cast<std::size_t>(kwl)];
        if (!first.empty() && random() % 4 != 0) {
            const std::string text = random() % 5 == 0 ? first + "!" : first;
            ASSERT_EQ(putText(db, 12, kwl, text), CD_OK);
            content[kwl] = {text};
        }
    }
}

class WalksThatDelete : public testing::TestWithParam<unsigned>
{
};

TEST_P(WalksThatDelete, LeaveWhatWasPutAndTheSumsThatFit)
{
    std::mt19937 random(GetParam());
    const Folder folder;
    const int db = mrl::cdb::create(folder / "a.cdb").db;
    Transaction transaction(db);
    Content content = randomContent(random, db);
    for (int round = 0; round < 3; ++round) {
        Transaction inner(db);
        changeInAWalk(random, db, content);
        ASSERT_TRUE(inner.commit());
    }
    ASSERT_TRUE(transaction.commit());
    Content stored;
    for (const int kwl : walkUp(db, 12, 0)) {
        stored[kwl] = allRecords(db, 12, kwl);
    }
    EXPECT_EQ(stored, content);
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
    mrl::cdb::close(db);
}

INSTANTIATE_TEST_SUITE_P(Seeds, WalksThatDelete, testing::Range(1U, 5U));

class DeletedKeys : public FileProject
{
  protected:
    DeletedKeys()
    {
        for (int i = 1; i <= 6; ++i) {
            putText(db, 12, i, "record " + std::to_string(i));
        }
        static_cast<void>(appendText(db, 12, 3, "second"));
    }
};

TEST_F(DeletedKeys, AreGoneForEveryReader)
{
    Transaction transaction(db);
    for (const int kwl : {2, 3, 5}) {
        ASSERT_EQ(mrl_cdb_del(db, 12, kwl), CD_OK);
        EXPECT_EQ(mrl_cdb_del(db, 12, kwl), CD_NONE);
        EXPECT_EQ(getText(db, 12, kwl), "<3>");
        EXPECT_EQ(getText(db, 12, kwl, 1), "<3>");
        EXPECT_EQ(putText(db, 12, kwl, "x", -1), CD_NONE);
    }
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(1, 4, 6));
    for (const int kwl : {1, 4}) {
        ASSERT_EQ(mrl_cdb_del(db, 12, kwl), CD_OK);
    }
    std::list<int> listed;
    EXPECT_EQ(mrl::dbo::getKwls(db, 12, 0, 999, &listed, nullptr), 1);
    ASSERT_EQ(mrl_cdb_del(db, 12, 6), CD_OK);
    std::vector<mrl::cdb::Key> keys;
    ASSERT_TRUE(mrl::cdb::keys(db, keys));
    EXPECT_THAT(keys, IsEmpty());
    ASSERT_TRUE(transaction.commit());
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(DeletedKeys, AreAppendedToAsNewOnes)
{
    Transaction transaction(db);
    mrl_cdb_del(db, 12, 3);
    ASSERT_TRUE(appendText(db, 12, 3, "first again"));
    ASSERT_TRUE(transaction.commit());
    EXPECT_THAT(allRecords(db, 12, 3), ElementsAre("first again"));
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(DeletedKeys, WithSeveralRecordsAreReplacedByOne)
{
    Transaction transaction(db);
    mrl_cdb_del(db, 12, 3);
    ASSERT_EQ(putText(db, 12, 3, "record 3"), CD_OK);
    ASSERT_TRUE(transaction.commit());
    EXPECT_THAT(allRecords(db, 12, 3), ElementsAre("record 3"));
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(DeletedKeys, ComeBackWithTheInnerTransactionAlone)
{
    {
        Transaction outer(db);
        mrl_cdb_del(db, 12, 1);
        {
            Transaction inner(db);
            mrl_cdb_del(db, 12, 2);
        }
        {
            Transaction kept(db);
            mrl_cdb_del(db, 12, 5);
            ASSERT_TRUE(kept.commit());
        }
        ASSERT_TRUE(outer.commit());
    }
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(2, 3, 4, 6));
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

} // namespace
