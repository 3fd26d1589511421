#include <gmock/gmock.h>

#include <QFile>

#include "cli/run.h"

using namespace mrl::test;
using testing::HasSubstr;

namespace {

/// A project and two copies of it that change apart.
class CliMerge : public CliTest
{
  protected:
    CliMerge() : ours(path("ours.cdb")), theirs(path("theirs.cdb")), out(path("out.cdb"))
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "G", "--title", "Dead"});
        done({"case", "create", file, "2", "--action", "Q", "--title", "Live"});
        done({"put", file, "99", "5", "0102"});
        for (const std::string& copy : {ours, theirs}) {
            EXPECT_TRUE(QFile::copy(QString::fromStdString(file), QString::fromStdString(copy)));
        }
    }
    Outcome merge(const std::vector<std::string>& options = {}) const
    {
        std::vector<std::string> arguments{"merge", file, ours, theirs, "-o", out};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return mrlLc(arguments);
    }
    nlohmann::json caseOf(const std::string& project, const char* number) const
    {
        return done({"case", "show", project, number, "--json"}).json();
    }

    const std::string ours;
    const std::string theirs;
    const std::string out;
};

TEST_F(CliMerge, DiffOfEqualProjectsIsEmpty) { EXPECT_EQ(done({"diff", file, ours}).out, ""); }

TEST_F(CliMerge, DiffTellsActionsLoadCasesFactsAndOtherRecords)
{
    done({"case", "set", ours, "1", "--title", "Roof"});
    done({"case", "remove", ours, "2"});
    done({"case", "create", ours, "3", "--action", "W", "--title", "Wind"});
    done({"action", "set", ours, "Q", "--psi0", "0.6"});
    done({"put", ours, "99", "5", "0103"});
    const Outcome run = mrlLc({"diff", file, ours});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out, HasSubstr("changed loadcase 1\n  title: Dead -> Roof\n"));
    EXPECT_THAT(run.out, HasSubstr("removed loadcase 2\n  title: Live\n"));
    EXPECT_THAT(run.out, HasSubstr("added loadcase 3\n  title: Wind\n  action: W\n"));
    EXPECT_THAT(run.out, HasSubstr("changed action Q\n  Psi0: 1 -> 0.6\n"));
    EXPECT_THAT(run.out, HasSubstr("changed record 99/5\n  bytes: 0102 -> 0103\n"));
    const auto json = mrlLc({"diff", file, ours, "--json"}).json();
    EXPECT_EQ(json["differences"].size(), 5u);
    EXPECT_EQ(json["differences"][0]["subject"], "loadcase");
}

TEST_F(CliMerge, WhatChangedOnOneSideIsTakenValueByValue)
{
    done({"case", "set", ours, "1", "--title", "Roof"});
    done({"case", "set", theirs, "1", "--dlz", "-1"});
    done({"case", "create", theirs, "3", "--action", "W"});
    done({"case", "remove", ours, "2"});
    done({"put", theirs, "99", "5", "0103"});
    EXPECT_EQ(merge().code, 0);
    EXPECT_EQ(caseOf(out, "1")["title"], "Roof");
    EXPECT_EQ(caseOf(out, "1")["DLZ"], -1);
    EXPECT_EQ(caseOf(out, "3")["action"], "W");
    EXPECT_EQ(mrlLc({"case", "show", out, "2"}).code, 1);
    EXPECT_THAT(done({"get", out, "99", "5", "--hex"}).out, HasSubstr("0103"));
}

TEST_F(CliMerge, WhatChangedOnBothIsAConflictWithThreeValues)
{
    done({"case", "set", ours, "1", "--title", "Roof"});
    done({"case", "set", theirs, "1", "--title", "Wall"});
    const Outcome run = merge();
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out, HasSubstr("conflict loadcase 1 title: base Dead, ours Roof, theirs Wall\n"));
    EXPECT_THAT(run.out, HasSubstr("nothing was written"));
    EXPECT_FALSE(QFile::exists(QString::fromStdString(out)));
    EXPECT_EQ(merge({"--theirs"}).code, 0);
    EXPECT_EQ(caseOf(out, "1")["title"], "Wall");
}

TEST_F(CliMerge, RemovedHereAndChangedThereIsAConflict)
{
    done({"case", "remove", ours, "2"});
    done({"case", "set", theirs, "2", "--title", "Crowd"});
    EXPECT_THAT(merge().out, HasSubstr("conflict loadcase 2 presence: base title Live"));
    EXPECT_EQ(merge({"--ours"}).code, 0);
    EXPECT_EQ(mrlLc({"case", "show", out, "2"}).code, 1);
}

TEST_F(CliMerge, ActionRemovedHereAndUsedThereIsAConflictThatASideDecides)
{
    done({"action", "remove", ours, "W"});
    done({"case", "create", theirs, "3", "--action", "W"});
    const Outcome run = merge();
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out, HasSubstr("loadcase 3 action-missing"));
    EXPECT_FALSE(QFile::exists(QString::fromStdString(out)));
    EXPECT_EQ(merge({"--theirs"}).code, 0);
    EXPECT_EQ(done({"check", out}).code, 0);
    EXPECT_EQ(caseOf(out, "3")["action"], "W");
}

TEST_F(CliMerge, ConflictsOfOtherRecordsAndFactsGoByKey)
{
    done({"put", ours, "99", "5", "0103"});
    done({"put", theirs, "99", "5", "0104"});
    const auto json = merge({"--json"}).json();
    EXPECT_EQ(json["written"], false);
    EXPECT_EQ(json["conflicts"][0]["subject"], "record");
    EXPECT_THAT(json["conflicts"][0]["theirs"].get<std::string>(), HasSubstr("0104"));
}

} // namespace
