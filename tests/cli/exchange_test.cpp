#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"

using namespace mrl::test;
using testing::HasSubstr;

namespace {

class CliExchange : public CliTest
{
  protected:
    CliExchange()
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "G", "--title", "Dead"});
        done({"case", "create", file, "2", "--action", "Q", "--title", "Live"});
    }
    std::string table(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    std::string content() const { return contentOf(file); }
};

TEST_F(CliExchange, ExportWritesCsvToStandardOutputUnlessTold)
{
    EXPECT_THAT(done({"export", file}).out, testing::StartsWith("number,title,action,DLX"));
    EXPECT_THAT(done({"export", file, "--what", "actions", "--separator", ";", "--decimal", ","}).out,
                HasSubstr("G;Permanent"));
    EXPECT_THAT(done({"export", file, "--format", "json"}).out, HasSubstr("\"designcode\": \"en1990\""));
}

TEST_F(CliExchange, ExportChoosesTheFormatByTheFilesName)
{
    done({"export", file, "-o", path("t.json")});
    EXPECT_THAT(contentOf(path("t.json")), testing::StartsWith("{\n \"actions\": ["));
    done({"export", file, "-o", path("t.tsv")});
    EXPECT_THAT(contentOf(path("t.tsv")), testing::StartsWith("number\ttitle"));
}

TEST_F(CliExchange, SafListsItsLossesBeforeItIsWritten)
{
    const Outcome run =
        mrlLc({"export", file, "--format", "saf", "-o", path("t.xlsx"), "--saf-version", "2.1.0"});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.err, HasSubstr("not told in the file: action G: all factors\n"));
    const std::string before = content();
    EXPECT_THAT(done({"import", file, path("t.xlsx"), "--dry-run"}).out,
                HasSubstr("note: SAF version 2.1.0\n"));
    EXPECT_EQ(content(), before);
    EXPECT_THAT(fails(2, {"export", file, "--format", "saf", "--saf-version", "7"}),
                HasSubstr("1.0.5, 2.0.0"));
}

TEST_F(CliExchange, WorkbookGoesOutAndIn)
{
    done({"export", file, "-o", path("t.xlsx")});
    EXPECT_THAT(done({"import", file, path("t.xlsx")}).out,
                HasSubstr("0 added, 0 changed, 5 unchanged, 0 refused"));
}

TEST_F(CliExchange, ExportNeverWritesOverItsProject)
{
    const std::string before = content();
    EXPECT_THAT(fails(1, {"export", file, "-o", file}), HasSubstr("can't be the file to write"));
    EXPECT_EQ(content(), before);
}

TEST_F(CliExchange, ExportLeavesTheOldFileWhereTheNewOneDoesNotFit)
{
    done({"export", file, "-o", path("t.csv")});
    const std::string before = contentOf(path("t.csv"));
    std::string csv = "number,action\n";
    for (int number = 10; number < 60; ++number) {
        csv += std::to_string(number) + ",Q\n";
    }
    done({"import", file, table("more.csv", csv)});
    EXPECT_EQ(mrlLcWithin(1, {"export", file, "-o", path("t.csv")}).code, 3);
    EXPECT_EQ(contentOf(path("t.csv")), before);
}

TEST_F(CliExchange, ImportAddsAndChangesInOneTransactionAndTellsRowByRow)
{
    const auto out =
        done({"import", file, table("t.csv", "number,title,action\n1,Roof,G\n2,Live,Q\n3,Wind,W\n")}).out;
    EXPECT_THAT(out, HasSubstr("changed line 2: loadcases 1\n  title: Dead -> Roof\n"));
    EXPECT_THAT(out, HasSubstr("added line 4: loadcases 3"));
    EXPECT_THAT(out, HasSubstr("1 added, 1 changed, 1 unchanged, 0 refused\n"));
    EXPECT_EQ(loadCase(1)["title"], "Roof");
    EXPECT_EQ(loadCase(3)["action"], "W");
}

TEST_F(CliExchange, RefusedRowStopsTheImportUnlessItIsSkipped)
{
    const std::string csv = table("t.csv", "number,title,action\n3,Wind,XX\n4,Snow,Q\n");
    const std::string before = content();
    const Outcome refused = mrlLc({"import", file, csv});
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.out, HasSubstr("[action-missing]"));
    EXPECT_THAT(refused.out, HasSubstr("nothing was written"));
    EXPECT_EQ(content(), before);
    EXPECT_THAT(done({"import", file, csv, "--skip-refused"}).out, HasSubstr("1 added"));
    EXPECT_EQ(loadCase(4)["title"], "Snow");
}

