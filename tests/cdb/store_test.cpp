#include "cdb/fixture.h"
#include "hostlib/data/cdb/sqlite/store.h"

using mrl::cdb::Columns;
using mrl::cdb::Fact;
using mrl::cdb::Key;
using mrl::cdb::KeyRange;
using mrl::cdb::Nesting;
using mrl::cdb::Record;
using mrl::cdb::Rows;
using mrl::cdb::Status;
using mrl::cdb::Store;
using mrl::cdb::Tally;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A record whose checksum is a number that a test can tell apart; the store does not look at it.
Record record(int kwh, int kwl, int position, const std::string& bytes, unsigned checksum)
{
    return {{kwh, kwl}, position, checksum, bytes.data(), static_cast<int>(bytes.size())};
}

/// What is left of a cursor, a word each: group/element, and its bytes where the cursor delivers them.
std::vector<std::string> drain(Rows rows, bool bytes = false)
{
    std::vector<std::string> found;
    while (rows.next() == Status::Ok) {
        std::string word = std::to_string(rows.kwh()) + "/" + std::to_string(rows.kwl());
        if (bytes) {
            word += "=";
            word.append(static_cast<const char*>(rows.bytes()), static_cast<std::size_t>(rows.size()));
        }
        found.push_back(word);
    }
    return found;
}

class StoreTest : public ::testing::Test
{
  protected:
    StoreTest()
    {
        EXPECT_EQ(store.insert(record(12, 1, 0, "one", 1)), Status::Ok);
        EXPECT_EQ(store.insert(record(12, 5, 0, "five", 2)), Status::Ok);
        EXPECT_EQ(store.insert(record(12, 5, 1, "more", 4)), Status::Ok);
        EXPECT_EQ(store.insert(record(14, 2, 0, "two", 8)), Status::Ok);
    }
    std::unique_ptr<Store> owned = Store::makePrivate(mrl::cdb::Storage::Memory, nullptr).store;
    Store& store = *owned;
};

TEST_F(StoreTest, RecordIsTheNextOneBeyondAPosition)
{
    {
        Rows rows = store.record({12, 5}, 0);
        ASSERT_EQ(rows.next(), Status::Ok);
        EXPECT_EQ(rows.record().position, 1);
        EXPECT_EQ(rows.record().checksum, 4U);
        EXPECT_EQ(rows.next(), Status::None);
    }
    EXPECT_EQ(store.record({12, 5}, 1).next(), Status::None);
    EXPECT_EQ(store.record({12, 4}, -1).next(), Status::None);
}

TEST_F(StoreTest, AheadStaysInTheGroupOrGoesBeyondIt)
{
    EXPECT_THAT(drain(store.ahead({12, 1}, {true, false, Columns::Keys, 10})), ElementsAre("12/5", "12/5"));
    EXPECT_THAT(drain(store.ahead({12, 1}, {true, true, Columns::Keys, 10})), ElementsAre("14/2"));
    EXPECT_THAT(drain(store.ahead({12, 5}, {false, false, Columns::Keys, 10})), ElementsAre("12/1"));
    EXPECT_THAT(drain(store.ahead({14, 0}, {false, true, Columns::Keys, 2})), ElementsAre("12/5", "12/5"));
    EXPECT_THAT(drain(store.ahead({12, 0}, {true, false, Columns::Records, 2}), true),
                ElementsAre("12/1=one", "12/5=five"));
    EXPECT_THAT(drain(store.ahead({0, 0}, {true, true, Columns::Records, 9}), true),
                ElementsAre("12/1=one", "12/5=five", "12/5=more", "14/2=two"));
}

TEST_F(StoreTest, RangeIsInOrderAndCanBeginAnew)
{
    const KeyRange range{12, 1, 5};
    EXPECT_THAT(drain(store.range(&range, Columns::Records), true),
                ElementsAre("12/1=one", "12/5=five", "12/5=more"));
    EXPECT_THAT(drain(store.range(nullptr, Columns::Keys)), ElementsAre("12/1", "12/5", "12/5", "14/2"));
    Rows rows = store.range(&range, Columns::Checksums);
    ASSERT_EQ(rows.next(), Status::Ok);
    rows.restart(2);
    ASSERT_EQ(rows.next(), Status::Ok);
    EXPECT_EQ(rows.kwl(), 5);
    EXPECT_EQ(rows.checksum(), 2U);
}

