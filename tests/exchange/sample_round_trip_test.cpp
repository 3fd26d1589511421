// The samples through every format that brings all fields back, into the same project without its rows.
#include <QTemporaryDir>

#include <filesystem>

#include "exchange/apply_plan.h"
#include "exchange/sheet_walk.h"
#include "host/mrl_dlib.h"
#include "lcdata/load_cases.h"
#include "lcdata/stored_actions.h"
#include "tests/exchange/exchange_fixture.h"
#include "tests/support/project_test.h"

using namespace mrl::test;
using mrl::exchange::Outcome;

namespace {

constexpr const char* SAMPLES[] = {"frame", "road-bridge"};
constexpr Sheet SHEETS[] = {Sheet::Actions, Sheet::LoadCases};

/// A sample in a file of its own.
class Sample
{
  public:
    explicit Sample(const char* name)
    {
        const std::string file = m_folder.filePath("sample.cdb").toStdString();
        std::filesystem::copy_file(std::string(MRL_SAMPLES "/") + name + ".cdb", file);
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        m_opened = mrl::cdb::open(file);
        EXPECT_TRUE(static_cast<bool>(m_opened)) << m_opened.result.text;
        mrl_cdb_use(db(), 0);
        mrl_dlib_ini_switch(db());
    }
    ~Sample() { mrl::cdb::close(db()); }
    Sample(const Sample&) = delete;
    Sample& operator=(const Sample&) = delete;

    int db() const { return m_opened.db; }
    /// Each row of both sheets: its record, and its cells.
    std::map<std::string, std::string> rows() const
    {
        std::map<std::string, std::string> rows;
        for (const Sheet sheet : SHEETS) {
            for (mrl::exchange::SheetWalk walk(db(), sheet); walk.next();) {
                rows[joined(walk.cells())] = walk.record();
            }
        }
        return rows;
    }
    void removeRows() const
    {
        std::vector<int> numbers;
        for (mrl::exchange::SheetWalk walk(db(), Sheet::LoadCases); walk.next();) {
            numbers.push_back(walk.id());
        }
        for (const int number : numbers) {
            EXPECT_TRUE(mrl_lc_remove(db(), number)) << number;
        }
        for (const LCM_StoredAction& action : lcm_stored_actions(db())) {
            mrl_cdb_del(db(), LC_KWH_ACTIONS, action.code);
        }
        EXPECT_TRUE(rows().empty());
    }

  private:
    QTemporaryDir m_folder;
    mrl::cdb::Opened m_opened;
};

class SampleRoundTrip : public testing::TestWithParam<std::string>
{
};

TEST_P(SampleRoundTrip, BringsEveryRowOfEverySampleBackBitForBit)
{
    for (const char* name : SAMPLES) {
        SCOPED_TRACE(name);
        const Sample sample(name);
        const auto expected = sample.rows();
        ASSERT_GT(expected.size(), 5u);
        std::vector<std::string> files;
        for (const Sheet sheet : SHEETS) {
            files.push_back(written(GetParam().c_str(), sample.db(), {sheet}));
        }
        sample.removeRows();
        FormatOptions options;
        for (std::size_t i = 0; i < files.size(); ++i) {
            options.sheet = SHEETS[i];
            const auto state = mrl::exchange::stateOf(sample.db());
            const auto plan =
                mrl::exchange::planOf(state, readAs(GetParam().c_str(), files[i], options).tables);
            EXPECT_EQ(plan.count(Outcome::Refused), 0);
            EXPECT_EQ(mrl::exchange::apply(plan, state, sample.db()), nullptr);
        }
        EXPECT_EQ(sample.rows(), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, SampleRoundTrip, testing::ValuesIn(losslessFormats()),
                         [](const auto& param) { return param.param; });

} // namespace
