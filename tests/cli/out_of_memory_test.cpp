#include <gmock/gmock.h>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::mrlLcWith;
using testing::HasSubstr;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool HAS_OWN_MALLOC = true;
#else
constexpr bool HAS_OWN_MALLOC = false;
#endif

class OutOfMemory : public CliTest
{
  protected:
    OutOfMemory()
    {
        if (!HAS_OWN_MALLOC) {
            makeProject();
        }
    }
    /// Lets allocations of a command fail, one a run; every run ends by itself, with a message unless it did its work.
    void failSome(const std::vector<std::string>& command, int stride) const
    {
        int refused = 0;
        for (int n = 1; n < 100000; n += stride) {
            const auto run = mrlLcWith(
                "MRL_FAIL_MALLOC=" + std::to_string(n) + " LD_PRELOAD=" MRL_FAILING_CALLS " ", command);
            ASSERT_TRUE(run.code == 0 || run.code == 3) << "allocation " << n << ": " << run.code << run.err;
            ASSERT_EQ(run.code == 3, !run.err.empty()) << "allocation " << n << ": " << run.err;
            refused += run.code == 3 ? 1 : 0;
            if (n > 200 && run.code == 0 && ++m_done > 10) {
                break;
            }
        }
        m_done = 0;
        EXPECT_GT(refused, 3);
    }

  private:
    mutable int m_done = 0; ///< runs that the failing allocation came too late for
};

} // namespace

TEST_F(OutOfMemory, EndsInAMessageAndNeverInASignal)
{
    if (HAS_OWN_MALLOC) {
        GTEST_SKIP() << "the sanitizer has its own allocations";
    }
    failSome({"info", file}, 52);
    failSome({"case", "create", file}, 61);
    failSome({"check", file, "--json"}, 67);
}
