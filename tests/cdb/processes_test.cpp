#include <atomic>
#include <csignal>
#include <ctime>
#include <functional>
#include <random>

#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "cdb/fixture.h"

namespace {

/// A number that parent and child both see.
class SharedNumber
{
  public:
    SharedNumber()
        : place(mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                     -1, 0)),
          value(new(place) std::atomic<int>(0))
    {
    }
    ~SharedNumber() { munmap(place, sizeof(std::atomic<int>)); }
    SharedNumber(const SharedNumber&) = delete;
    SharedNumber& operator=(const SharedNumber&) = delete;
    std::atomic<int>& operator*() const { return *value; }

  private:
    void* place;
    std::atomic<int>* value; // lives in the shared page
};

/// No database may be open while a process is made: SQLite's connections do not survive that.
pid_t startProcess(const std::function<int()>& body)
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    return child;
}

int waitFor(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void sleepMicroseconds(long us)
{
    const timespec time{us / 1000000, (us % 1000000) * 1000};
    nanosleep(&time, nullptr);
}

class Processes : public ::testing::Test
{
  protected:
    Processes() { mrl::cdb::close(mrl::cdb::create(file).db); }
    Folder folder;
    std::string file = folder / "a.cdb";
};

TEST_F(Processes, TwoThatWriteLoseNothing)
{
    constexpr int rounds = 300;
    const auto writer = [this](int own) {
        const int db = mrl::cdb::open(file).db;
        mrl::cdb::setLockWait(db, 60000);
        for (int i = 1; i <= rounds; ++i) {
            if (putText(db, 12, i * 2 + own, "by " + std::to_string(own)) != CD_OK) {
                return 1;
            }
            mrl::cdb::Transaction transaction(db);
            const std::string counter = getText(db, 0, 97);
            putText(db, 0, 97, std::to_string(counter == "<3>" ? 1 : std::stoi(counter) + 1));
            if (!transaction.commit()) {
                return 2;
            }
        }
        mrl::cdb::close(db);
        return 0;
    };
    const pid_t first = startProcess([&] { return writer(0); });
    const pid_t second = startProcess([&] { return writer(1); });
    EXPECT_EQ(waitFor(first), 0);
    EXPECT_EQ(waitFor(second), 0);
    const int db = mrl::cdb::open(file).db;
    EXPECT_EQ(getText(db, 0, 97), std::to_string(2 * rounds));
    EXPECT_EQ(walkUp(db, 12, 0).size(), 2u * rounds);
    EXPECT_TRUE(mrl::cdb::integrityCheck(db));
    mrl::cdb::close(db);
}

/// A reader that may not write beside the file sees no state that is older than what was told, and no false damage.
TEST_F(Processes, ReaderWithoutRightsSeesWholeAndNewestStates)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give up its rights";
    }
    constexpr int RECORDS = 40;
    const auto writeAll = [](int db, int generation) {
        mrl::cdb::Transaction transaction(db);
        for (int i = 1; i <= RECORDS; ++i) {
            putText(db, 12, i, std::to_string(generation));
        }
        return static_cast<bool>(transaction.commit());
    };
    chmod(file.c_str(), 0644);
    chmod(folder.name().c_str(), 0755);
    const SharedNumber told;
    const SharedNumber stop;
    const pid_t writer = startProcess([&] {
        const int db = mrl::cdb::open(file).db;
        for (int generation = 1; *stop == 0; ++generation) {
            if (!writeAll(db, generation)) {
                return 1;
            }
            *told = generation;
        }
        return 0;
    });
    const pid_t reader = startProcess([&] {
        if (setgid(65534) != 0 || setuid(65534) != 0) {
            return 99;
        }
        for (int round = 0; round < 180; ++round) {
            const int before = *told;
            const auto opened = mrl::cdb::openReadOnly(file);
            if (!opened) {
                // It may say that it can't, but not that the file is damaged.
                const auto code = opened.result.code;
                if (code == mrl::cdb::Code::Corrupt || code == mrl::cdb::Code::Checksum) {
                    return 2;
                }
                continue;
            }
            mrl::cdb::setLockWait(opened.db, 60000);
            const std::string text = getText(opened.db, 12, 1);
            if (before > 0 && (text.front() == '<' || std::stoi(text) < before)) {
                return 3;
            }
            mrl::cdb::close(opened.db);
        }
        return 0;
    });
    EXPECT_EQ(waitFor(reader), 0);
    *stop = 1;
    EXPECT_EQ(waitFor(writer), 0);
}

