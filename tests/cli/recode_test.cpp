// Another design code for a project, and where its factors come from.
#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"
#include "lcdata/values/records.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using mrl::test::mrlLc;
using testing::HasSubstr;

namespace {

class Recode : public CliTest
{
  protected:
    /// The plan for an action.
    nlohmann::json rowOf(const nlohmann::json& plan, const std::string& action) const
    {
        for (const auto& row : plan["actions"]) {
            if (row["action"] == action) {
                return row;
            }
        }
        return {};
    }
    /// All records of the project as text.
    std::string everyRecord() const
    {
        std::string text;
        for (const auto& key : done({"keys", file, "--json"}).json()) {
            const std::string group = std::to_string(key["kwh"].get<int>());
            const std::string element = std::to_string(key["kwl"].get<int>());
            text += group + " " + element + " " + done({"get", file, group, element, "--hex"}).out;
        }
        return text;
    }
};

/// The system and the dead weight beside the code.
class RecodeSystem : public Recode
{
  protected:
    RecodeSystem()
    {
        makeProject();
        done({"case", "create", file, "--action", "G"});
        done({"case", "create", file, "--action", "G"});
        done({"case", "set", file, "1", "--dlz", "-1"});
        done({"case", "set", file, "2", "--dlx", "0.5"});
    }
    /// The plan for another system.
    nlohmann::json plan(const std::vector<std::string>& options) const
    {
        std::vector<std::string> command{"recode", file, "--code", "en1990", "--json"};
        command.insert(command.end(), options.begin(), options.end());
        return done(command).json();
    }
};

class Why : public CliTest
{
};

} // namespace

TEST_F(Recode, DefaultsTakeTheNewDefaultsAndOwnValuesStay)
{
    makeProject();
    done({"action", "set", file, "Q", "--psi0", "0.65"});
    const auto plan = done({"recode", file, "--code", "bs-en1990-na", "--json"}).json();
    EXPECT_EQ(rowOf(plan, "W")["what"], "takes the new default");
    EXPECT_EQ(rowOf(plan, "W")["changes"], nlohmann::json::parse(R"(["Psi0 0.6 > 0.5"])"));
    EXPECT_EQ(rowOf(plan, "Q")["what"], "keeps its values");
    EXPECT_FLOAT_EQ(action("W")["Psi0"], 0.5f);
    EXPECT_FLOAT_EQ(action("Q")["Psi0"], 0.65f);
    const auto info = done({"info", file, "--json"}).json();
    EXPECT_EQ(info["designCode"]["name"], "bs-en1990-na");
    EXPECT_EQ(info["designCode"]["kept"]["state"], "same");
}

TEST_F(Recode, ThereAndBackLeavesEveryRecordByteForByte)
{
    makeProject();
    done({"action", "set", file, "Q", "--psi0", "0.65"});
    done({"case", "create", file, "--action", "W"});
    done({"case", "set", file, "1", "--dlz", "-1"});
    done({"case", "create", file, "--action", "Q"});
    done({"put", file, "14", "W", "0102", "--append"}); // of another module
    done({"put", file, "77", "5", "0304"});
    const std::string before = everyRecord();
    for (const std::vector<std::string>& there :
         {std::vector<std::string>{"--code", "bs-en1990-na"},
          {"--code", "en1990", "--map", "W=T", "--map", "Q=S"},
          {"--code", "en1990", "--gravity", "+Y", "--move-dead-weight"}}) {
        std::vector<std::string> command{"recode", file};
        command.insert(command.end(), there.begin(), there.end());
        done(command);
        EXPECT_NE(everyRecord(), before);
        const bool isMapped = there.size() == 6;
        std::vector<std::string> back{
            "recode", file, "--code", "en1990", "--gravity", "-Z", "--move-dead-weight"};
        if (isMapped) {
            back.insert(back.end(), {"--map", "T=W", "--map", "S=Q"});
        }
        done(back);
        EXPECT_EQ(everyRecord(), before);
    }
}

