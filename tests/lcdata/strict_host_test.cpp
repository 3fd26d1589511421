// A host may answer as if there were no record when the buffer is shorter than the record.
#include <dlfcn.h>

#include <cstring>

#include "lcdata/stored_load_cases.h"
#include "tests/support/project_test.h"

namespace {

bool isStrict = false;

using Get = decltype(&mrl_cdb_get);

/// The host's own function.
Get hostGet()
{
    static const auto FOUND = reinterpret_cast<Get>(dlsym(RTLD_NEXT, "_Z11mrl_cdb_getiiiPvPii"));
    return FOUND;
}

} // namespace

/// Stands before the host's function for this program.
cd_error_t mrl_cdb_get(int db, int kwh, int kwl, void* buffer, int* length, int position)
{
    const cd_error_t result = hostGet()(db, kwh, kwl, buffer, length, position);
    return isStrict && result == CD_CUT ? CD_END : result;
}

namespace {

class StrictHost : public mrl::test::ProjectTest
{
  protected:
    StrictHost() { isStrict = true; }
    ~StrictHost() override { isStrict = false; }

    void putLong(int number, int bytes) const
    {
        std::vector<unsigned char> record(static_cast<std::size_t>(bytes), 0x55);
        const tagCDB_LC_CTRL start = mrl::test::bareLoadCase("G");
        std::memcpy(record.data(), &start, sizeof start);
        EXPECT_EQ(mrl_cdb_put(db, LC_KWH_CASES, number, record.data(), &bytes, 0), CD_OK);
    }
};

TEST_F(StrictHost, GivesLoadCasesThatAreLongerThanOurRecord)
{
    putLong(1, 188);
    putLong(2, 189);
    putLong(3, 2060);
    std::vector<int> numbers;
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        numbers.push_back(walk.current().number);
        EXPECT_EQ(walk.current().record.action, mrl::test::codeOf("G"));
    }
    EXPECT_EQ(numbers, (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(lcm_stored_load_case(db, 3).has_value());
}

} // namespace