TEST_F(Processes, OneThatReadsSeesWholeTransactionsOfTheOther)
{
    const SharedNumber stop;
    const pid_t writer = startProcess([&] {
        const int db = mrl::cdb::open(file).db;
        for (int generation = 1; *stop == 0; ++generation) {
            mrl::cdb::Transaction transaction(db);
            for (int i = 1; i <= 50; ++i) {
                putText(db, 12, i, std::to_string(generation));
            }
            if (!transaction.commit()) {
                return 1;
            }
        }
        mrl::cdb::close(db);
        return 0;
    });
    const int db = mrl::cdb::openReadOnly(file).db;
    int last = 0;
    for (int i = 0; i < 200; ++i) {
        const auto sound = mrl::cdb::integrityCheck(db);
        EXPECT_TRUE(sound) << sound.text;
        const std::string text = getText(db, 12, 1 + i % 50);
        const int generation = text.front() == '<' ? 0 : std::stoi(text);
        EXPECT_GE(generation, last);
        last = generation;
    }
    EXPECT_TRUE(mrl::cdb::stickyError(db));
    mrl::cdb::close(db);
    *stop = 1;
    EXPECT_EQ(waitFor(writer), 0);
}

TEST_F(Processes, OpeningAFileTwiceKeepsItsLocks)
{
    // Closing any descriptor of a file gives up all locks that the process has on it. A second opening that
    // did so would let the other program write in the middle of what is read or written here.
    const SharedNumber stage;
    const auto writeInTurn = [&](int turn) {
        while (*stage != turn) {
            sleepMicroseconds(100);
        }
        const int db = mrl::cdb::open(file).db;
        const bool done = putText(db, 12, turn, "other") == CD_OK;
        mrl::cdb::close(db);
        return done ? 0 : 1;
    };
    const pid_t other = startProcess([&] { return writeInTurn(1); });
    const int db = mrl::cdb::open(file).db;
    EXPECT_EQ(putText(db, 12, 100, "ours"), CD_OK);
    mrl::cdb::close(mrl::cdb::open(file).db);
    mrl::cdb::close(mrl::cdb::openReadOnly(file).db);
    EXPECT_EQ(mrl::cdb::create(file).db, -1);
    *stage = 1;
    EXPECT_EQ(waitFor(other), 0);
    EXPECT_EQ(getText(db, 12, 1), "other");
    EXPECT_EQ(putText(db, 12, 101, "ours"), CD_OK);
    mrl::cdb::close(db);
    const int again = mrl::cdb::open(file).db;
    EXPECT_THAT(walkUp(again, 12, 0), testing::ElementsAre(1, 100, 101));
    mrl::cdb::close(again);
}

/// Writes for ever: each generation is one transaction that deletes and rewrites all keys, then a single put.
int writeGenerations(const std::string& file, int generation, const SharedNumber& whole,
                     const SharedNumber& single)
{
    const auto opened = mrl::cdb::open(file);
    if (!opened) {
        return 1;
    }
    const int db = opened.db;
    for (++generation;; ++generation) {
        const std::string text = std::to_string(generation) + std::string(120, 'x');
        mrl::cdb::Transaction transaction(db);
        for (int i = 1; i <= 30; ++i) {
            mrl_cdb_del(db, 12, i);
        }
        for (int i = 1; i <= 30; ++i) {
            putText(db, 12, i, text);
        }
        if (!transaction.commit()) {
            return 2;
        }
        *whole = generation;
        if (putText(db, 0, 97, std::to_string(generation)) != CD_OK) {
            return 3;
        }
        *single = generation;
    }
}

int numberIn(int db, int kwh, int kwl)
{
    const std::string text = getText(db, kwh, kwl);
    return text.front() == '<' ? 0 : std::stoi(text);
}

// Under the address sanitizer, making and ending a process takes ten times as long.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kills = 60;
#else
constexpr int kills = 500;
#endif

TEST_F(Processes, KilledAtAnyMomentLeavesWholeTransactionsAndLosesNone)
{
    std::mt19937 random(20);
    const SharedNumber whole;
    const SharedNumber single;
    int progress = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const int start = *whole;
        const pid_t child = startProcess([&] { return writeGenerations(file, start, whole, single); });
        // From before it has opened the file to many transactions later.
        sleepMicroseconds(static_cast<long>(random() % 6000));
        ::kill(child, SIGKILL);
        EXPECT_EQ(waitFor(child), -1);

        // A reader, too, takes back what the crashed program left unfinished.
        const auto opened = kill % 2 == 0 ? mrl::cdb::openReadOnly(file) : mrl::cdb::open(file);
        ASSERT_TRUE(opened) << opened.result.text;
        const int db = opened.db;
        const int generation = numberIn(db, 12, 1);
        for (int i = 2; i <= 30; ++i) {
            ASSERT_EQ(numberIn(db, 12, i), generation);
        }
        // What was reported as done is there; what was under way is there whole or not at all.
        ASSERT_TRUE(generation == *whole || generation == *whole + 1) << generation << " " << *whole;
        // The put that was under way follows the last transaction; those of the generations before it may
        // have been killed away.
        const int put = numberIn(db, 0, 97);
        ASSERT_TRUE(put == *single || put == generation) << put << " " << *single << " " << generation;
        progress += generation > start ? 1 : 0;
        *whole = generation;
        *single = put;
        mrl::cdb::close(db);
    }
    // Else the moments would not have been in the middle of anything.
    EXPECT_GT(progress, kills / 10);
}

} // namespace
