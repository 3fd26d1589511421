#include "cdb/fixture.h"

using mrl::cdb::Code;
using mrl::cdb::Pausable;
using mrl::cdb::Transaction;
using mrl::cdb::WriteLockPause;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Another program with the same file open. Within this process it is a connection of its own all the same.
class Transactions : public FileProject
{
  protected:
    Transactions() { mrl::cdb::setLockWait(other, 0); }
    ~Transactions() override { mrl::cdb::close(other); }
    int other = mrl::cdb::open(file).db;
};

TEST_F(Transactions, WithoutCommitNothingStays)
{
    putText(db, 12, 1, "old");
    {
        Transaction transaction(db);
        putText(db, 12, 1, "new");
        putText(db, 12, 2, "new");
        EXPECT_EQ(getText(db, 12, 1), "new");
        EXPECT_EQ(getText(other, 12, 1), "old");
    }
    EXPECT_EQ(getText(db, 12, 1), "old");
    EXPECT_EQ(getText(db, 12, 2), "<3>");
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(Transactions, CommitMakesAllVisibleAtOnce)
{
    Transaction transaction(db);
    putText(db, 12, 1, "a");
    putText(db, 12, 2, "b");
    EXPECT_THAT(walkUp(other, 12, 0), IsEmpty());
    EXPECT_TRUE(transaction.commit());
    EXPECT_THAT(walkUp(other, 12, 0), ElementsAre(1, 2));
    EXPECT_EQ(transaction.commit().code, Code::NoTransaction);
    EXPECT_TRUE(mrl::cdb::integrityCheck(other));
}

TEST_F(Transactions, InnerOneIsTakenBackAlone)
{
    Transaction outer(db);
    putText(db, 12, 1, "outer");
    {
        Transaction inner(db);
        putText(db, 12, 1, "inner");
        putText(db, 12, 2, "inner");
        mrl_cdb_del(db, 12, 1);
    }
    {
        Transaction kept(db);
        putText(db, 12, 3, "kept");
        EXPECT_TRUE(kept.commit());
    }
    EXPECT_EQ(getText(db, 12, 1), "outer");
    EXPECT_TRUE(outer.commit());
    EXPECT_THAT(walkUp(other, 12, 0), ElementsAre(1, 3));
    EXPECT_TRUE(mrl::cdb::integrityCheck(other));
}

TEST_F(Transactions, InnerCommitIsLostWithTheOuterOne)
{
    {
        Transaction outer(db);
        Transaction inner(db);
        putText(db, 12, 1, "x");
        EXPECT_TRUE(inner.commit());
    }
    EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
}

TEST_F(Transactions, EndOfTheOuterOneEndsWhatIsOpenInside)
{
    auto outer = std::make_unique<Transaction>(db);
    Transaction inner(db);
    putText(db, 12, 1, "x");
    outer.reset();
    EXPECT_EQ(inner.commit().code, Code::NoTransaction);
    EXPECT_EQ(putText(db, 12, 2, "y"), CD_OK);
    EXPECT_THAT(walkUp(other, 12, 0), ElementsAre(2));
}

TEST_F(Transactions, FailedWriteForbidsTheCommitThoughLaterWritesSucceed)
{
    putText(db, 12, 1, "old");
    Transaction transaction(db);
    EXPECT_EQ(putText(db, 12, 1, "new"), CD_OK);
    EXPECT_EQ(putText(db, 12, 2, std::string((1 << 20) + 1, 'x')), CD_NONE);
    EXPECT_EQ(putText(db, 12, 3, "new"), CD_OK);
    EXPECT_FALSE(transaction.state());
    EXPECT_EQ(transaction.commit().code, Code::BadArgument);
    EXPECT_EQ(getText(db, 12, 1), "old");
    EXPECT_EQ(getText(db, 12, 3), "<3>");
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::BadArgument);
    EXPECT_EQ(putText(db, 12, 1, "again"), CD_OK);
}

TEST_F(Transactions, WriteThatFailedInsideAnInnerOneForbidsTheOuterCommit)
{
    Transaction outer(db);
    {
        Transaction inner(db);
        putText(db, 12, 2, std::string((1 << 20) + 1, 'x'));
        EXPECT_FALSE(inner.commit());
    }
    putText(db, 12, 3, "x");
    EXPECT_FALSE(outer.commit());
    EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
}

