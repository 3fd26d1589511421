#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::mrlLc;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

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
    EXPECT_EQ(warnings[0]["rule"], "action-name-lower-case");
}

TEST_F(Codes, DefaultActionsAreJudgedAsRowsWithTheirLines)
{
    const std::string own = path("own.ini");
    std::ofstream(own)
        << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 2\ncountry = 45\nyear = 2004\n"
           "[AVAILABILITY]\nGamu = 1\nGamf = 1\nPsi1 = 1\nPsi2 = 1\nPsi1s = 1\n"
           "[ACTION G]\ncategory = G\nsuperposition = PERM\nold = 2\nGamu = 1.35\nGamf = 1.36\n"
           "Psi1s = 0.9\n"
           "[ACTION Q_1]\ncategory = Q\nsuperposition = COND\nPsi0 = 1\nPsi1s = 0.8\nold = 7\n";
    // In the order of the lines, those of the file's form among those of the rules.
    const std::string at = "warning: " + own + ":";
    EXPECT_THAT(done({"code", "show", own}).out,
                HasSubstr(at + "13: action G: GAMF has to be between 0.0 and 1.35!\n" +      //
                          at + "20: action Q_1: Psi0 is stated, but not marked as known\n" + //
                          at +
                          "20: action Q_1: the plain action of its first part has to stand ahead of it\n" + //
                          at + "20: action Q_1: GAMU has to be bigger than 0.0!\n" +                        //
                          at + "20: action Q_1: Psi1' has to be between 0.9 and 1.0!\n"));
    std::vector<std::string> rules;
    const auto code = done({"code", "show", own, "--json"}).json();
    for (const auto& warning : code["warnings"]) {
        rules.push_back(warning["rule"]);
    }
    EXPECT_THAT(rules,
                ElementsAre("gamf-not-between-0-and-gamu", "factor-not-marked", "plain-action-not-ahead",
                            "gamu-not-above-0", "psi1s-not-between-national-bound-and-limit"));
}

TEST_F(Codes, TrapsOfTheWholeFileComeFirst)
{
    const std::string own = path("own.ini");
    std::ofstream(own) << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n"
                          "[AVAILABILITY]\nPsi1 = 1\n"
                          "[ACTION Y_AB]\ncategory = G\nsuperposition = PERM\nold = 2, 7\nPsi1 = 0.5\n"
                          "[ACTION Y]\ncategory = G\nsuperposition = PERM\nPsi1 = 1\n";
    std::vector<std::pair<int, std::string>> found;
    const auto code = done({"code", "show", own, "--json"}).json();
    for (const auto& warning : code["warnings"]) {
        found.emplace_back(warning["line"], warning["rule"]);
    }
    EXPECT_THAT(found,
                ElementsAre(Pair(0, "psi1-without-psi2"), Pair(9, "plain-action-not-ahead"),
                            Pair(9, "action-suffix-too-long"), Pair(9, "action-name-reserved"),
                            Pair(9, "psi1-not-between-psi2-and-limit"), Pair(14, "action-name-reserved")));
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