TEST_F(Recode, DryRunWritesNothing)
{
    makeProject();
    const std::string before = contentOf(file);
    EXPECT_THAT(done({"recode", file, "--code", "bs-en1990-na", "--dry-run"}).out,
                HasSubstr("Psi0 0.6 > 0.5"));
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(Recode, MappedActionIsRenamedWithItsLoadCases)
{
    makeProject();
    done({"case", "create", file, "--action", "Q"});
    const auto plan =
        done({"recode", file, "--code", "asce7-22-lrfd", "--map", "G=D", "--map", "Q=L", "--json"}).json();
    EXPECT_EQ(rowOf(plan, "Q")["becomes"], "L");
    EXPECT_EQ(rowOf(plan, "Q")["loadCases"], nlohmann::json::parse("[1]"));
    EXPECT_EQ(rowOf(plan, "G")["what"], "takes the new default");
    EXPECT_EQ(loadCase(1)["action"], "L");
    EXPECT_FLOAT_EQ(action("L")["Gamu"], 1.6f);
    EXPECT_FLOAT_EQ(action("D")["Gamu"], 1.2f);
    fails(1, {"action", "show", file, "Q"});
}

TEST_F(Recode, FactorsThatTheNewCodeLacksAreTold)
{
    makeProject();
    done({"action", "set", file, "W", "--psi0", "0.65"});
    const auto plan = done({"recode", file, "--code", "asce7-22-lrfd", "--dry-run", "--json"}).json();
    EXPECT_EQ(rowOf(plan, "W")["dropped"], nlohmann::json::parse(R"(["Gama", "Psi0", "Psi1"])"));
    EXPECT_EQ(rowOf(plan, "G")["what"], "stays as an own action");
}

TEST_F(Recode, ProjectWithoutAMatchIsRefusedAndStays)
{
    done({"new", file, "--code", "en1990"});
    done({"action", "create", file, "G"});
    const std::string before = contentOf(file);
    EXPECT_THAT(fails(1, {"recode", file, "--code", "asce7-22-lrfd"}),
                HasSubstr("would activate all of its default actions; map at least one"));
    EXPECT_EQ(contentOf(file), before);
    fails(2, {"recode", file, "--code", "asce7-22-lrfd", "--map", "G"});
    EXPECT_THAT(fails(1, {"recode", file, "--code", "asce7-22-lrfd", "--map", "G=NONE"}),
                HasSubstr("the new code has no action NONE"));
}

TEST_F(Recode, MappedNamesMayBeExchanged)
{
    makeProject();
    done({"case", "create", file, "--action", "W"});
    const auto plan =
        done({"recode", file, "--code", "en1990", "--map", "W=Q", "--map", "Q=W", "--json"}).json();
    EXPECT_EQ(rowOf(plan, "W")["becomes"], "Q");
    EXPECT_EQ(plan["loadCases"][0]["changes"], nlohmann::json::parse(R"(["action W > Q"])"));
    EXPECT_EQ(loadCase(1)["action"], "Q");
    EXPECT_THAT(fails(1, {"recode", file, "--code", "en1990", "--map", "W=G"}),
                HasSubstr("two actions would have the name G"));
}

TEST_F(Recode, OldNumberOfALoadCaseKeepsItsAction)
{
    makeProject();
    done({"case", "create", file, "--action", "G"});
    // 2 is an old number of G in the one code and of D in the other.
    auto record = stored<tagCDB_LC_CTRL>(12, "1");
    record.action = 2;
    const QByteArray bytes(reinterpret_cast<const char*>(&record), sizeof record);
    done({"put", file, "12", "1", bytes.toHex().toStdString()});
    ASSERT_EQ(loadCase(1)["action"], "G");
    done({"recode", file, "--code", "bs-en1990-na"});
    EXPECT_EQ(stored<tagCDB_LC_CTRL>(12, "1").action, 2) << "it means G in both";
    done({"recode", file, "--code", "asce7-22-lrfd", "--map", "Q=L"});
    EXPECT_EQ(loadCase(1)["action"], "G") << "an own action now";
}

TEST_F(RecodeSystem, OnlyTheTwoWordsOfTheSystemChange)
{
    const auto words = [this] { return done({"get", file, "10", "0", "--hex"}).out.substr(6); };
    std::string record = words();
    record.pop_back();
    record.replace(record.size() - 4, 4, "abcd"); // what other modules keep there
    done({"put", file, "10", "0", record});
    done({"case", "remove", file, "2"});
    const auto change = plan({"--system", "plate", "--gravity", "+Z"});
    EXPECT_EQ(change["system"], nlohmann::json::parse(R"({"before": "spatial", "after": "plate"})"));
    EXPECT_EQ(words(), "1400000003000000" + record.substr(16) + "\n");
    plan({"--system", "plate"});
    EXPECT_EQ(words(), "1400000003000000" + record.substr(16) + "\n");
}

TEST_F(RecodeSystem, GravityAloneLeavesTheDeadWeightWhereItIs)
{
    const auto change = plan({"--gravity", "+Y"});
    EXPECT_EQ(change["gravity"], nlohmann::json::parse(R"({"before": "-Z", "after": "+Y"})"));
    EXPECT_TRUE(change["loadCases"].empty());
    EXPECT_EQ(done({"info", file, "--json"}).json()["gravity"], "+Y");
    EXPECT_EQ(stored<tagCDB_LC_CTRL>(12, "1").dlz, -1.0f);
}

TEST_F(RecodeSystem, DeadWeightInADirectionThatIsNoLongerOfferedIsRefused)
{
    const std::string before = contentOf(file);
    EXPECT_THAT(fails(1, {"recode", file, "--code", "en1990", "--system", "plane", "--gravity", "-Y"}),
                HasSubstr("(load case 1 has dead weight in Z)"));
    EXPECT_EQ(contentOf(file), before);
    EXPECT_THAT(fails(1, {"recode", file, "--code", "en1990", "--system", "plate", "--move-dead-weight"}),
                HasSubstr("(load case 2 has dead weight in X)"))
        << "it doesn't act along gravity";
}

TEST_F(RecodeSystem, DeadWeightMovesToTheNewDirectionOfGravityWhereItIsWanted)
{
    const auto change = plan({"--system", "plane", "--gravity", "+Y", "--move-dead-weight"});
    EXPECT_EQ(change["loadCases"],
              nlohmann::json::parse(R"([{"number": 1, "changes": ["DLY 0 > 1", "DLZ -1 > 0"]}])"));
    const auto moved = stored<tagCDB_LC_CTRL>(12, "1");
    EXPECT_EQ(moved.dlz, 0.0f);
    EXPECT_EQ(moved.dly, 1.0f) << "along gravity as before";
    EXPECT_EQ(stored<tagCDB_LC_CTRL>(12, "2").dlx, 0.5f);
}

TEST_F(Why, TellsTheChainFromTheLoadCaseToTheClause)
{
    makeProject();
    done({"case", "create", file, "--action", "Q"});
    const std::string out = done({"why", file, "1", "gamu"}).out;
    EXPECT_THAT(out, HasSubstr("Action:       Q, Gamu 1.5\n"));
    EXPECT_THAT(out, HasSubstr("en1990.ini:"));
    EXPECT_THAT(out, HasSubstr("Clause:       Table A1.2(B)\nState:        verified\n"));
    done({"action", "set", file, "Q", "--gamu", "1.4"});
    EXPECT_THAT(
        done({"why", file, "1", "Gamu"}).out,
        HasSubstr("Action:       Q, Gamu 1.4\nDesign code:  en1990, 1.5: the action's is set by hand\n"));
    fails(2, {"why", file, "1", "Psi9"});
    fails(1, {"why", file, "9", "Psi0"});
}
