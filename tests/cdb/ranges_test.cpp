#include <random>

#include <sqlite3.h>

#include "cdb/fixture.h"
#include "hostlib/data/cdb/move_keys.h"

using mrl::cdb::Code;
using mrl::cdb::Fingerprint;
using mrl::cdb::KeyRange;
using testing::ElementsAre;

namespace {

class Ranges : public FileProject
{
  protected:
    ~Ranges() override { mrl::cdb::close(copy); }
    bool equal(const KeyRange& range) const
    {
        bool same = false;
        EXPECT_TRUE(mrl::cdb::rangesEqual(db, copy, range, same));
        return same;
    }
    Fingerprint print(int index, const KeyRange& range) const
    {
        Fingerprint found;
        EXPECT_TRUE(mrl::cdb::fingerprint(index, range, found));
        return found;
    }
    void fill() const
    {
        for (int i = 1; i <= 9; ++i) {
            putText(db, 12, i, "r" + std::to_string(i));
        }
        for (const char* text : {"a", "b", "c"}) {
            static_cast<void>(appendText(db, 14, 0x20202051, text));
        }
        putText(db, 14, 7, "number");
        static_cast<void>(mrl::cdb::setFact(db, "designcode", "x.ini"));
    }
    int copy = -1;
};

TEST_F(Ranges, GroupsAreThoseThatHaveAKey)
{
    fill();
    std::set<int> found{99};
    EXPECT_TRUE(mrl::cdb::groups(db, found));
    EXPECT_THAT(found, ElementsAre(12, 14, 99)) << "beside what was there";
    EXPECT_EQ(mrl::cdb::groups(-1, found).code, Code::NotOpen);
}

TEST_F(Ranges, KeysMoveWithAllTheirRecordsAndMayBeExchanged)
{
    fill();
    ASSERT_TRUE(appendText(db, 12, 1, "behind"));
    ASSERT_TRUE(mrl::cdb::moveKeys(db, 12, {{1, 2}, {2, 1}, {3, 30}, {77, 78}}));
    EXPECT_THAT(allRecords(db, 12, 2), ElementsAre("r1", "behind"));
    EXPECT_THAT(allRecords(db, 12, 1), ElementsAre("r2"));
    EXPECT_THAT(allRecords(db, 12, 30), ElementsAre("r3"));
    EXPECT_THAT(allRecords(db, 12, 3), ElementsAre());
    EXPECT_THAT(allRecords(db, 12, 78), ElementsAre()) << "there was nothing to move";
    EXPECT_THAT(allRecords(db, 12, 4), ElementsAre("r4"));
}

TEST_F(Ranges, MovedKeyComesBehindTheRecordsThatItsTargetKeeps)
{
    fill();
    ASSERT_TRUE(mrl::cdb::moveKeys(db, 12, {{1, 9}}));
    EXPECT_THAT(allRecords(db, 12, 9), ElementsAre("r9", "r1"));
    EXPECT_EQ(mrl::cdb::moveKeys(-1, 12, {{1, 9}}).code, Code::NotOpen);
}

TEST_F(Ranges, FactsOfAnotherProjectReplaceThoseThatAreThere)
{
    using mrl::cdb::fact;
    copy = mrl::cdb::openMemory().db;
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "x.ini"));
    ASSERT_TRUE(mrl::cdb::setFact(db, "author", "A"));
    ASSERT_TRUE(mrl::cdb::setFact(copy, "author", "B"));
    ASSERT_TRUE(mrl::cdb::setFact(copy, "client", "C"));
    ASSERT_TRUE(mrl::cdb::replaceFacts(db, copy));
    EXPECT_EQ(fact(copy, "designcode"), "x.ini");
    EXPECT_EQ(fact(copy, "author"), "A");
    EXPECT_EQ(fact(copy, "client"), "");
    EXPECT_TRUE(mrl::cdb::integrityCheck(copy));
    EXPECT_EQ(mrl::cdb::replaceFacts(db, -1).code, Code::NotOpen);
    EXPECT_EQ(mrl::cdb::replaceFacts(-1, copy).code, Code::NotOpen);
    EXPECT_EQ(fact(copy, "author"), "A") << "nothing was taken away";
}

