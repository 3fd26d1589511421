#include <gmock/gmock.h>

#include "cli/run.h"

using mrl::test::mrlLc;
using testing::HasSubstr;

namespace {

std::string sample(const std::string& name) { return MRL_SAMPLES "/" + name + ".cdb"; }

class Sample : public testing::TestWithParam<const char*>
{
};

} // namespace

TEST_P(Sample, IsIntact)
{
    const auto run = mrlLc({"verify", sample(GetParam())});
    EXPECT_EQ(run.code, 0) << run.out << run.err;
}

INSTANTIATE_TEST_SUITE_P(Samples, Sample, testing::Values("frame", "road-bridge", "oddities"),
                         [](const auto& name) { return std::string(name.param).substr(0, 4); });

TEST(Samples, FrameHasSomeThirtyLoadCasesAndNoFinding)
{
    const auto info = mrlLc({"info", sample("frame"), "--json"}).json();
    EXPECT_EQ(info["loadCases"], 38);
    EXPECT_EQ(info["designCode"]["name"], "en1990");
    EXPECT_EQ(mrlLc({"check", sample("frame")}).out, "No findings.\n");
}

TEST(Samples, RoadBridgeHasSomeHundredLoadCasesAndNoFinding)
{
    const auto info = mrlLc({"info", sample("road-bridge"), "--json"}).json();
    EXPECT_EQ(info["loadCases"], 281);
    EXPECT_EQ(info["designCode"]["name"], "en1990-road-bridges");
    EXPECT_EQ(mrlLc({"check", sample("road-bridge")}).out, "No findings.\n");
}

TEST(Samples, OdditiesAreReported)
{
    const auto run = mrlLc({"check", sample("oddities")});
    EXPECT_EQ(run.code, 1);
    for (const char* finding : {"action W Gamf: ", "action Y1_1: ", "loadcase 3 Gamf: ",
                                "loadcase 12: the project has no action X9", "loadcase 30: another module"}) {
        EXPECT_THAT(run.out, HasSubstr(finding));
    }
}

TEST(Samples, OdditiesHoldARecordLongerThanALoadCase)
{
    const auto records = mrlLc({"get", sample("oddities"), "12", "21", "--json"}).json();
    EXPECT_EQ(records[0]["length"], 300);
}

TEST(Samples, TitleWithoutAClosingZeroComesWhole)
{
    const auto lc = mrlLc({"case", "show", sample("oddities"), "13", "--json"}).json();
    EXPECT_EQ(lc["title"], std::string(34, 'x'));
}