TEST_F(Transactions, AbsentKeyIsNoFailedWrite)
{
    Transaction transaction(db);
    EXPECT_EQ(mrl_cdb_del(db, 12, 1), CD_NONE);
    EXPECT_EQ(putText(db, 12, 1, ""), CD_NONE);
    EXPECT_EQ(putText(db, 12, 1, "x", -1), CD_NONE);
    putText(db, 12, 2, "x");
    EXPECT_TRUE(transaction.commit());
    EXPECT_TRUE(mrl::cdb::stickyError(db));
}

TEST_F(Transactions, LockedFileIsToldAndNothingIsWrittenOutsideOfTheTransaction)
{
    Transaction theirs(db);
    putText(db, 12, 1, "theirs");
    {
        Transaction ours(other);
        EXPECT_EQ(ours.state().code, Code::Locked);
        EXPECT_THAT(ours.state().text, testing::HasSubstr("a.cdb: the file is locked by another process"));
        EXPECT_TRUE(theirs.commit());
        // The lock would be free now, but half a transaction is none.
        EXPECT_EQ(putText(other, 12, 2, "ours"), CD_NONE);
        EXPECT_EQ(ours.commit().code, Code::Locked);
    }
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(1));
    EXPECT_EQ(putText(other, 12, 2, "ours"), CD_OK);
}

TEST_F(Transactions, SinglePutOnALockedFileFailsAndIsRemembered)
{
    Transaction theirs(db);
    EXPECT_EQ(putText(other, 12, 2, "ours"), CD_NONE);
    EXPECT_EQ(mrl::cdb::stickyError(other).code, Code::Locked);
}

TEST_F(Transactions, ReadBesideAnOpenTransactionIsNotInItsWay)
{
    for (int i = 1; i <= 100; ++i) {
        putText(db, 12, i, "x");
    }
    int kwh = 12;
    int kwl = 0;
    for (int i = 0; i < 10; ++i) {
        mrl_cdb_kenq_ex(other, &kwh, &kwl, 1);
        getText(other, kwh, kwl);
    }
    // Somebody else commits while our walk stands open: a snapshot held would refuse our write as stale.
    putText(db, 12, 50, "changed");
    EXPECT_EQ(putText(other, 12, 11, "ours"), CD_OK);
    mrl_cdb_kenq_ex(other, &kwh, &kwl, 1);
    EXPECT_EQ(kwl, 11);
    EXPECT_EQ(getText(other, kwh, kwl), "ours");
}

TEST_F(Transactions, CommitOfAnotherProgramIsSeenInTheMiddleOfAWalk)
{
    for (int i = 1; i <= 100; ++i) {
        putText(db, 12, i * 2, "x");
    }
    int kwh = 12;
    int kwl = 0;
    for (int i = 0; i < 20; ++i) {
        mrl_cdb_kenq_ex(other, &kwh, &kwl, 1);
        getText(other, kwh, kwl);
    }
    ASSERT_EQ(kwl, 40);
    putText(db, 12, 40, "changed here");
    EXPECT_EQ(getText(other, 12, 40), "changed here");
    putText(db, 12, 41, "new");
    mrl_cdb_kenq_ex(other, &kwh, &kwl, 1);
    EXPECT_EQ(kwl, 41);
    mrl_cdb_del(db, 12, 42);
    mrl_cdb_kenq_ex(other, &kwh, &kwl, 1);
    EXPECT_EQ(kwl, 44);
}

TEST_F(Transactions, CommitOfAnotherProgramIsSeenBySingleCalls)
{
    putText(db, 12, 1, "x");
    int kwh = 12;
    int kwl = 0;
    mrl_cdb_kenq_ex(other, &kwh, &kwl, 1); // a search for the least number takes this one step
    EXPECT_EQ(kwl, 1);
    putText(db, 12, 1, "y");
    EXPECT_EQ(getText(other, 12, 1), "y");
    mrl_cdb_del(db, 12, 1);
    EXPECT_EQ(getText(other, 12, 1), "<3>");
    kwh = 12;
    kwl = 0;
    mrl_cdb_kenq_ex(other, &kwh, &kwl, 1);
    EXPECT_EQ(kwh, INT_MAX);
    putText(db, 12, 7, "z");
    kwh = 12;
    kwl = 0;
    mrl_cdb_kenq_ex(other, &kwh, &kwl, 1);
    EXPECT_EQ(kwl, 7);
}

