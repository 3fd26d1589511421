#include "cdb/fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Records = MemoryProject;

TEST_F(Records, WholeRecordGivesItsLengthAndAZeroRest)
{
    putText(db, 12, 1, "abc");
    std::string buffer(8, '#');
    int length = 8;
    EXPECT_EQ(mrl_cdb_get(db, 12, 1, buffer.data(), &length, 0), CD_OK);
    EXPECT_EQ(length, 3);
    EXPECT_EQ(buffer, std::string("abc\0\0\0\0\0", 8));
}

TEST_F(Records, LongRecordIsCutToTheBuffer)
{
    putText(db, 12, 1, "abcdef");
    std::string buffer(6, '#');
    int length = 4;
    EXPECT_EQ(mrl_cdb_get(db, 12, 1, buffer.data(), &length, 0), CD_CUT);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(buffer, "abcd##");
}

TEST_F(Records, BufferOfExactlyTheLengthIsNotCut)
{
    putText(db, 12, 1, "abcd");
    std::string buffer(4, '#');
    int length = 4;
    EXPECT_EQ(mrl_cdb_get(db, 12, 1, buffer.data(), &length, 0), CD_OK);
}

TEST_F(Records, AbsenceLeavesBufferAndLengthAsTheyWere)
{
    putText(db, 12, 1, "abc");
    std::string buffer(8, '#');
    int length = 8;
    EXPECT_EQ(mrl_cdb_get(db, 12, 2, buffer.data(), &length, 0), CD_NONE);
    getText(db, 12, 1);
    EXPECT_EQ(mrl_cdb_get(db, 12, 1, buffer.data(), &length, 1), CD_END);
    EXPECT_EQ(buffer, "########");
    EXPECT_EQ(length, 8);
    EXPECT_TRUE(mrl::cdb::stickyError(db));
}

TEST_F(Records, BothWaysOfReadingOnWalkTheKey)
{
    for (const char* text : {"a", "b", "c", "d"}) {
        ASSERT_TRUE(appendText(db, 14, 5, text));
    }
    EXPECT_THAT(allRecords(db, 14, 5), ElementsAre("a", "b", "c", "d"));
    std::vector<std::string> counted;
    std::string text = getText(db, 14, 5, 0);
    for (int position = 1; text.front() != '<'; text = getText(db, 14, 5, position++)) {
        counted.push_back(text);
    }
    EXPECT_THAT(counted, ElementsAre("a", "b", "c", "d"));
}

TEST_F(Records, BothWaysOfReadingOnWalkTheKeyThatAWalkStandsOn)
{
    for (int kwl = 1; kwl <= 600; ++kwl) {
        for (const char* text : {"a", "b", "c"}) {
            ASSERT_TRUE(appendText(db, 14, kwl, text));
        }
    }
    int kwh = 14;
    int kwl = 0;
    int met = 0;
    for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == 14; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1), ++met) {
        ASSERT_THAT(allRecords(db, kwh, kwl), ElementsAre("a", "b", "c"));
    }
    EXPECT_EQ(met, 600);
}

TEST_F(Records, ReadersOfTwoKeysKeepTheirPlaces)
{
    for (const char* text : {"1", "2", "3"}) {
        ASSERT_TRUE(appendText(db, 14, 5, std::string("a") + text));
        ASSERT_TRUE(appendText(db, 14, 6, std::string("b") + text));
    }
    EXPECT_EQ(getText(db, 14, 5), "a1");
    EXPECT_EQ(getText(db, 14, 6), "b1");
    EXPECT_EQ(getText(db, 14, 5, 1), "a2");
    EXPECT_EQ(getText(db, 14, 6, 1), "b2");
    EXPECT_EQ(getText(db, 14, 5, 1), "a3");
    EXPECT_EQ(getText(db, 14, 5, 1), "<2>");
    EXPECT_EQ(getText(db, 14, 6, 1), "b3");
    EXPECT_EQ(getText(db, 14, 5), "a1");
    EXPECT_EQ(getText(db, 14, 5, 1), "a2");
}

