#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::mrlLc;
using testing::ContainsRegex;
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
    // Whoever changes one term of a situation has to know the others.
    EXPECT_THAT(done({"code", "show", "en1990"}).out, ContainsRegex("accidental +lead +Psi1"));
    for (const auto& situation : code["situations"]) {
        if (situation["name"] == "accidental") {
            EXPECT_EQ(situation["terms"]["lead"], "Psi1");
        }
        if (situation["name"] == "persistent-ab") {
            EXPECT_THAT(situation["expressions"][1]["terms"]["G"].get<std::string>(), HasSubstr("XSI"));
        }
    }
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
           "Psi1 = 0\nPsi2 = 0\nPsi1s = 0.9\n"
           "[ACTION Q_1]\ncategory = Q\nsuperposition = COND\nPsi0 = 1\nPsi1s = 0.8\nold = 7\n"
           "Gamu = 0\nGamf = 0\nPsi1 = 0\n";
    // In the order of the lines, those of the file's form among those of the rules.
    const std::string at = "warning: " + own + ":";
    EXPECT_THAT(done({"code", "show", own}).out,
                HasSubstr(at + "18:8: action G: GAMF has to be between 0.0 and 1.35!\n" + //
                          at +
                          "22: action Q_1: Psi2 is marked, but not stated: it counts as 0: state it; 0 is "
                          "written as 0\n" + //
                          at +
                          "22: action Q_1: the plain action of its first part has to stand ahead of it: "
                          "move the plain action ahead of it\n" + //
                          at +
                          "25:8: action Q_1: Psi0 is stated, but not marked as known: mark it in "
                          "[AVAILABILITY], or leave it out\n" + //
                          at +
                          "26:9: action Q_1: Psi1' has to be between 0.9 and 1.0!\n" + //
                          at + "28:8: action Q_1: GAMU has to be bigger than 0.0!\n"));
    std::vector<std::string> rules;
    const auto code = done({"code", "show", own, "--json"}).json();
    for (const auto& warning : code["warnings"]) {
        rules.push_back(warning["rule"]);
    }
    EXPECT_THAT(rules, ElementsAre("gamf-not-between-0-and-gamu", "factor-not-stated",
                                   "plain-action-not-ahead", "factor-not-marked",
                                   "psi1s-not-between-national-bound-and-limit", "gamu-not-above-0"));
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
                            Pair(13, "psi1-not-between-psi2-and-limit"), Pair(14, "action-name-reserved")));
}

TEST_F(Codes, ShowOfWhatIsNoneOrMalformedIsAFileError)
{
    EXPECT_THAT(fails(3, {"code", "show", "none"}), HasSubstr("none: there is no such design code"));
    const std::string bad = path("bad.ini");
    std::ofstream(bad) << "[DESIGN CODE\n";
    EXPECT_EQ(fails(3, {"code", "show", bad}),
              "mrl-lc: " + bad + ":1: the section's name has no closing ']': write [NAME]\n");
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
    EXPECT_THAT(run.err, HasSubstr("bad.ini:1:1: the line is neither a section"));
    EXPECT_EQ(run.json().size(), 18u);
    for (const auto& code : run.json()) {
        EXPECT_EQ(code["label"] == "Own", code["name"] == "en1990");
    }
}

TEST_F(Codes, CheckTellsEveryErrorOfAFileWithItsCureAndEndsWithOne)
{
    const std::string own = path("own.ini");
    std::ofstream(own) << "[DESIGN CODE]\nbase = en1990\nlabel = Own\n[ACTION Q_B]\nPsi0 = 0,6\nPsi3 = 0.5\n";
    const auto run = mrlLc({"code", "check", own});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out,
              own + ":5:8: '0,6' of entry 'Psi0' is no number: write a point: 0.6 [file-not-readable]\n" +
                  own +
                  ":6:1: entry 'Psi3' is not known in section 'ACTION Q_B': write Psi0 "
                  "[file-not-readable]\n");
    std::ofstream(own) << "[DESIGN CODE]\nbase = en1990\nlabel = Own\n[ACTION Q_B]\nPsi0 = 6\n";
    const auto found = mrlLc({"code", "check", own, "en1990", "--json"});
    EXPECT_EQ(found.code, 1);
    EXPECT_EQ(found.json()[0]["findings"][0]["rule"], "psi-above-1");
    EXPECT_EQ(found.json()[0]["findings"][0]["line"], 5);
    EXPECT_TRUE(found.json()[1]["findings"].empty());
    done({"code", "check", "en1990", "sia260"});
    fails(3, {"code", "check", "none"});
}

