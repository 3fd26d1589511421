#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"
#include "hostlib/data/cdb/project.h"

using mrl::test::CliTest;
using mrl::test::mrlLc;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Check : public CliTest
{
  protected:
    Check()
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "G"});
    }

    /// The findings as "SUBJECT NAME FIELD: MESSAGE", null fields left out.
    std::vector<std::string> findings() const
    {
        const auto run = mrlLc({"check", file, "--json"});
        std::vector<std::string> lines;
        const auto document = run.json();
        for (const auto& finding : document["findings"]) {
            std::string line = finding["subject"];
            for (const char* name : {"name", "field"}) {
                line += finding[name].is_null() ? "" : " " + finding[name].get<std::string>();
            }
            lines.push_back(line + ": " + finding["message"].get<std::string>());
        }
        EXPECT_EQ(run.code, lines.empty() ? 0 : 1);
        EXPECT_EQ(run.err, "");
        return lines;
    }

    /// Words of a load case without factors of its own, with this action word.
    static std::string following(const std::string& actionWord)
    {
        const std::string undefined = "804fc3c7";
        return "00000000" + actionWord + std::string(40, '0') + undefined + undefined + undefined +
               "0000803f" + std::string(72, '0') + undefined + undefined + std::string(200, '0');
    }
};

} // namespace

TEST_F(Check, SoundProjectHasNoFinding)
{
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_EQ(done({"check", file}).out, "No findings.\n");
}

TEST_F(Check, FavourableFactorAboveUnfavourableCondemnsActionAndItsLoadCases)
{
    done({"action", "set", file, "G", "--gamf", "1.36"});
    EXPECT_THAT(findings(), ElementsAre("action G Gamf: GAMF has to be between 0.0 and 1.35!",
                                        "loadcase 1 Gamf: GAMF has to be between 0.0 and 1.35!"));
    EXPECT_EQ(mrlLc({"check", file}).out,
              "action G Gamf: GAMF has to be between 0.0 and 1.35!\n"
              "loadcase 1 Gamf: GAMF has to be between 0.0 and 1.35!\n2 findings.\n");
}

TEST_F(Check, JsonGivesTheRuleBesideAnEnglishMessageWhateverTheLanguageIs)
{
    done({"action", "set", file, "G", "--gamf", "1.36"});
    done({"put", file, "12", "2", following("58392020")}); // X9
    const std::string english = mrlLc({"check", file, "--json"}).out;
    qputenv("LANGUAGE", "de");
    qputenv("LC_ALL", "de_DE.UTF-8");
    const auto run = mrlLc({"check", file, "--json"});
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    EXPECT_EQ(run.out, english);
    const auto found = run.json()["findings"];
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0], nlohmann::json::parse(R"({"subject": "action", "name": "G", "field": "Gamf",
        "rule": "gamf-not-between-0-and-gamu", "message": "GAMF has to be between 0.0 and 1.35!"})"));
    EXPECT_EQ(found[2], nlohmann::json::parse(R"({"subject": "loadcase", "name": "2", "field": null,
        "rule": "action-missing", "message": "the project has no action X9"})"));
}

TEST_F(Check, UnreadableDesignCodeIsAFindingOfAProjectWithoutACopy)
{
    const std::string own = path("own.ini");
    std::ofstream(own) << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n";
    const std::string other = path("b.cdb");
    done({"new", other, "--code", own});
    const auto opened = mrl::cdb::open(other);
    for (const char* fact :
         {"designcode-kept-name", "designcode-kept-fingerprint", "designcode-kept-files"}) {
        EXPECT_TRUE(mrl::cdb::setFact(opened.db, fact, ""));
    }
    mrl::cdb::close(opened.db);
    std::ofstream(own) << "[DESIGN CODE\n";
    const std::string message = own + ":1: the section's name has no closing ']': write [NAME]";
    const auto run = mrlLc({"check", other, "--json"});
    EXPECT_EQ(run.code, 1);
    const auto found = run.json()["findings"];
    ASSERT_EQ(found.size(), 1u) << run.out;
    EXPECT_EQ(found[0]["rule"], "design-code-unreadable");
    EXPECT_EQ(found[0]["subject"], "project");
    EXPECT_EQ(found[0]["message"], message);
    EXPECT_EQ(mrlLc({"check", other}).out, "project: " + message + "\n1 finding.\n");
}

TEST_F(Check, CopyThatHoldsInPlaceOfAnUnreadableFileIsAFindingOfTheProject)
{
    const std::string own = path("own.ini");
    std::ofstream(own) << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n";
    const std::string other = path("b.cdb");
    done({"new", other, "--code", own});
    std::ofstream(own) << "[DESIGN CODE\n";
    const auto run = mrlLc({"check", other, "--json"});
    EXPECT_EQ(run.code, 1);
    const auto found = run.json()["findings"];
    ASSERT_EQ(found.size(), 1u) << run.out;
    EXPECT_EQ(found[0]["subject"], "project");
    EXPECT_EQ(found[0]["name"], nullptr);
    EXPECT_EQ(found[0]["rule"], "design-code-not-as-kept");
    EXPECT_EQ(found[0]["message"], "there is no readable file of the design code '" + own +
                                       "' here; the copy in the project holds");
}

TEST_F(Check, TrapOfTheDesignCodeIsAFindingOfItsProjects)
{
    const std::string own = path("own.ini");
    std::ofstream(own)
        << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n"
           "[AVAILABILITY]\nPsi0 = 1\n[ACTION Q]\ncategory = Q\nsuperposition = COND\nold = 2, 7\n";
    const std::string other = path("b.cdb");
    done({"new", other, "--code", own});
    const auto run = mrlLc({"check", other, "--json"});
    EXPECT_EQ(run.code, 1);
    const auto found = run.json()["findings"];
    ASSERT_EQ(found.size(), 1u) << run.out;
    EXPECT_EQ(found[0]["rule"], "design-code-trap");
    EXPECT_EQ(found[0]["subject"], "project");
    EXPECT_EQ(
        found[0]["message"],
        own + ":9: action Q: Psi0 is marked, but not stated: it counts as 0: state it; 0 is written as 0");
}

TEST_F(Check, ReservedAndNamelessActionsAreReported)
{
    done({"put", file, "14", "Y1_1", "01000000" + std::string(216, '0')});
    done({"put", file, "14", "538976288", "01000000" + std::string(216, '0')}); // four blanks
    EXPECT_THAT(findings(),
                ElementsAre("action: an action without a name; the dialog never loads it",
                            "action Y1_1: names that begin with Y are reserved; the dialog never loads it"));
}

TEST_F(Check, FactorThatTheDesignCodeDoesNotKnowIsNotJudged)
{
    const std::string other = path("a.cdb");
    done({"new", other, "--code", "asce7-lrfd", "--default-actions"});
    done({"action", "set", other, "W", "--psi0", "7"});
    EXPECT_EQ(done({"check", other}).out, "No findings.\n");
}

TEST_F(Check, EveryShippedCodesOwnActionsAreClean)
{
    for (const auto& code : done({"codes", "--json"}).json()) {
        const std::string name = code["name"];
        const std::string other = path(name + ".cdb");
        done({"new", other, "--code", name, "--default-actions"});
        EXPECT_EQ(done({"check", other}).out, "No findings.\n") << name;
    }
}
