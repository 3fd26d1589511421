#include "cdb/fixture.h"

#include "hostlib/data/cdb/image_log.h"
#include "hostlib/data/cdb/record_image.h"

using mrl::cdb::Code;
using mrl::cdb::ImageLog;
using mrl::cdb::imageNow;
using mrl::cdb::imageOfDifferences;
using mrl::cdb::RecordImage;
using mrl::cdb::swapImage;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A project, and a copy of it from before the changes of a test.
class RecordImages : public ::testing::Test
{
  protected:
    RecordImages()
    {
        putText(db, 12, 1, "one");
        putText(db, 12, 2, "two");
        putText(db, 12, 3, "three");
        for (const char* text : {"a", "b", "c"}) {
            EXPECT_TRUE(appendText(db, 14, -5, text));
        }
        EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "old.ini"));
        before = mrl::cdb::copyOf(db).db;
    }
    ~RecordImages() override
    {
        mrl::cdb::close(db);
        mrl::cdb::close(before);
        mrl::cdb::close(after);
    }
    /// Changes something of every kind.
    void change()
    {
        putText(db, 12, 2, "TWO");
        mrl_cdb_del(db, 12, 3);
        putText(db, 12, 9, "nine");
        EXPECT_TRUE(appendText(db, 14, -5, "d"));
        putText(db, 20, 7, "another group");
        EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "new.ini"));
        EXPECT_TRUE(mrl::cdb::setFact(db, "client", "C"));
        after = mrl::cdb::copyOf(db).db;
    }
    RecordImage image() const
    {
        RecordImage found;
        EXPECT_TRUE(imageOfDifferences(before, db, found));
        return found;
    }
    bool holdsTheSameAs(int other) const
    {
        RecordImage found;
        EXPECT_TRUE(imageOfDifferences(db, other, found));
        return found.isEmpty();
    }

    int db = mrl::cdb::openMemory().db;
    int before = -1;
    int after = -1;
};

TEST_F(RecordImages, HoldsWhatStoodUnderEachKeyThatDiffers)
{
    change();
    const RecordImage found = image();
    std::vector<std::string> told;
    found.forEach([&](const RecordImage::Entry& entry) {
        std::string line = std::to_string(entry.key.kwh) + "/" + std::to_string(entry.key.kwl);
        for (const std::string& record : entry.records) {
            line += " " + record;
        }
        told.push_back(line);
        return true;
    });
    EXPECT_THAT(told, ElementsAre("12/2 two", "12/3 three", "12/9", "14/-5 a b c", "20/7"));
    EXPECT_EQ(found.keyCount(), 5u);
    EXPECT_EQ(found.facts(), (RecordImage::Facts{{"client", ""}, {"designcode", "old.ini"}}));
}

TEST_F(RecordImages, SwappingPutsBackAndSwappingAgainDoesAgain)
{
    change();
    RecordImage step = image();
    ASSERT_TRUE(swapImage(db, step));
    EXPECT_TRUE(holdsTheSameAs(before));
    EXPECT_THAT(allRecords(db, 14, -5), ElementsAre("a", "b", "c"));
    ASSERT_TRUE(swapImage(db, step));
    EXPECT_TRUE(holdsTheSameAs(after));
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
}

TEST_F(RecordImages, ASwapThatFailsLeavesProjectAndImage)
{
    change();
    RecordImage step = image();
    Folder folder;
    const std::string file = folder / "p.cdb";
    mrl::cdb::close(mrl::cdb::create(file).db);
    const int readOnly = mrl::cdb::openReadOnly(file).db;
    EXPECT_EQ(swapImage(readOnly, step).code, Code::ReadOnly);
    EXPECT_EQ(step.keyCount(), 5u);
    mrl::cdb::close(readOnly);
    EXPECT_EQ(swapImage(readOnly, step).code, Code::NotOpen);
    ASSERT_TRUE(swapImage(db, step));
    EXPECT_TRUE(holdsTheSameAs(before));
}

TEST_F(RecordImages, AnImageIsMadeAgainFromItsBytesAndFromNoOthers)
{
    change();
    const RecordImage whole = image();
    const auto again = RecordImage::fromBytes(whole.bytes());
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(again->keyCount(), whole.keyCount());
    for (std::size_t size = 1; size < whole.size(); ++size) {
        const auto cut = RecordImage::fromBytes(whole.bytes().substr(0, size));
        EXPECT_TRUE(!cut || cut->keyCount() < whole.keyCount()) << size;
    }
    EXPECT_FALSE(RecordImage::fromBytes(std::string(13, '\xff')));
}