TEST_F(Ranges, FactsOfAProjectThatCannotBeReadReplaceNothing)
{
    copy = mrl::cdb::openMemory().db;
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "x.ini"));
    ASSERT_TRUE(mrl::cdb::setFact(copy, "author", "B"));
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "UPDATE fact SET value='y.ini'", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(raw);
    EXPECT_EQ(mrl::cdb::replaceFacts(db, copy).code, Code::Checksum);
    EXPECT_EQ(mrl::cdb::fact(copy, "author"), "B");
}

TEST_F(Ranges, CopyHasEverythingAndIsPrivate)
{
    fill();
    for (const auto where : {mrl::cdb::Storage::Memory, mrl::cdb::Storage::TemporaryFile}) {
        copy = mrl::cdb::copyOf(db, where).db;
        EXPECT_EQ(mrl::cdb::path(copy), file);
        EXPECT_EQ(mrl::cdb::fact(copy, "designcode"), "x.ini");
        EXPECT_THAT(allRecords(copy, 14, 0x20202051), ElementsAre("a", "b", "c"));
        EXPECT_TRUE(equal({12}));
        EXPECT_TRUE(equal({14}));
        putText(copy, 12, 1, "changed");
        EXPECT_EQ(getText(db, 12, 1), "r1");
        EXPECT_FALSE(equal({12}));
        EXPECT_TRUE(equal({14}));
        mrl::cdb::Transaction transaction(copy);
        mrl_cdb_del(copy, 12, 2);
        EXPECT_TRUE(transaction.commit());
        EXPECT_TRUE(mrl::cdb::integrityCheck(copy));
        EXPECT_FALSE(mrl::cdb::isReadOnly(copy));
        mrl::cdb::close(copy);
    }
}

TEST_F(Ranges, CopyIsRefusedInTheMiddleOfATransaction)
{
    mrl::cdb::Transaction transaction(db);
    EXPECT_EQ(mrl::cdb::copyOf(db).result.code, Code::Locked);
}

TEST_F(Ranges, CopyOfAProjectInMemoryWorksToo)
{
    const int memory = mrl::cdb::openMemory().db;
    putText(memory, 12, 1, "x");
    copy = mrl::cdb::copyOf(memory).db;
    EXPECT_EQ(getText(copy, 12, 1), "x");
    mrl::cdb::close(memory);
    EXPECT_EQ(getText(copy, 12, 1), "x");
}