TEST_F(StoreTest, GroupsComeOnceEach) { EXPECT_THAT(drain(store.groups()), ElementsAre("12/0", "14/0")); }

TEST_F(StoreTest, LastPositionTellsAnAbsentKey)
{
    int position = 7;
    EXPECT_EQ(store.lastPosition({12, 5}, position), Status::Ok);
    EXPECT_EQ(position, 1);
    EXPECT_EQ(store.lastPosition({12, 6}, position), Status::None);
}

TEST_F(StoreTest, InsertLeavesATakenPlaceAlone)
{
    EXPECT_EQ(store.insert(record(12, 1, 0, "other", 16)), Status::None);
    EXPECT_THAT(drain(store.record({12, 1}, -1), true), ElementsAre("12/1=one"));
}

TEST_F(StoreTest, UpdateReplacesARecordThatIsThere)
{
    EXPECT_EQ(store.update(record(12, 5, 1, "new", 16)), Status::Ok);
    EXPECT_EQ(store.update(record(12, 5, 2, "new", 16)), Status::None);
    const KeyRange range{12, 5, 5};
    EXPECT_THAT(drain(store.range(&range, Columns::Records), true), ElementsAre("12/5=five", "12/5=new"));
}

TEST_F(StoreTest, EraseTakesAllRecordsOfAKey)
{
    EXPECT_EQ(store.erase({12, 5}, {2, 6}), Status::Ok);
    EXPECT_THAT(drain(store.range(nullptr, Columns::Keys)), ElementsAre("12/1", "14/2"));
}

TEST_F(StoreTest, EraseOfOtherRowsThanToldIsDamage)
{
    EXPECT_EQ(store.erase({12, 5}, {1, 2}), Status::Failed);
    EXPECT_EQ(store.failure().code, mrl::cdb::Code::Corrupt);
}

TEST_F(StoreTest, FactIsSetReplacedAndRemoved)
{
    Tally gone;
    const std::string name = "designcode";
    std::vector<Fact> found;
    EXPECT_EQ(store.facts(&name, found), Status::None);
    EXPECT_EQ(store.setFact({name, "a.ini", 3}, gone), Status::Ok);
    EXPECT_EQ(gone.count, 0);
    EXPECT_EQ(store.setFact({name, "b.ini", 5}, gone), Status::Ok);
    EXPECT_EQ(gone.sum, 3U);
    EXPECT_EQ(store.facts(&name, found), Status::Ok);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].value, "b.ini");
    EXPECT_EQ(found[0].checksum, 5U);
    EXPECT_EQ(store.setFact({name, "", 0}, gone), Status::Ok);
    EXPECT_EQ(store.facts(nullptr, found), Status::None);
}

TEST_F(StoreTest, SummaryHasToFitTheRows)
{
    auto empty = Store::makePrivate(mrl::cdb::Storage::Memory, nullptr).store;
    EXPECT_TRUE(empty->check(mrl::cdb::Depth::Full));
    mrl::cdb::Summary change;
    change.records = {2, 1};
    ASSERT_EQ(empty->begin(Nesting::Outermost), Status::Ok);
    ASSERT_EQ(empty->insert(record(12, 1, 0, "one", 1)), Status::Ok);
    ASSERT_EQ(empty->commit(Nesting::Outermost, change), Status::Ok);
    EXPECT_EQ(empty->check(mrl::cdb::Depth::Full).code, mrl::cdb::Code::Checksum);
}