TEST_F(Transactions, ClosingRollsBackAndTheObjectRefusesToCommit)
{
    Transaction transaction(db);
    putText(db, 12, 1, "x");
    mrl::cdb::close(db);
    EXPECT_EQ(transaction.commit().code, Code::NoTransaction);
    EXPECT_THAT(walkUp(other, 12, 0), IsEmpty());
}

TEST_F(Transactions, DeletingManyKeysInOrderKeepsTheSummaryRight)
{
    for (int i = 1; i <= 400; ++i) {
        for (int record = 0; record <= i % 3; ++record) {
            ASSERT_TRUE(appendText(db, 12 + i % 2, i, "r" + std::to_string(record)));
        }
    }
    {
        Transaction transaction(db);
        for (int group = 12; group <= 13; ++group) {
            for (int i = 1; i <= 400; ++i) {
                if (i % 7 == 0) { // writes in between, some of them ahead
                    putText(db, group, i + 3, "between");
                }
                if (i % 11 == 0) {
                    ASSERT_TRUE(appendText(db, group, i + 1, "added"));
                }
                if (i % 5 != 0) {
                    mrl_cdb_del(db, group, i);
                }
                if (i == 200) {
                    Transaction inner(db);
                    mrl_cdb_del(db, group, 201);
                    mrl_cdb_del(db, group, 202);
                    mrl_cdb_del(db, group, 203);
                }
            }
        }
        ASSERT_TRUE(transaction.commit());
    }
    const auto sound = mrl::cdb::integrityCheck(db);
    EXPECT_TRUE(sound) << sound.text;
    for (int group = 12; group <= 13; ++group) {
        for (const int kwl : walkUp(db, group, 0)) {
            EXPECT_TRUE(kwl % 5 == 0 || kwl > 400 || kwl == 0) << kwl;
        }
    }
}

TEST_F(Transactions, DeletingKeysWithSeveralRecordsInOrderTakesAllOfThem)
{
    // Three records a key: no block of checksums read ahead ends with a whole key.
    for (int i = 1; i <= 100; ++i) {
        for (const char* text : {"a", "b", "c"}) {
            ASSERT_TRUE(appendText(db, 12, i, text));
        }
    }
    mrl::cdb::Transaction transaction(db);
    for (int i = 1; i < 100; ++i) {
        ASSERT_EQ(mrl_cdb_del(db, 12, i), CD_OK);
    }
    const auto done = transaction.commit();
    ASSERT_TRUE(done) << done.text;
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(100));
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(Transactions, FactsAreTakenBackToo)
{
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "a.ini"));
    {
        Transaction transaction(db);
        ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "b.ini"));
        ASSERT_TRUE(mrl::cdb::setFact(db, "other", "x"));
        EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "b.ini");
    }
    EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "a.ini");
    EXPECT_EQ(mrl::cdb::fact(db, "other"), "");
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", ""));
    EXPECT_EQ(mrl::cdb::fact(other, "designcode"), "");
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(Transactions, AFactIsTheNewOneAfterAnotherConnectionSetIt)
{
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "a.ini"));
    EXPECT_EQ(mrl::cdb::fact(other, "designcode"), "a.ini");
    EXPECT_EQ(mrl::cdb::fact(other, "system"), "");
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "b.ini"));
    ASSERT_TRUE(mrl::cdb::setFact(db, "system", "plane"));
    EXPECT_EQ(mrl::cdb::fact(other, "designcode"), "b.ini");
    EXPECT_EQ(mrl::cdb::fact(other, "system"), "plane");
}

TEST_F(Transactions, AFactSetBeforeAPauseIsNotSeenInItAndComesBack)
{
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "a.ini"));
    Transaction transaction(db, Pausable::Yes);
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "b.ini"));
    EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "b.ini");
    {
        const WriteLockPause pause;
        EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "a.ini");
    }
    EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "b.ini");
    ASSERT_TRUE(transaction.commit());
}

TEST_F(Transactions, OfManyWritesIsWhole)
{
    {
        Transaction transaction(db);
        for (int i = 1; i <= 10000; ++i) {
            ASSERT_EQ(putText(db, 12, i, "some bytes of a load case"), CD_OK);
        }
        ASSERT_TRUE(transaction.commit());
    }
    {
        Transaction transaction(db);
        for (int i = 1; i <= 10000; ++i) {
            ASSERT_EQ(mrl_cdb_del(db, 12, i), CD_OK);
        }
    }
    EXPECT_EQ(walkUp(other, 12, 0).size(), 10000U);
    EXPECT_TRUE(mrl::cdb::integrityCheck(other));
}