TEST_F(Codes, DiffTellsActionsAndFactorsThatDiffer)
{
    const std::string own = path("own.ini");
    std::ofstream(own) << "[DESIGN CODE]\nbase = en1990\nlabel = Own\n[ACTION Q_B]\nPsi0 = 0.6\n"
                          "[ACTION Q_H]\nremove = yes\n";
    const auto run = mrlLc({"code", "diff", "en1990", own, "--json"});
    EXPECT_EQ(run.code, 1) << "they differ";
    EXPECT_EQ(run.json(), nlohmann::json::parse(
                              R"([{"where": "action Q_B", "what": "Psi0", "a": "0.7", "b": "0.6"},
                                  {"where": "action Q_H", "what": "", "a": "", "b": null}])"));
    EXPECT_THAT(mrlLc({"code", "diff", "en1990", own}).out, HasSubstr("action Q_B  Psi0  0.7"));
    done({"code", "diff", "en1990", "en1990"});
}

TEST_F(Codes, NewWritesAFileThatReadsAsItIsIntoTheOwnFolder)
{
    qputenv("XDG_DATA_HOME", QByteArray::fromStdString(path("data")));
    const std::string written = path("data") + "/mrl/designcodes/mine.ini";
    EXPECT_EQ(done({"code", "new", "mine", "--base", "bs-en1990-na"}).out, written + "\n");
    EXPECT_THAT(mrl::test::contentOf(written), HasSubstr("; [SITUATION accidental]\n; kind = accidental\n"));
    done({"code", "check", "mine"});
    done({"code", "diff", "bs-en1990-na", "mine"});
    EXPECT_THAT(mrl::test::contentOf(written), HasSubstr("; [ACTION Q_A]\n; title = Domestic, category A\n"));
    EXPECT_THAT(fails(3, {"code", "new", "mine", "--base", "en1990"}), HasSubstr("mine.ini"));
    std::ofstream(path("data") + "/mrl/designcodes/en1990.ini")
        << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n";
    const std::string old = qEnvironmentVariable("MRL_DESIGNCODE_PATH").toStdString();
    qunsetenv("MRL_DESIGNCODE_PATH");
    const auto list = done({"code", "list", "--json"}).json();
    const std::string text = done({"code", "list"}).out;
    qputenv("MRL_DESIGNCODE_PATH", QByteArray::fromStdString(old));
    qunsetenv("XDG_DATA_HOME");
    for (const auto& code : list["codes"]) {
        EXPECT_EQ(code["hides"].size(), code["name"] == "en1990" ? 1u : 0u) << code["name"];
    }
    EXPECT_THAT(text, HasSubstr("hides"));
}

TEST_F(Codes, ShowTellsWhereEachValueComesFrom)
{
    const std::string own = path("own.ini");
    std::ofstream(own) << "[DESIGN CODE]\nbase = en1990\nlabel = Own\n[ACTION Q_B]\n"
                          "Psi0 = 0.6 {Table NA.1, one source} offices alone\n";
    const auto code = done({"code", "show", own, "--json"}).json();
    for (const auto& action : code["actions"]) {
        if (action["name"] == "Q_B") {
            EXPECT_EQ(action["origins"]["Psi0"]["clause"], "Table NA.1");
            EXPECT_EQ(action["origins"]["Psi0"]["state"], "one source");
            EXPECT_EQ(action["origins"]["Psi0"]["note"], "offices alone");
            EXPECT_EQ(action["origins"]["Psi0"]["line"], 5);
            EXPECT_FALSE(action["origins"].contains("Psi1s"));
        }
    }
    EXPECT_EQ(code["situations"][0]["name"], "persistent");
    const std::string text = done({"code", "show", own}).out;
    EXPECT_THAT(text, HasSubstr("Q_B     Psi0      0.6  one source"));
    EXPECT_THAT(text, HasSubstr("Psi1  Psi2\nG ")) << "no column for what the code doesn't know";
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