TEST_F(Records, PutAtTheStartReplacesTheWholeKey)
{
    for (const char* text : {"a", "b", "c"}) {
        ASSERT_TRUE(appendText(db, 14, 5, text));
    }
    EXPECT_EQ(putText(db, 14, 5, "new"), CD_OK);
    EXPECT_THAT(allRecords(db, 14, 5), ElementsAre("new"));
    EXPECT_EQ(putText(db, 14, 6, "other"), CD_OK);
    EXPECT_THAT(allRecords(db, 14, 6), ElementsAre("other"));
}

TEST_F(Records, PutOverTheRecordReadLastWorksAfterTheKeyWasFreed)
{
    for (const char* text : {"a", "b", "c"}) {
        ASSERT_TRUE(appendText(db, 14, 5, text));
    }
    getText(db, 14, 5);
    getText(db, 14, 5, 1);
    mrl_cdb_free_ex(db, 14, 5);
    EXPECT_EQ(putText(db, 14, 5, "longer than before", -1), CD_OK);
    EXPECT_THAT(allRecords(db, 14, 5), ElementsAre("a", "longer than before", "c"));
}

TEST_F(Records, PutOverTheRecordReadLastOfAMissingKeyIsRefused)
{
    EXPECT_EQ(putText(db, 14, 5, "x", -1), CD_NONE);
    EXPECT_THAT(allRecords(db, 14, 5), IsEmpty());
}

TEST_F(Records, PutOfNothingRemovesTheKey)
{
    const int none = 0;
    putText(db, 12, 5, "x");
    EXPECT_EQ(mrl_cdb_put(db, 12, 5, &none, &none, 0), CD_OK);
    EXPECT_EQ(getText(db, 12, 5), "<3>");
    EXPECT_EQ(mrl_cdb_put(db, 12, 5, &none, &none, 0), CD_NONE);
    EXPECT_TRUE(mrl::cdb::stickyError(db));
}

TEST_F(Records, DeletingTakesAllRecordsOfAKeyAndNoOthers)
{
    for (const char* text : {"a", "b"}) {
        ASSERT_TRUE(appendText(db, 14, 5, text));
    }
    putText(db, 14, 4, "x");
    putText(db, 14, 6, "y");
    EXPECT_EQ(mrl_cdb_del(db, 14, 5), CD_OK);
    EXPECT_EQ(mrl_cdb_del(db, 14, 5), CD_NONE);
    EXPECT_THAT(walkUp(db, 14, 0), ElementsAre(4, 6));
    ASSERT_TRUE(appendText(db, 14, 5, "again"));
    EXPECT_THAT(allRecords(db, 14, 5), ElementsAre("again"));
}

TEST_F(Records, LengthsFromOneByteToOneMebibyteComeBack)
{
    for (const int size : {1, 2, 187, 188, 189, 2060, 4090, 65536, 1 << 20}) {
        std::string text(static_cast<std::size_t>(size), 'a');
        for (std::size_t i = 0; i < text.size(); ++i) {
            text[i] = static_cast<char>('a' + i % 23);
        }
        ASSERT_EQ(putText(db, 12, size, text), CD_OK);
        ASSERT_EQ(getText(db, 12, size, 0, size), text);
    }
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
    // A walk whose records are longer than a block reads them, too.
    int kwh = 12;
    int kwl = 0;
    for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == 12; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1)) {
        ASSERT_EQ(getText(db, kwh, kwl, 0, 1 << 20).size(), static_cast<std::size_t>(kwl));
    }
}

TEST_F(Records, RecordOverOneMebibyteIsRefusedAndRemembered)
{
    const std::string text((1 << 20) + 1, 'a');
    EXPECT_EQ(putText(db, 12, 1, text), CD_NONE);
    EXPECT_EQ(getText(db, 12, 1), "<3>");
    EXPECT_EQ(mrl::cdb::stickyError(db).code, mrl::cdb::Code::BadArgument);
    mrl::cdb::clearStickyError(db);
    EXPECT_TRUE(mrl::cdb::stickyError(db));
}