TEST_F(StoreTest, VersionRisesWithEachTransactionThatWrites)
{
    auto empty = Store::makePrivate(mrl::cdb::Storage::Memory, nullptr).store;
    mrl::cdb::State before;
    ASSERT_EQ(empty->state(before), Status::Ok);
    for (const bool writes : {false, true}) {
        ASSERT_EQ(empty->begin(Nesting::Outermost), Status::Ok);
        if (writes) {
            ASSERT_EQ(empty->insert(record(12, 1, 0, "one", 1)), Status::Ok);
        }
        ASSERT_EQ(empty->commit(Nesting::Outermost, {{1, 1}, {}}), Status::Ok);
        mrl::cdb::State after;
        ASSERT_EQ(empty->state(after), Status::Ok);
        EXPECT_EQ(after.version, before.version + (writes ? 1 : 0));
        EXPECT_EQ(after.rows.records.sum, writes ? 1U : 0U);
    }
}

TEST_F(StoreTest, InnerTransactionIsTakenBackAlone)
{
    EXPECT_FALSE(store.inTransaction());
    ASSERT_EQ(store.begin(Nesting::Outermost), Status::Ok);
    EXPECT_TRUE(store.inTransaction());
    store.erase({12, 1}, {1, 1});
    ASSERT_EQ(store.begin(Nesting::Inner), Status::Ok);
    store.erase({12, 5}, {2, 6});
    store.rollback(Nesting::Inner);
    ASSERT_EQ(store.begin(Nesting::Inner), Status::Ok);
    store.erase({14, 2}, {1, 8});
    ASSERT_EQ(store.commit(Nesting::Inner, {}), Status::Ok);
    ASSERT_EQ(store.commit(Nesting::Outermost, {}), Status::Ok);
    EXPECT_THAT(drain(store.range(nullptr, Columns::Keys)), ElementsAre("12/5", "12/5"));
    ASSERT_EQ(store.begin(Nesting::Outermost), Status::Ok);
    store.erase({12, 5}, {2, 6});
    store.rollback(Nesting::Outermost);
    EXPECT_FALSE(store.inTransaction());
    EXPECT_THAT(drain(store.range(nullptr, Columns::Keys)), ElementsAre("12/5", "12/5"));
}

TEST_F(StoreTest, PrivateCopyHasTheSameRows)
{
    const auto copy = Store::makePrivate(mrl::cdb::Storage::TemporaryFile, &store);
    ASSERT_TRUE(copy.result) << copy.result.text;
    EXPECT_EQ(drain(copy.store->range(nullptr, Columns::Records), true),
              drain(store.range(nullptr, Columns::Records), true));
    ASSERT_EQ(store.begin(Nesting::Outermost), Status::Ok);
    EXPECT_EQ(Store::makePrivate(mrl::cdb::Storage::Memory, &store).result.code, mrl::cdb::Code::Locked);
}

TEST(StoreFiles, MarkTellsTheCommitOfAnother)
{
    Folder folder;
    const std::string file = folder / "a.cdb";
    mrl::cdb::close(mrl::cdb::create(file).db);
    const auto ours = Store::open(file, false);
    const auto theirs = Store::open(file, false);
    ASSERT_TRUE(theirs.result) << theirs.result.text;
    auto mark = ours.store->mark();
    mark.take();
    EXPECT_TRUE(mark.unchanged());
    ASSERT_EQ(theirs.store->begin(Nesting::Outermost), Status::Ok);
    ASSERT_EQ(theirs.store->insert(record(12, 1, 0, "one", 1)), Status::Ok);
    EXPECT_TRUE(mark.unchanged());
    ASSERT_EQ(theirs.store->commit(Nesting::Outermost, {{1, 1}, {}}), Status::Ok);
    EXPECT_FALSE(mark.unchanged());
}

TEST(StoreFiles, LockOfAnotherIsWaitedForNoLongerThanTold)
{
    Folder folder;
    const std::string file = folder / "a.cdb";
    mrl::cdb::close(mrl::cdb::create(file).db);
    const auto ours = Store::open(file, false);
    const auto theirs = Store::open(file, false);
    ASSERT_EQ(theirs.store->begin(Nesting::Outermost), Status::Ok);
    ours.store->setLockWait(0);
    EXPECT_EQ(ours.store->begin(Nesting::Outermost), Status::Failed);
    EXPECT_EQ(ours.store->failure().code, mrl::cdb::Code::Locked);
}

} // namespace