TEST_F(Transactions, PauseLetsGoOfTheLockAndBringsTheWritesBack)
{
    for (const char* text : {"a", "b", "c"}) {
        ASSERT_TRUE(appendText(db, 14, 5, text));
    }
    putText(db, 12, 9, "gone");
    Transaction transaction(db, Pausable::Yes);
    putText(db, 12, 1, "one");
    putText(db, 12, 1, "two");
    mrl_cdb_del(db, 12, 9);
    getText(db, 14, 5);
    getText(db, 14, 5, 1);
    putText(db, 14, 5, "B", -1);
    ASSERT_TRUE(appendText(db, 14, 5, "d"));
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "x.ini"));
    EXPECT_EQ(putText(other, 12, 50, "theirs"), CD_NONE);
    {
        const WriteLockPause pause;
        EXPECT_EQ(putText(other, 12, 50, "theirs"), CD_OK);
        EXPECT_EQ(getText(other, 12, 9), "gone");
    }
    EXPECT_EQ(getText(db, 12, 1), "two");
    putText(db, 12, 2, "after");
    ASSERT_TRUE(transaction.commit());
    EXPECT_THAT(walkUp(other, 12, 0), ElementsAre(1, 2, 50));
    EXPECT_THAT(allRecords(other, 14, 5), ElementsAre("a", "B", "c", "d"));
    EXPECT_EQ(mrl::cdb::fact(other, "designcode"), "x.ini");
    EXPECT_TRUE(mrl::cdb::integrityCheck(other));
}

TEST_F(Transactions, PauseKeepsTheLevelsApart)
{
    Transaction outer(db, Pausable::Yes);
    putText(db, 12, 1, "outer");
    {
        Transaction lost(db);
        putText(db, 12, 2, "lost");
    }
    {
        Transaction inner(db);
        putText(db, 12, 3, "inner");
        {
            const WriteLockPause pause;
            const WriteLockPause second;
        }
        putText(db, 12, 4, "inner");
        EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(1, 3, 4));
    }
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(1));
    ASSERT_TRUE(outer.commit());
    EXPECT_THAT(walkUp(other, 12, 0), ElementsAre(1));
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(Transactions, LockThatAnotherProgramTookInThePauseFailsTheTransaction)
{
    mrl::cdb::setLockWait(db, 0);
    putText(db, 12, 1, "old");
    Transaction ours(db, Pausable::Yes);
    putText(db, 12, 1, "ours");
    {
        auto pause = std::make_unique<WriteLockPause>();
        Transaction theirs(other);
        EXPECT_TRUE(theirs.state());
        pause.reset();
    }
    EXPECT_EQ(ours.state().code, Code::Locked);
    EXPECT_EQ(mrl::cdb::stickyError(db).code, Code::Locked);
    EXPECT_EQ(putText(db, 12, 2, "ours"), CD_NONE);
    EXPECT_EQ(ours.commit().code, Code::Locked);
    EXPECT_EQ(getText(db, 12, 1), "old");
    EXPECT_EQ(putText(db, 12, 2, "later"), CD_OK);
}

TEST_F(Transactions, WriteInThePauseIsRefusedAndFailsTheTransaction)
{
    Transaction ours(db, Pausable::Yes);
    putText(db, 12, 1, "ours");
    {
        const WriteLockPause pause;
        EXPECT_EQ(putText(db, 12, 2, "ours"), CD_NONE);
    }
    EXPECT_FALSE(ours.commit());
    EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
}

TEST_F(Transactions, EndInThePauseTakesTheTransactionBack)
{
    {
        auto pause = std::make_unique<WriteLockPause>();
        pause.reset();
        Transaction ours(db, Pausable::Yes);
        putText(db, 12, 1, "ours");
        pause = std::make_unique<WriteLockPause>();
        EXPECT_FALSE(ours.commit());
        pause.reset();
    }
    EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
    EXPECT_EQ(putText(db, 12, 2, "later"), CD_OK);
}

TEST(WriteLock, PauseWithNothingOpenIsHarmless)
{
    const WriteLockPause pause;
    const WriteLockPause second;
}

} // namespace