TEST_F(Records, CallsThatMakeNoSenseAreRefused)
{
    const int negative = -1;
    const int some = 4;
    EXPECT_EQ(mrl_cdb_put(db, 12, 1, "abcd", &negative, 0), CD_NONE);
    EXPECT_EQ(mrl_cdb_put(db, 12, 1, nullptr, &some, 0), CD_NONE);
    EXPECT_EQ(mrl_cdb_put(db, 12, 1, "abcd", nullptr, 0), CD_NONE);
    EXPECT_EQ(mrl_cdb_put(db, 12, 1, "abcd", &some, 3), CD_NONE);
    int length = -5;
    EXPECT_EQ(mrl_cdb_get(db, 12, 1, nullptr, &length, 0), CD_NONE);
    length = 5;
    EXPECT_EQ(mrl_cdb_get(db, 12, 1, nullptr, &length, 0), CD_NONE);
    EXPECT_EQ(mrl_cdb_get(db, 12, 1, nullptr, nullptr, 0), CD_NONE);
    EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
}

TEST(ClosedIndex, NoCallCrashesAndNothingIsFound)
{
    const int closed = mrl::cdb::openMemory().db;
    putText(closed, 12, 1, "x");
    mrl::cdb::close(closed);
    for (const int db : {closed, 0, -1, INT_MIN, INT_MAX, closed + 1}) {
        EXPECT_FALSE(mrl::cdb::isOpen(db));
        EXPECT_EQ(getText(db, 12, 1), "<3>");
        EXPECT_EQ(putText(db, 12, 1, "x"), CD_NONE);
        EXPECT_EQ(mrl_cdb_del(db, 12, 1), CD_NONE);
        mrl_cdb_free_ex(db, 12, 1);
        EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
        int kwh = 13;
        int kwl = 0;
        mrl_cdb_kenq_ex(db, &kwh, &kwl, -1);
        EXPECT_EQ(kwh, INT_MIN);
        std::list<int> numbers;
        mrl::dbo::getKwls(db, 12, 0, 999, &numbers, nullptr);
        EXPECT_THAT(numbers, IsEmpty());
        EXPECT_EQ(mrl::cdb::fact(db, "designcode"), "");
        EXPECT_EQ(mrl::cdb::setFact(db, "designcode", "x").code, mrl::cdb::Code::NotOpen);
        EXPECT_EQ(mrl::cdb::path(db), "");
        EXPECT_FALSE(mrl::cdb::isReadOnly(db));
        EXPECT_EQ(mrl::cdb::integrityCheck(db).code, mrl::cdb::Code::NotOpen);
        EXPECT_EQ(mrl::cdb::stickyError(db).code, mrl::cdb::Code::NotOpen);
        EXPECT_FALSE(mrl::cdb::copyOf(db));
        mrl::cdb::clearStickyError(db);
        mrl::cdb::setLockWait(db, 1);
        mrl::cdb::Transaction transaction(db);
        EXPECT_FALSE(transaction.state());
        EXPECT_FALSE(transaction.commit());
        mrl::cdb::close(db);
    }
}

TEST(CurrentDatabase, FollowsUseAndEndsWithItsClosing)
{
    const int a = mrl::cdb::openMemory().db;
    const int b = mrl::cdb::openMemory().db;
    mrl_cdb_use(a, 0);
    EXPECT_EQ(mrl_cdb_status(-1), a);
    mrl_cdb_use(b, 0);
    EXPECT_EQ(mrl_cdb_status(-1), b);
    mrl::cdb::close(a);
    EXPECT_EQ(mrl_cdb_status(-1), b);
    for (const int wrong : {a, 0, -1, b + 1}) {
        mrl_cdb_use(wrong, 0);
        EXPECT_EQ(mrl_cdb_status(-1), b);
    }
    mrl::cdb::close(b);
    EXPECT_EQ(mrl_cdb_status(-1), -1);
}

TEST(CurrentDatabase, IndexIsNeverUsedAgain)
{
    const int first = mrl::cdb::openMemory().db;
    mrl::cdb::close(first);
    const int second = mrl::cdb::openMemory().db;
    EXPECT_GT(second, first);
    mrl::cdb::close(second);
}

} // namespace
