#include <csignal>
#include <random>

#include <fcntl.h>
#include <sys/file.h>

#include "cdb/fixture.h"
#include "cdb/raw_files.h"

using mrl::cdb::Code;
using mrl::cdb::Result;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

Result fillWithRecords(int db)
{
    mrl::cdb::Transaction transaction(db);
    for (int i = 1; i <= 500; ++i) {
        putText(db, 12, i, std::string(150, 'n'));
    }
    return transaction.commit();
}

class NewFiles : public ::testing::Test
{
  protected:
    Folder folder;
    std::string file = folder / "a.cdb";
};

TEST_F(NewFiles, AppearWithTheirContent)
{
    const auto made = mrl::cdb::create(file, [this](int db) {
        EXPECT_FALSE(std::filesystem::exists(file));
        EXPECT_EQ(mrl::cdb::path(db), file);
        return fillWithRecords(db);
    });
    ASSERT_TRUE(made) << made.result.text;
    EXPECT_EQ(walkUp(made.db, 12, 0).size(), 500U);
    EXPECT_THAT(folder.files(), ElementsAre("a.cdb"));
    mrl::cdb::close(made.db);
}

TEST_F(NewFiles, DoNotAppearWhenTheirFillingFails)
{
    const auto made = mrl::cdb::create(file, [](int db) {
        static_cast<void>(fillWithRecords(db));
        return Result{Code::BadArgument, "no"};
    });
    EXPECT_EQ(made.result.text, "no");
    EXPECT_EQ(made.db, -1);
    EXPECT_THROW(static_cast<void>(mrl::cdb::create(file, [](int) -> Result { throw 1; })), int);
    EXPECT_THAT(folder.files(), IsEmpty());
}

TEST_F(NewFiles, NeverReplaceOneThatAppearedMeanwhile)
{
    const auto made = mrl::cdb::create(file, [this](int) {
        write(file, "somebody else's");
        return Result{};
    });
    EXPECT_EQ(made.result.code, Code::Exists);
    EXPECT_EQ(contentOf(file), "somebody else's");
    EXPECT_THAT(folder.files(), ElementsAre("a.cdb"));
}

TEST_F(NewFiles, RemoveLeftoversOfTheDeadOnly)
{
    write(file + ".new-abcdef", "dead");
    write(file + ".new-ghijkl", "alive");
    write(file + ".new-somebody", "another one's");
    const int alive = open((file + ".new-ghijkl").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(alive, LOCK_EX), 0);
    mrl::cdb::close(mrl::cdb::create(file).db);
    EXPECT_THAT(folder.files(), ElementsAre("a.cdb", "a.cdb.new-ghijkl", "a.cdb.new-somebody"));
    close(alive);
}

TEST_F(NewFiles, OfTwoProgramsOneIsRefused)
{
    const auto create = [this] {
        const auto made = mrl::cdb::create(file, fillWithRecords);
        mrl::cdb::close(made.db);
        return made ? 0 : static_cast<int>(made.result.code);
    };
    for (int round = 0; round < 20; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            _exit(create());
        }
        const int ours = create();
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(ours + WEXITSTATUS(status), static_cast<int>(Code::Exists));
        std::filesystem::remove(file);
    }
}

#if defined(__SANITIZE_ADDRESS__)
constexpr int KILLS = 40;
#else
constexpr int KILLS = 300;
#endif

TEST_F(NewFiles, AreWholeOrAbsentWheneverTheirMakerIsKilled)
{
    std::mt19937 random(8);
    int whole = 0;
    int absent = 0;
    for (int kill = 0; kill < KILLS; ++kill) {
        const pid_t child = fork();
        if (child == 0) {
            mrl::cdb::close(mrl::cdb::create(file, fillWithRecords).db);
            pause();
        }
        usleep(static_cast<useconds_t>(random() % 12000));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        if (!std::filesystem::exists(file)) {
            ++absent;
            const auto again = mrl::cdb::create(file, fillWithRecords);
            ASSERT_TRUE(again) << again.result.text;
            mrl::cdb::close(again.db);
        } else {
            ++whole;
        }
        const auto opened = mrl::cdb::open(file);
        ASSERT_TRUE(opened) << opened.result.text;
        EXPECT_EQ(walkUp(opened.db, 12, 0).size(), 500U);
        mrl::cdb::close(opened.db);
        std::filesystem::remove(file);
        EXPECT_LE(folder.files().size(), 1U); // what the killed one had begun, until the next one tidies up
    }
    EXPECT_GT(whole, 0);
    EXPECT_GT(absent, 0);
}

/// Two builds of the same samples have to give the same bytes.
TEST(NewFile, IsTheSameEachTimeWhereTheDateOfTheSourceIsTold)
{
    const Folder folder;
    const auto make = [&](const char* name) {
        mrl::cdb::close(mrl::cdb::create(folder / name).db);
        return contentOf(folder / name);
    };
    EXPECT_NE(make("a.cdb"), make("b.cdb"));
    setenv("SOURCE_DATE_EPOCH", "1790000000", 1);
    const std::string first = make("c.cdb");
    const std::string second = make("d.cdb");
    setenv("SOURCE_DATE_EPOCH", "1); DROP TABLE record", 1);
    EXPECT_NE(make("e.cdb"), make("f.cdb"));
    unsetenv("SOURCE_DATE_EPOCH");
    EXPECT_EQ(first, second);
}

} // namespace