TEST_F(Ranges, ReplacingBringsChangesAdditionsAndDeletions)
{
    fill();
    copy = mrl::cdb::copyOf(db).db;
    putText(copy, 12, 2, "changed");
    mrl_cdb_del(copy, 12, 4);
    putText(copy, 12, 77, "added");
    ASSERT_TRUE(appendText(copy, 14, 0x20202051, "d"));
    putText(copy, 14, 7, "number changed");
    int changed = 0;
    ASSERT_TRUE(mrl::cdb::replaceRange(copy, db, {12}, &changed));
    EXPECT_EQ(changed, 3);
    ASSERT_TRUE(mrl::cdb::replaceRange(copy, db, {14, 0x20202020, 0x7a7a7a7a}, &changed));
    EXPECT_EQ(changed, 1);
    EXPECT_TRUE(equal({12}));
    EXPECT_THAT(allRecords(db, 14, 0x20202051), ElementsAre("a", "b", "c", "d"));
    // Outside of the range everything is as it was.
    EXPECT_EQ(getText(db, 14, 7), "number");
    ASSERT_TRUE(mrl::cdb::replaceRange(copy, db, {12}, &changed));
    EXPECT_EQ(changed, 0);
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(Ranges, KeyWithFewerRecordsLosesTheRest)
{
    fill();
    copy = mrl::cdb::copyOf(db).db;
    putText(copy, 14, 0x20202051, "only");
    ASSERT_TRUE(mrl::cdb::replaceRange(copy, db, {14}));
    EXPECT_THAT(allRecords(db, 14, 0x20202051), ElementsAre("only"));
}

TEST_F(Ranges, ReplacingIsPartOfTheCallersTransaction)
{
    fill();
    copy = mrl::cdb::copyOf(db).db;
    putText(copy, 12, 2, "changed");
    {
        mrl::cdb::Transaction transaction(db);
        ASSERT_TRUE(mrl::cdb::replaceRange(copy, db, {12}));
        EXPECT_EQ(getText(db, 12, 2), "changed");
    }
    EXPECT_EQ(getText(db, 12, 2), "r2");
}

TEST_F(Ranges, FullRangesMeetAndAreEqualAfterReplacing)
{
    // Random databases over few keys, so that every kind of neighbourhood occurs.
    std::mt19937 random(7);
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    copy = mrl::cdb::openMemory().db;
    for (int round = 0; round < 200; ++round) {
        for (const int index : {db, copy}) {
            for (int write = 0; write < 4; ++write) {
                const int kwl = upTo(8) - 3;
                const int what = upTo(6);
                if (what < 2) {
                    mrl_cdb_del(index, 12, kwl);
                } else if (what < 4) {
                    putText(index, 12, kwl, std::string(1, static_cast<char>('a' + upTo(3))));
                } else {
                    static_cast<void>(
                        appendText(index, 12, kwl, std::string(1, static_cast<char>('a' + upTo(3)))));
                }
            }
        }
        const bool same = equal({12});
        EXPECT_EQ(same, print(db, {12}) == print(copy, {12}));
        int changed = -1;
        ASSERT_TRUE(mrl::cdb::replaceRange(copy, db, {12}, &changed));
        EXPECT_EQ(same, changed == 0);
        ASSERT_TRUE(equal({12}));
        ASSERT_EQ(print(db, {12}), print(copy, {12}));
    }
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(Ranges, FingerprintFollowsTheRangeAlone)
{
    fill();
    const auto before = print(db, {12});
    EXPECT_EQ(before.count, 9);
    putText(db, 14, 8, "elsewhere");
    EXPECT_EQ(print(db, {12}), before);
    putText(db, 12, 3, "changed");
    EXPECT_NE(print(db, {12}), before);
    putText(db, 12, 3, "r3");
    EXPECT_EQ(print(db, {12}), before);
    EXPECT_EQ(print(db, {12, 100, 200}), Fingerprint{});
}

TEST_F(Ranges, ClosedIndexIsAFailure)
{
    bool same = true;
    EXPECT_EQ(mrl::cdb::rangesEqual(db, -1, {12}, same).code, Code::NotOpen);
    EXPECT_FALSE(same);
    EXPECT_EQ(mrl::cdb::replaceRange(-1, db, {12}).code, Code::NotOpen);
    EXPECT_EQ(mrl::cdb::replaceRange(db, -1, {12}).code, Code::NotOpen);
    Fingerprint found;
    EXPECT_EQ(mrl::cdb::fingerprint(-1, {12}, found).code, Code::NotOpen);
    std::vector<mrl::cdb::Key> list;
    EXPECT_EQ(mrl::cdb::keys(-1, list).code, Code::NotOpen);
}

TEST_F(Ranges, ReadOnlyProjectIsNotReplaced)
{
    fill();
    copy = mrl::cdb::copyOf(db).db;
    putText(copy, 12, 2, "changed");
    const int reader = mrl::cdb::openReadOnly(file).db;
    EXPECT_EQ(mrl::cdb::replaceRange(copy, reader, {12}).code, Code::ReadOnly);
    mrl::cdb::close(reader);
}

} // namespace
