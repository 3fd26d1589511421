#include "cdb/faults.h"
#include "cdb/fixture.h"
#include "cdb/raw_files.h"

using mrl::cdb::Code;

namespace {

constexpr int COUNT = 120;

/// Lets each call of opening fail, one after the other.
class FaultsWhileOpening : public ::testing::Test
{
  protected:
    FaultsWhileOpening()
    {
        faults::install();
        setenv("TMPDIR", folder.name().c_str(), 1); // in memory, for the copies
        const int db = mrl::cdb::create(file).db;
        for (int i = 1; i <= COUNT; ++i) {
            putText(db, 12, i, std::string(100, 'o'));
        }
        mrl::cdb::close(db);
    }
    ~FaultsWhileOpening() override
    {
        faults::disarm();
        unsetenv("TMPDIR");
    }

    static bool isWhole(int db)
    {
        for (int i = 1; i <= COUNT; ++i) {
            if (getText(db, 12, i) != std::string(100, 'o')) {
                return false;
            }
        }
        return true;
    }
    /// @return false when opening takes fewer than n calls
    static bool openWithFault(const std::string& name, int n, faults::Kind kind, faults::Lasting lasting,
                              bool readOnly)
    {
        faults::failAt(n, kind, lasting, faults::Calls::All);
        const auto opened = readOnly ? mrl::cdb::openReadOnly(name) : mrl::cdb::open(name);
        const bool whole = opened && isWhole(opened.db);
        const bool told = opened && !mrl::cdb::stickyError(opened.db);
        const bool reached = faults::disarm() >= n;
        mrl::cdb::close(opened.db);
        EXPECT_TRUE(!opened || whole || told) << "call " << n << " showed another state";
        if (!opened) {
            // The place may be full, or the disk broken; the project is neither damaged nor something else.
            EXPECT_TRUE(opened.result.code == Code::InputOutput || opened.result.code == Code::DiskFull)
                << "call " << n << ": " << opened.result.text;
        }
        return reached;
    }
    template <class Prepare>
    int failEverywhere(const std::string& name, Prepare prepare, int stride = 1)
    {
        int tried = 0;
        for (const auto kind : {faults::Kind::DiskFull, faults::Kind::Broken}) {
            for (const auto lasting : {faults::Lasting::Once, faults::Lasting::ForEver}) {
                for (const bool readOnly : {false, true}) {
                    for (int n = 1; n < 10000; n += stride) {
                        prepare();
                        if (!openWithFault(name, n, kind, lasting, readOnly) || HasFailure()) {
                            break;
                        }
                        ++tried;
                        expectWhole(name, n);
                    }
                }
            }
        }
        return tried;
    }
    static void expectWhole(const std::string& name, int n)
    {
        const auto after = mrl::cdb::open(name);
        EXPECT_TRUE(after && isWhole(after.db)) << "after call " << n << ": " << after.result.text;
        mrl::cdb::close(after.db);
    }
    Folder folder;
    std::string file = folder / "a.cdb";
};

TEST_F(FaultsWhileOpening, ReadErrorIsNoDamage)
{
    EXPECT_GT(failEverywhere(file, [] {}), 30);
}

TEST_F(FaultsWhileOpening, FaultWhileAnUnfinishedChangeIsTakenBackLosesNothing)
{
    const std::string crashed = folder / "b.cdb";
    crashInTheMiddle(file, crashed, "UPDATE record SET bytes=zeroblob(100)");
    const std::string half = contentOf(crashed);
    const std::string journal = contentOf(crashed + "-journal");
    EXPECT_GT(failEverywhere(
                  crashed,
                  [&] {
                      write(crashed, half);
                      write(crashed + "-journal", journal);
                  },
                  4),
              60);
}

} // namespace
