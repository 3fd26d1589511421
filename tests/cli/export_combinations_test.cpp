#include <gmock/gmock.h>

#include <QProcess>

#include <fstream>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using mrl::test::mrlLc;
using mrl::test::mrlLcInto;
using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// A roof: weight, snow and wind with one load case each, by EN 1990.
class ExportCombinations : public CliTest
{
  protected:
    ExportCombinations()
    {
        done({"new", file, "--code", "en1990"});
        for (const char* action : {"G", "S", "W"}) {
            done({"action", "create", file, action});
        }
        done({"case", "create", file, "1", "--action", "G"});
        done({"case", "create", file, "20", "--action", "W"});
        done({"case", "create", file, "3", "--action", "S"});
    }

    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name)) << text;
        return path(name);
    }
    std::string exported(std::vector<std::string> options) const
    {
        options.insert(options.begin(), {"export", file, "--what", "combinations"});
        return done(options).out;
    }
    /// A workbook as a program reads it that isn't ours.
    std::string read(const std::string& workbook) const
    {
        QProcess python;
        python.start(MRL_PYTHON, {MRL_SOURCE "/tests/exchange/read_workbook.py", workbook.c_str()});
        EXPECT_TRUE(python.waitForFinished());
        EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
        return python.readAllStandardOutput().toStdString();
    }

    const std::string responses = write("r.csv", "name,1,3,20\nM,10,5,-2\nV,-1,0,7\n");
};

} // namespace

TEST_F(ExportCombinations, TellFactorsByLoadCaseInTables)
{
    const std::string csv = exported({});
    EXPECT_THAT(csv, StartsWith("combination,situation,expression,leading,key,1,3,20\n"));
    EXPECT_THAT(csv, HasSubstr(",persistent,,S,1.35*1+1.5*3+0.9*20,1.35,1.5,0.9\n"));
    EXPECT_THAT(csv, HasSubstr(",persistent,,,1*1,1,0,0\n"));
    const std::string tsv = exported({"--format", "tsv", "--decimal", ",", "--situation", "persistent-ab"});
    EXPECT_THAT(tsv, HasSubstr("\tpersistent-ab\t6.10b\tS\t1.1475*1+1.5*3+0.9*20\t1,1475\t1,5\t0,9\n"));
}

TEST_F(ExportCombinations, StandOnceWhereChoicesHaveTheSameFactors)
{
    // Psi2 of both is 0: "1*1+0.2*3" is S alone, and S with W, of the five choices.
    const json all = json::parse(exported({"--format", "json", "--situation", "frequent"}));
    EXPECT_EQ(all["situation"], "frequent");
    EXPECT_EQ(all["combinations"].size(), 3u);
    EXPECT_EQ(done({"combine", file, "--situation", "frequent", "--json"}).json()["distinct"], "3");
    const json snow = {
        {"key", "1*1+0.2*3"}, {"leading", "S"}, {"expression", nullptr}, {"factors", {{"1", 1}, {"3", 0.2}}}};
    EXPECT_THAT(all["combinations"].get<std::vector<json>>(), testing::Contains(snow));
}

TEST_F(ExportCombinations, GoverningOnesAreThoseOfCombine)
{
    const json kept = json::parse(exported({"--format", "json", "--keep", responses}));
    const json listed = done({"combine", file, "--keep", responses, "--json"}).json();
    ASSERT_EQ(kept["combinations"].size(), listed["combinations"].size());
    for (std::size_t i = 0; i < kept["combinations"].size(); ++i) {
        EXPECT_EQ(kept["combinations"][i]["key"], listed["combinations"][i]["key"]);
    }
    EXPECT_EQ(kept["combinations"][0]["key"], "1.35*1+1.5*3"); // 13.5 + 7.5; wind lowers it
}

TEST_F(ExportCombinations, StandInAWorkbookAsNumbers)
{
    exported({"--keep", responses, "-o", path("c.xlsx")});
    const std::string said = read(path("c.xlsx"));
    EXPECT_THAT(said, HasSubstr("sheets combinations\n"));
    EXPECT_THAT(said, HasSubstr("combinations F1 str '1'\n"));
    EXPECT_THAT(said, HasSubstr("combinations E2 str '1.35*1+1.5*3'\n"));
    EXPECT_THAT(said, HasSubstr("combinations F2 float 1.35\n"));
    EXPECT_THAT(said, HasSubstr("combinations H2 int 0\n"));
    const auto piped = mrlLcInto(path("piped.xlsx"), {"export", file, "--what", "combinations", "--format",
                                                      "xlsx", "--keep", responses});
    EXPECT_EQ(piped.code, 0);
    EXPECT_EQ(contentOf(path("piped.xlsx")), contentOf(path("c.xlsx"))) << "bytes go to a pipe as they are";
}

TEST_F(ExportCombinations, AreLinearWithExplicitFactorsInSaf)
{
    const std::vector<std::string> command{"export", file,     "--what",  "combinations", "--format",
                                           "saf",    "--keep", responses, "-o",           path("c.xlsx")};
    EXPECT_EQ(mrlLc(command).code, 0);
    const std::string said = read(path("c.xlsx"));
    EXPECT_THAT(said, HasSubstr("sheets Project Model StructuralLoadGroup StructuralLoadCase "
                                "StructuralLoadCombination MrlNotes\n"));
    const std::string sheet = "StructuralLoadCombination ";
    for (const char* cell :
         {"A2 str 'COM1'", "B2 str 'persistent: 1.35*1+1.5*3'", "C2 str 'ULS (Ultimate Limit State)'",
          "E1 str 'Load Factor 1'", "E2 float 1.35", "F2 int 1", "G1 str 'Load Case name 1'", "G2 str 'LC1'",
          "H2 float 1.5", "J2 str 'LC3'", "L1 str 'Type'", "L2 str 'Linear'"}) {
        EXPECT_THAT(said, HasSubstr(sheet + cell + "\n"));
    }
    const std::string before = contentOf(path("c.xlsx"));
    EXPECT_EQ(mrlLc(command).code, 0);
    EXPECT_EQ(contentOf(path("c.xlsx")), before); // the ids stay, so a second import updates the first one
}

TEST_F(ExportCombinations, SafRefusesMoreLoadCasesThanItHolds)
{
    std::string cases = "number,action\n";
    for (int number = 100; number < 200; ++number) {
        cases += std::to_string(number) + ",G\n";
    }
    done({"import", file, write("cases.csv", cases)});
    EXPECT_THAT(fails(1, {"export", file, "--what", "combinations", "--format", "saf", "--situation",
                          "quasi-permanent", "-o", path("c.xlsx")}),
                HasSubstr("a combination has 101 load cases, and one of SAF holds at most 99"));
    EXPECT_EQ(contentOf(path("c.xlsx")), "");
}

TEST_F(ExportCombinations, RefusesMoreThanTheLimitAndOptionsWithoutThem)
{
    EXPECT_THAT(fails(1, {"export", file, "--what", "combinations", "--limit", "9"}),
                HasSubstr("10 combinations, more than 9"));
    EXPECT_THAT(fails(2, {"export", file, "--situation", "frequent"}), HasSubstr("--what combinations"));
    EXPECT_THAT(fails(2, {"export", file, "--what", "loadcases", "--limit", "5"}),
                HasSubstr("--what combinations"));
}

TEST_F(ExportCombinations, AreNoTableThatAnImportTakes)
{
    for (const char* name : {"c.csv", "c.json", "c.xlsx"}) {
        exported({"-o", path(name)});
        EXPECT_EQ(mrlLc({"import", file, path(name)}).code, 1) << name;
    }
}