TEST_F(RecordImages, EqualProjectsMakeAnEmptyImage)
{
    EXPECT_TRUE(image().isEmpty());
    RecordImage none;
    EXPECT_EQ(imageOfDifferences(before, -1, none).code, Code::NotOpen);
    EXPECT_EQ(imageNow(-1, none, none).code, Code::NotOpen);
}

TEST_F(RecordImages, ComparingBitByBitFindsTheSame)
{
    change();
    const RecordImage whole = image();
    for (int keys = 1; keys <= 8; ++keys) {
        mrl::cdb::DifferenceScan scan(before, db);
        int bits = 0;
        for (; !scan.isDone(); ++bits) {
            ASSERT_TRUE(scan.advance(keys));
        }
        const RecordImage found = scan.takeImage();
        EXPECT_EQ(found.bytes(), whole.bytes()) << keys;
        EXPECT_EQ(found.keyCount(), whole.keyCount());
        EXPECT_EQ(found.facts(), whole.facts());
        EXPECT_EQ(bits > 1, keys <= 6) << "six keys stand on one side or the other";
    }
}

TEST_F(RecordImages, AComparisonWithAClosedProjectFails)
{
    mrl::cdb::DifferenceScan scan(before, -1);
    EXPECT_EQ(scan.advance(10).code, Code::NotOpen);
    EXPECT_FALSE(scan.isDone());
}

/// Steps that each change one record of 1000 bytes, in a log that keeps 2500 bytes in memory.
class LogOfImages : public ::testing::Test
{
  protected:
    static constexpr int STEPS = 8;
    static constexpr std::size_t MEMORY = 2500;

    LogOfImages()
    {
        for (int step = 1; step <= STEPS; ++step) {
            const int before = mrl::cdb::copyOf(db).db;
            putText(db, 12, 1, text(step));
            RecordImage image;
            EXPECT_TRUE(imageOfDifferences(before, db, image));
            EXPECT_TRUE(log.add(std::move(image)));
            mrl::cdb::close(before);
        }
    }
    ~LogOfImages() override { mrl::cdb::close(db); }
    static std::string text(int step) { return std::string(1000, static_cast<char>('0' + step)); }

    Folder folder;
    ImageLog log{folder / "state", MEMORY};
    int db = mrl::cdb::openMemory().db;
};

TEST_F(LogOfImages, KeepsTheLatestInMemoryAndTheRestInAFileWithoutAName)
{
    EXPECT_LE(log.inMemory(), MEMORY);
    EXPECT_GT(log.inFile(), 5000u);
    EXPECT_THAT(folder.files(), ElementsAre("state"));
    EXPECT_TRUE(std::filesystem::is_empty(folder / "state"));
}

TEST_F(LogOfImages, EveryStepIsUndoneAndDoneAgainFromMemoryAndFile)
{
    for (int round = 0; round < 3; ++round) {
        for (int step = STEPS; step > 0; --step) {
            ASSERT_TRUE(log.swap(static_cast<std::size_t>(step - 1), db));
            EXPECT_EQ(getText(db, 12, 1), step == 1 ? "<3>" : text(step - 1));
            EXPECT_LE(log.inMemory(), MEMORY);
        }
        for (int step = 1; step <= STEPS; ++step) {
            ASSERT_TRUE(log.swap(static_cast<std::size_t>(step - 1), db));
            EXPECT_EQ(getText(db, 12, 1), text(step));
        }
    }
    EXPECT_LE(log.inFile(), 8u * 1020u) << "places in the file are used again";
}

TEST_F(LogOfImages, CutAndDroppedStepsHoldNothing)
{
    log.cut(6);
    log.dropFirst();
    EXPECT_EQ(log.count(), 5u);
    ASSERT_TRUE(log.swap(4, db));
    EXPECT_EQ(getText(db, 12, 1), text(5));
    log.cut(0);
    EXPECT_EQ(log.inMemory() + log.inFile(), 0u);
}

TEST(ImageLogWithoutAFolder, KeepsWhatItCantPutAwayAndTells)
{
    ImageLog log("/proc/no-such-folder", 10);
    RecordImage image;
    image.beginKey({12, 1});
    image.addRecord("0123456789", 10);
    EXPECT_EQ(log.add(image).code, Code::InputOutput);
    RecordImage kept;
    ASSERT_TRUE(log.get(0, kept));
    EXPECT_EQ(kept.size(), image.size());
}

} // namespace
