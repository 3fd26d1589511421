#include <gmock/gmock.h>

#include "cli/run.h"
#include "support/record_layout.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using mrl::test::FACTOR_PLACES;
using mrl::test::FactorPlace;
using mrl::test::floatAt;
using mrl::test::PartitionWord;
using mrl::test::partitionWords;
using testing::HasSubstr;

namespace {

class ActionCommand : public CliTest
{
  protected:
    ActionCommand() { makeProject(); }
};

} // namespace

TEST_F(ActionCommand, ListTellsTheStoredActionsInTheOrderOfTheirCodes)
{
    const auto list = done({"action", "list", file, "--json"}).json();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0]["name"], "G");
    EXPECT_EQ(list[0]["code"], 0x20202047);
    EXPECT_EQ(list[1]["name"], "Q");
    EXPECT_EQ(list[2]["name"], "W");
}

TEST_F(ActionCommand, ListForPeopleIsATable)
{
    EXPECT_THAT(done({"action", "list", file}).out,
                HasSubstr("\nG     Permanent load  G          PERM           1.35"));
}

TEST_F(ActionCommand, ShowTellsEveryField)
{
    const auto q = action("Q");
    EXPECT_EQ(q["title"], "Variable load");
    EXPECT_EQ(q["partition"], "Q");
    EXPECT_EQ(q["superposition"], "COND");
    EXPECT_EQ(q["Gamu"], 1.5);
    EXPECT_EQ(q["Gamf"], 0.0);
    EXPECT_EQ(q["Gama"], 1.0);
    EXPECT_EQ(q["Psi0"], 1.0);
    EXPECT_EQ(q["Psi1"], 0.9); // the shortest digits of the float, not 0.899999976158142
    EXPECT_EQ(q["Psi2"], 0.8);
    EXPECT_EQ(q["Psi1s"], 0.0);
}

TEST_F(ActionCommand, NameInLowerCaseMeansTheStoredOne) { EXPECT_EQ(action("q")["name"], "Q"); }

TEST_F(ActionCommand, ShowRefusesAnActionThatIsNotStored)
{
    EXPECT_EQ(fails(1, {"action", "show", file, "S"}), "mrl-lc: " + file + ": the project has no action S\n");
}

