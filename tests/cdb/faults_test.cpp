#include <csignal>
#include <functional>
#include <map>

#include <sys/resource.h>

#include "cdb/faults.h"
#include "cdb/fixture.h"

using mrl::cdb::Code;

namespace {

using Content = std::map<std::pair<int, int>, std::vector<std::string>>;

Content contentOf(int db)
{
    Content content;
    std::vector<mrl::cdb::Key> found;
    EXPECT_TRUE(mrl::cdb::keys(db, found));
    for (const auto& key : found) {
        content[{key.kwh, key.kwl}] = allRecords(db, key.kwh, key.kwl);
    }
    return content;
}

/// While it lives, this process makes no file longer than a number of bytes.
class FileSizeLimit
{
  public:
    explicit FileSizeLimit(rlim_t bytes) : formerAnswer(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &former);
        const rlimit limit = {bytes, former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &former);
        std::signal(SIGXFSZ, formerAnswer);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    void (*formerAnswer)(int);
    rlimit former = {};
};

/// Lets each change of a file that an operation makes fail, one after the other, and looks at what is left.
class Faults : public ::testing::Test
{
  protected:
    Faults()
    {
        faults::install();
        const int db = mrl::cdb::create(file).db;
        for (int i = 1; i <= 60; ++i) {
            putText(db, 12, i, std::string(150, 'o'));
        }
        for (const char* text : {"a", "b", "c"}) {
            static_cast<void>(appendText(db, 14, 5, text));
        }
        mrl::cdb::close(db);
        before = contentAfterReopening(file);
    }
    ~Faults() override { faults::disarm(); }

    static Content contentAfterReopening(const std::string& name)
    {
        const auto opened = mrl::cdb::open(name);
        EXPECT_TRUE(opened) << opened.result.text;
        const auto sound = mrl::cdb::integrityCheck(opened.db);
        EXPECT_TRUE(sound) << sound.text;
        Content content = contentOf(opened.db);
        mrl::cdb::close(opened.db);
        return content;
    }

    /// @param operation gets a database; true when it reports success
    /// @param stride look at every change, or at some
    void failEverywhere(const std::function<bool(int)>& operation, int stride = 1)
    {
        const Content after = afterSuccess(operation);
        ASSERT_NE(after, before);
        for (const auto kind : {faults::Kind::DiskFull, faults::Kind::Broken}) {
            for (const auto lasting : {faults::Lasting::Once, faults::Lasting::ForEver}) {
                for (const bool closing : {false, true}) {
                    for (int n = 1; failOnce(operation, after, n, kind, lasting, closing); n += stride) {
                        ASSERT_LT(n, 10000);
                    }
                }
            }
        }
        EXPECT_GT(failures, 0);
    }

  private:
    std::string fresh()
    {
        const std::string copy = folder / "copy.cdb";
        std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
        std::filesystem::remove(copy + "-journal");
        return copy;
    }
    Content afterSuccess(const std::function<bool(int)>& operation)
    {
        const std::string copy = fresh();
        const int db = mrl::cdb::open(copy).db;
        EXPECT_TRUE(operation(db));
        mrl::cdb::close(db);
        return contentAfterReopening(copy);
    }
    /// @return false when the operation has fewer than n changes
    bool failOnce(const std::function<bool(int)>& operation, const Content& after, int n, faults::Kind kind,
                  faults::Lasting lasting, bool closing)
    {
        const std::string copy = fresh();
        const int db = mrl::cdb::open(copy).db;
        faults::failAt(n, kind, lasting);
        const bool done = operation(db);
        // The disk is full for the tidying up at the end as well, or has room again by then.
        if (closing) {
            mrl::cdb::close(db);
            if (faults::disarm() < n) {
                return false;
            }
        } else {
            if (faults::disarm() < n) {
                mrl::cdb::close(db);
                return false;
            }
            if (!done) {
                EXPECT_EQ(mrl::cdb::stickyError(db).code,
                          kind == faults::Kind::DiskFull ? Code::DiskFull : Code::InputOutput)
                    << mrl::cdb::stickyError(db).text;
                EXPECT_EQ(contentOf(db), before);
                ++failures;
            }
            EXPECT_EQ(putText(db, 99, 1, "there is room again"), CD_OK);
            EXPECT_EQ(mrl_cdb_del(db, 99, 1), CD_OK);
            mrl::cdb::close(db);
        }
        const Content now = contentAfterReopening(copy);
        EXPECT_TRUE(now == after || (now == before && !done)) << "change " << n;
        return !HasFailure();
    }

    Folder folder;
    std::string file = folder / "a.cdb";
    Content before;
    int failures = 0;
};

TEST_F(Faults, PutLeavesTheOldOrTheNewState)
{
    failEverywhere([](int db) { return putText(db, 12, 7, std::string(9000, 'n')) == CD_OK; });
}

TEST_F(Faults, DeletionLeavesTheOldOrTheNewState)
{
    failEverywhere([](int db) { return mrl_cdb_del(db, 14, 5) == CD_OK; });
}

TEST_F(Faults, TransactionLeavesTheOldOrTheNewState)
{
    failEverywhere([](int db) {
        mrl::cdb::Transaction transaction(db);
        for (int i = 1; i <= 60; ++i) {
            mrl_cdb_del(db, 12, i);
        }
        for (int i = 1; i <= 60; i += 2) {
            putText(db, 12, i, std::string(200, 'n'));
        }
        static_cast<void>(appendText(db, 14, 5, "d"));
        return static_cast<bool>(transaction.commit());
    });
}

TEST_F(Faults, TransactionLargerThanTheCacheLeavesTheOldOrTheNewState)
{
    // 40 records of 100 kB are twice the page cache: pages go to the log before the commit. Of its thousand
    // writes some are enough.
    failEverywhere(
        [](int db) {
            mrl::cdb::Transaction transaction(db);
            for (int i = 1; i <= 40; ++i) {
                putText(db, 12, 1000 + i, std::string(100000, 'n'));
            }
            return static_cast<bool>(transaction.commit());
        },
        211);
}

TEST_F(Faults, CreatingOnAFullDiskLeavesNoFile)
{
    Folder place;
    const std::string made = place / "new.cdb";
    int n = 1;
    for (; n < 100; ++n) {
        faults::failAt(n, faults::Kind::DiskFull, faults::Lasting::ForEver);
        const auto result = mrl::cdb::create(made);
        mrl::cdb::close(result.db);
        if (faults::disarm() < n) {
            break;
        }
        if (result) {
            std::filesystem::remove(made);
            continue;
        }
        EXPECT_EQ(result.result.code, Code::DiskFull) << result.result.text;
        EXPECT_FALSE(std::filesystem::exists(made));
    }
    EXPECT_GT(n, 3);
}

TEST_F(Faults, CreatingThatFailsLeavesNothingBesideTheFileEither)
{
    Folder place;
    int failed = 0;
    for (rlim_t bytes = 0; bytes < 16 * 1024; bytes += 2048) {
        mrl::cdb::Opened made;
        {
            const FileSizeLimit limit(bytes);
            made = mrl::cdb::create(place / "new.cdb");
        }
        mrl::cdb::close(made.db);
        failed += made ? 0 : 1;
        EXPECT_TRUE(made || std::filesystem::is_empty(place.name())) << bytes;
        std::filesystem::remove(place / "new.cdb");
    }
    EXPECT_EQ(failed, 8); // an empty project has four pages of 4096 bytes
}

} // namespace
