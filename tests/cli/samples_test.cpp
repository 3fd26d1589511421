#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "cli/run.h"

using mrl::test::mrlLc;
using testing::HasSubstr;

namespace {

std::string sample(const std::string& name) { return MRL_SAMPLES "/" + name + ".cdb"; }

class Sample : public testing::TestWithParam<const char*>
{
};

} // namespace

TEST_P(Sample, HasNoDamageThatVerifyWouldFind)
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

namespace {

class SampleScript : public mrl::test::CliTest
{
  protected:
    /// Runs the script that stands in a folder. @return whether it succeeded
    bool build(const std::string& scriptFolder, const std::string& target,
               const std::string& sampleName) const
    {
        const std::string command = "MRL_LC='" MRL_LC "' '" + scriptFolder + "/build' '" + target + "' " +
                                    sampleName + " >/dev/null 2>'" + path("err") + "'";
        return std::system(command.c_str()) == 0;
    }
};

} // namespace

TEST_F(SampleScript, MakesAProjectInAnyFolder)
{
    ASSERT_TRUE(build(MRL_SOURCE "/samples", path("new/folder"), "oddities"));
    EXPECT_EQ(done({"keys", path("new/folder/oddities.cdb")}).out, mrlLc({"keys", sample("oddities")}).out);
}

TEST_F(SampleScript, NamesTheLineOfAStepThatFailsAndLeavesTheOldProject)
{
    std::filesystem::copy(MRL_SOURCE "/samples/build", path("build"));
    std::ofstream(path("bad.txt")) << "# a comment\nproject --code en1990\ncase 1 X9 Title\n";
    std::ofstream(path("bad.cdb")) << "old";
    EXPECT_FALSE(build(path(""), path(""), "bad"));
    EXPECT_THAT(mrl::test::contentOf(path("err")), HasSubstr("bad.txt:3: "));
    EXPECT_EQ(mrl::test::contentOf(path("bad.cdb")), "old");
}
