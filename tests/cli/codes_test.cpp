#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::mrlLc;
using testing::HasSubstr;

namespace {

class Codes : public CliTest
{
};

} // namespace

TEST_F(Codes, ListTellsTheShippedCodesWithoutAWarning)
{
    const auto list = done({"codes", "--json"}).json();
    EXPECT_EQ(list.size(), 18u);
    for (const auto& code : list) {
        EXPECT_TRUE(code["warnings"].empty()) << code["name"];
        EXPECT_GT(code["actions"], 0) << code["name"];
    }
    EXPECT_THAT(done({"codes"}).out, HasSubstr("\nen1990 "));
}

TEST_F(Codes, ShowTellsMarksLabelsAndActions)
{
    const auto code = done({"code", "show", "en1990", "--json"}).json();
    EXPECT_EQ(code["KFI"], 1.0);
    EXPECT_EQ(code["XSI"], 0.85);
    EXPECT_EQ(code["limits"]["Gamu"], 1.0);
    EXPECT_EQ(code["limits"]["Psi1s"], 0.0);
    EXPECT_EQ(code["labels"]["Gamu"], "γG,sup");
    EXPECT_EQ(code["labels"]["Psi1s"], "");
    EXPECT_EQ(code["actions"][0]["name"], "G");
    EXPECT_EQ(code["actions"][0]["oldNumbers"], nlohmann::json::parse("[2]"));
    EXPECT_EQ(code["actions"][0]["Gamu"], 1.35);
    EXPECT_THAT(done({"code", "show", "en1990"}).out, HasSubstr("Gamu    yes        1  γG,sup"));
}

TEST_F(Codes, ShowTakesAPathAndPrintsItsWarnings)
{
    const std::string own = path("own.ini");
    std::ofstream(own) << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n"
                          "[ACTION a]\ncategory = G\nsuperposition = PERM\nold = 2, 7\n";
    EXPECT_THAT(done({"code", "show", own}).out,
                HasSubstr("warning: " + own +
                          ":7: action a: the name holds lower-case letters and can't be typed\n"));
    const auto warnings = done({"code", "show", own, "--json"}).json()["warnings"];
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0]["line"], 7);
}

TEST_F(Codes, ShowOfWhatIsNoneOrMalformedIsAFileError)
{
    EXPECT_THAT(fails(3, {"code", "show", "none"}), HasSubstr("none: there is no such design code"));
    const std::string bad = path("bad.ini");
    std::ofstream(bad) << "[DESIGN CODE\n";
    EXPECT_EQ(fails(3, {"code", "show", bad}),
              "mrl-lc: " + bad + ":1: the section's name has no closing ']'\n");
    fails(2, {"code", "show"});
}

TEST_F(Codes, OwnFolderComesFirstAndAMalformedFileHidesNoOther)
{
    std::ofstream(path("en1990.ini"))
        << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n";
    std::ofstream(path("bad.ini")) << "nothing\n";
    const std::string old = qEnvironmentVariable("MRL_DESIGNCODE_PATH").toStdString();
    const std::string mine = path("");
    qputenv("MRL_DESIGNCODE_PATH", QByteArray::fromStdString(mine + ":" + old));
    const auto run = mrlLc({"codes", "--json"});
    qputenv("MRL_DESIGNCODE_PATH", QByteArray::fromStdString(old));
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.err, HasSubstr("bad.ini:1: the line is neither a section"));
    EXPECT_EQ(run.json().size(), 18u);
    for (const auto& code : run.json()) {
        EXPECT_EQ(code["label"] == "Own", code["name"] == "en1990");
    }
}

TEST_F(Codes, ShippedCodesAreFoundBesideTheProgramWithoutASearchPath)
{
    const std::string old = qEnvironmentVariable("MRL_DESIGNCODE_PATH").toStdString();
    qunsetenv("MRL_DESIGNCODE_PATH");
    const auto run = mrlLc({"codes", "--json"});
    qputenv("MRL_DESIGNCODE_PATH", QByteArray::fromStdString(old));
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.json().size(), 18u);
}
