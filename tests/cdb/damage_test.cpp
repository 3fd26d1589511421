#include <fstream>
#include <map>
#include <random>

#include "cdb/fixture.h"

namespace {

using Content = std::map<std::pair<int, int>, std::vector<std::string>>;

/// Reads all there is by walking, as callers do.
Content readAll(int db)
{
    Content content;
    int kwh = INT_MIN;
    int kwl = INT_MIN;
    while (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1) == 0) {
        content[{kwh, kwl}] = allRecords(db, kwh, kwl);
    }
    return content;
}

class Damage : public ::testing::Test
{
  protected:
    Damage()
    {
        const int db = mrl::cdb::create(file).db;
        {
            mrl::cdb::Transaction transaction(db);
            for (int i = 1; i <= 200; ++i) {
                putText(db, 12, i, std::string(100, static_cast<char>('a' + i % 26)));
            }
            for (int i = 0; i < 6; ++i) {
                static_cast<void>(appendText(db, 14, 0x20202051, "record " + std::to_string(i)));
            }
            putText(db, 10, 0, std::string(9000, 's')); // on pages of its own
            EXPECT_TRUE(transaction.commit());
        }
        for (int i = 1; i <= 100; ++i) { // leaves free pages behind
            mrl_cdb_del(db, 12, i);
        }
        static_cast<void>(mrl::cdb::setFact(db, "designcode", "en1990.ini"));
        expected = readAll(db);
        mrl::cdb::close(db);
        std::ifstream in(file, std::ios::binary);
        good.assign(std::istreambuf_iterator<char>(in), {});
    }

    enum class Verdict { Refused, ReportedByReading, WithoutEffect };

    /// Opens the damaged file, reads all, writes something, and reads all again.
    Verdict judge() const
    {
        const auto opened = mrl::cdb::open(file);
        if (!opened) {
            EXPECT_FALSE(opened.result.text.empty());
            return Verdict::Refused;
        }
        const int db = opened.db;
        bool reported = !isAsExpected(db);
        writeAndDelete(db);
        reported = reported || !isAsExpected(db);
        mrl::cdb::close(db);
        return reported ? Verdict::ReportedByReading : Verdict::WithoutEffect;
    }
    static void writeAndDelete(int db)
    {
        mrl::cdb::Transaction transaction(db);
        for (int i = 1; i <= 30; ++i) {
            putText(db, 12, 1000 + i, std::string(400, 'n'));
        }
        for (int i = 1; i <= 30; ++i) {
            mrl_cdb_del(db, 12, 1000 + i);
        }
        if (const auto done = transaction.commit(); !done) {
            EXPECT_FALSE(mrl::cdb::stickyError(db)) << done.text;
        }
    }
    /// @return false when the database has reported an error; then what was read need not be right
    bool isAsExpected(int db) const
    {
        const Content content = readAll(db);
        const std::string code = mrl::cdb::fact(db, "designcode");
        if (!mrl::cdb::stickyError(db)) {
            return false;
        }
        EXPECT_EQ(content, expected);
        EXPECT_EQ(code, "en1990.ini");
        return true;
    }

    Folder folder;
    std::string file = folder / "a.cdb";
    Content expected;
    std::string good;
};

TEST_F(Damage, FlippedByteIsReportedOrWithoutEffect)
{
    std::mt19937 random(1990);
    std::map<Verdict, int> verdicts;
    for (int flip = 0; flip < 3000; ++flip) {
        const std::size_t at = random() % good.size();
        const auto bits = static_cast<char>(1 + random() % 255);
        {
            std::string bad = good;
            bad[at] = static_cast<char>(bad[at] ^ bits);
            std::ofstream(file, std::ios::binary) << bad;
        }
        std::filesystem::remove(file + "-journal");
        ++verdicts[judge()];
        ASSERT_FALSE(HasFailure()) << "byte " << at << " with " << static_cast<int>(bits);
    }
    // Free pages and gaps in pages are most of what a flip may hit without effect.
    EXPECT_GT(verdicts[Verdict::Refused], 1000);
    RecordProperty("refused", verdicts[Verdict::Refused]);
    RecordProperty("reported_by_reading", verdicts[Verdict::ReportedByReading]);
    RecordProperty("without_effect", verdicts[Verdict::WithoutEffect]);
}

} // namespace