TEST_F(CliExchange, DryRunWritesNothingAndItsPlanIsAppliedOnlyToTheSameProject)
{
    const std::string csv = table("t.csv", "number,title\n1,Roof\n");
    const std::string before = content();
    const auto plan = done({"import", file, csv, "--dry-run", "--json"}).json();
    EXPECT_EQ(content(), before);
    EXPECT_EQ(plan["applied"], false);
    EXPECT_EQ(plan["rows"][0]["changes"][0]["before"], "Dead");
    done({"case", "set", file, "1", "--title", "Meanwhile"});
    EXPECT_THAT(fails(1, {"import", file, csv, "--apply-plan", plan["plan"]}),
                HasSubstr("changed since the plan"));
    done({"case", "set", file, "1", "--title", "Dead"});
    done({"import", file, csv, "--apply-plan", plan["plan"]});
    EXPECT_EQ(loadCase(1)["title"], "Roof");
}

TEST_F(CliExchange, RowsFindTheirLoadCasesByTitle)
{
    done({"import", file, table("t.csv", "title,DLZ\nDead,-1\nNew,0\n"), "--match", "title"});
    EXPECT_EQ(loadCase(1)["DLZ"], -1);
    EXPECT_EQ(loadCase(3)["title"], "New");
    const Outcome doubled =
        mrlLc({"import", file, table("u.csv", "title\nDead\nDead\n"), "--match", "title"});
    EXPECT_EQ(doubled.code, 1);
    EXPECT_THAT(doubled.out, HasSubstr("[import-doubled]"));
}

TEST_F(CliExchange, ColumnsAreMatchedByHandWhereTheirNamesDoNotFit)
{
    const std::string csv = table("t.csv", "Kennung;Was;factor\n3;Wind;none\n");
    EXPECT_THAT(fails(1, {"import", file, csv}), HasSubstr("no column is headed \"number\""));
    EXPECT_THAT(fails(2, {"import", file, csv, "--column", "Was=what"}), HasSubstr("write HEADING=COLUMN"));
    done({"import", file, csv, "--column", "Kennung=number", "--column", "Was=title", "--column", "factor="});
    EXPECT_EQ(loadCase(3)["title"], "Wind");
}

TEST_F(CliExchange, ActionsOfTheDesignCodeAreCreatedWhereAsked)
{
    const std::string csv = table("t.csv", "number,action\n5,S\n6,S\n");
    EXPECT_EQ(mrlLc({"import", file, csv}).code, 1);
    done({"import", file, csv, "--create-actions"});
    EXPECT_EQ(action("S")["partition"], "Q");
    EXPECT_EQ(loadCase(6)["action"], "S");
}

TEST_F(CliExchange, WrongWordsAndFilesAreTold)
{
    EXPECT_THAT(fails(2, {"import", file, "-", "--match", "colour"}), HasSubstr("number, title"));
    EXPECT_THAT(fails(2, {"export", file, "--format", "xyz"}), HasSubstr("csv, tsv, json"));
    EXPECT_THAT(fails(2, {"export", file, "--separator", "ab"}), HasSubstr("--separator"));
    EXPECT_THAT(fails(3, {"import", file, path("none.csv")}), HasSubstr("none.csv"));
    EXPECT_THAT(fails(1, {"import", file, table("t.csv", "title\nx\n")}), HasSubstr("no column is headed"));
}

TEST_F(CliExchange, NewProjectFromJsonIsTheOldOneBitForBit)
{
    for (const char* name : {"frame", "road-bridge", "oddities"}) {
        const std::string sample = std::string(MRL_SAMPLES "/") + name + ".cdb";
        const std::string json = path(std::string(name) + ".json");
        const std::string copy = path(std::string(name) + ".cdb");
        done({"export", sample, "-o", json});
        done({"new", copy, "--from", json});
        EXPECT_EQ(done({"info", copy, "--json"}).json()["designCode"],
                  done({"info", sample, "--json"}).json()["designCode"]);
        const auto keys = done({"keys", sample, "--json"}).json();
        EXPECT_EQ(done({"keys", copy, "--json"}).json(), keys);
        for (const auto& key : keys) {
            const std::string kwh = std::to_string(key["kwh"].get<int>());
            const std::string kwl = std::to_string(key["kwl"].get<int>());
            EXPECT_EQ(done({"get", copy, kwh, kwl, "--json"}).out,
                      done({"get", sample, kwh, kwl, "--json"}).out);
        }
    }
}

TEST_F(CliExchange, NewProjectNeedsACodeOrAFile)
{
    EXPECT_THAT(fails(2, {"new", path("n.cdb")}), HasSubstr("--code or --from"));
    EXPECT_NE(mrlLc({"new", path("n.cdb"), "--from", path("x.json"), "--code", "en1990"}).code, 0);
    EXPECT_EQ(contentOf(path("n.cdb")), "");
}

} // namespace