TEST_F(ActionCommand, CreateRefusesAStoredActionAndChangesNothing)
{
    done({"action", "set", file, "G", "--gamu", "1.2"});
    const std::string before = contentOf(file);
    EXPECT_THAT(fails(1, {"action", "create", file, "G"}), HasSubstr("--force"));
    EXPECT_EQ(action("G")["Gamu"], 1.2);
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(ActionCommand, CreateOverwritesWithForce)
{
    done({"action", "set", file, "G", "--gamu", "1.2"});
    done({"action", "create", file, "g", "--force"});
    EXPECT_EQ(action("G")["Gamu"], 1.35);
}

TEST_F(ActionCommand, CreateRefusesWhatTheDesignCodeDoesNotKnow)
{
    EXPECT_EQ(fails(1, {"action", "create", file, "X9"}),
              "mrl-lc: " + file + ": the design code has no action X9\n");
}

TEST_F(ActionCommand, CreateAllRefusesStoredActionsAndCreatesNone)
{
    EXPECT_THAT(fails(1, {"action", "create-all", file}), HasSubstr("stored already: G Q W;"));
    EXPECT_EQ(done({"action", "list", file, "--json"}).json().size(), 3u);
}

TEST_F(ActionCommand, CreateAllLeavesStoredActionsWithMissing)
{
    done({"action", "set", file, "G", "--gamu", "1.2"});
    done({"action", "create-all", file, "--missing"});
    EXPECT_EQ(done({"action", "list", file, "--json"}).json().size(), 18u);
    EXPECT_EQ(action("G")["Gamu"], 1.2);
}

TEST_F(ActionCommand, CreateAllOverwritesWithForce)
{
    done({"action", "set", file, "G", "--gamu", "1.2"});
    done({"action", "create-all", file, "--force"});
    EXPECT_EQ(action("G")["Gamu"], 1.35);
    fails(2, {"action", "create-all", file, "--force", "--missing"});
}

TEST_F(ActionCommand, SetChangesWhatIsNamedAndNothingElse)
{
    const auto before = action("W");
    done({"action", "set", file, "W", "--title", "Wind, γ", "--psi0", "0.55"});
    auto after = action("W");
    EXPECT_EQ(after["title"], "Wind, γ");
    EXPECT_EQ(after["Psi0"], 0.55);
    after["title"] = before["title"];
    after["Psi0"] = before["Psi0"];
    EXPECT_EQ(after, before);
}

TEST_F(ActionCommand, SetTakesEveryFactor)
{
    done({"action", "set", file, "W", "--gamu", "1.6", "--gamf", "0.1", "--gama", "0.9", "--psi0", "0.8",
          "--psi1", "0.6", "--psi2", "0.2", "--psi1s", "0.7"});
    const auto w = action("W");
    EXPECT_EQ(w["Gamu"], 1.6);
    EXPECT_EQ(w["Gamf"], 0.1);
    EXPECT_EQ(w["Gama"], 0.9);
    EXPECT_EQ(w["Psi0"], 0.8);
    EXPECT_EQ(w["Psi1"], 0.6);
    EXPECT_EQ(w["Psi2"], 0.2);
    EXPECT_EQ(w["Psi1s"], 0.7);
}

TEST_F(ActionCommand, EveryFactorOptionAndFieldHasItsPlaceInTheRecord)
{
    for (const FactorPlace& place : FACTOR_PLACES) {
        const std::string option = "--" + QString(place.key).toLower().toStdString();
        const float value = 0.25f + static_cast<float>(place.actionByte) / 128.0f;
        done({"action", "set", file, "W", option, std::to_string(value)});
        EXPECT_EQ(floatAt(stored<tagCDB_LC_ACT>(14, "W"), place.actionByte), value) << place.key;
        EXPECT_EQ(action("W")[place.key], static_cast<double>(value)) << place.key;
    }
}

TEST_F(ActionCommand, EveryWordHasItsBitsInTheRecordBothWays)
{
    for (const PartitionWord& expected : partitionWords()) {
        done({"action", "set", file, "W", "--partition", expected.partition, "--superposition",
              expected.superposition});
        EXPECT_EQ(stored<tagCDB_LC_ACT>(14, "W").partition, expected.word)
            << expected.partition << ' ' << expected.superposition;
        const auto shown = action("W");
        EXPECT_EQ(shown["partition"], expected.partition);
        EXPECT_EQ(shown["superposition"], expected.superposition);
    }
}

TEST_F(ActionCommand, SetStoresAGamaOfZeroAsAThousandth)
{
    done({"action", "set", file, "W", "--gama", "0"});
    EXPECT_EQ(action("W")["Gama"], 0.0);
    // The tenth word, behind kind, name, partition and six factors; 0.001f is 0x3a83126f.
    EXPECT_EQ(done({"get", file, "14", "W", "--hex"}).out.substr(6 + 72, 8), "6f12833a");
}

TEST_F(ActionCommand, SetPartitionAndSuperpositionKeepEachOther)
{
    done({"action", "set", file, "W", "--partition", "Q_3"});
    EXPECT_EQ(action("W")["partition"], "Q_3");
    EXPECT_EQ(action("W")["superposition"], "EXCL");
    done({"action", "set", file, "W", "--superposition", "PERC"});
    EXPECT_EQ(action("W")["partition"], "Q_3");
    EXPECT_EQ(action("W")["superposition"], "PERC");
    fails(2, {"action", "set", file, "W", "--partition", "Q_6"});
    fails(2, {"action", "set", file, "W", "--superposition", "perm"});
}

TEST_F(ActionCommand, SetLeavesTheOtherRecordsOfTheKeyAndWhatStandsBehindTheAction)
{
    std::string bytes = done({"get", file, "14", "W", "--hex"}).out.substr(6, 224);
    done({"put", file, "14", "W", "02000000"});
    done({"put", file, "14", "W", bytes + "aabb", "--append"});
    done({"put", file, "14", "W", "03000000", "--append"});
    done({"action", "set", file, "W", "--psi2", "0.1"});
    const auto records = done({"get", file, "14", "W", "--json"}).json();
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0]["bytes"], "02000000");
    EXPECT_EQ(records[1]["length"], 114);
    EXPECT_EQ(records[1]["bytes"].get<std::string>().substr(224), "aabb");
    EXPECT_EQ(records[2]["bytes"], "03000000");
    EXPECT_EQ(action("W")["Psi2"], 0.1);
}

TEST_F(ActionCommand, SetRefusesAnActionThatIsNotStored)
{
    fails(1, {"action", "set", file, "S", "--gamu", "1"});
}

TEST_F(ActionCommand, NumbersThatAreNoneAreWrongUsage)
{
    for (const char* number : {"1,35", "nan", "inf", "1e39", "", "1.0x"}) {
        EXPECT_THAT(fails(2, {"action", "set", file, "W", "--gamu", number}), HasSubstr("--gamu")) << number;
    }
}
