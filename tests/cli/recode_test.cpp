// Another design code for a project, and where its factors come from.
#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"

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

TEST_F(Recode, ThereAndBackLeavesEveryRecordAsItWas)
{
    makeProject();
    done({"action", "set", file, "Q", "--psi0", "0.65"});
    done({"case", "create", file, "--action", "W"});
    const auto all = [&] {
        std::string text;
        for (const char* name : {"G", "Q", "W"}) {
            text += done({"get", file, "14", name}).out;
        }
        return text + done({"get", file, "12", "1"}).out;
    };
    const std::string before = all();
    done({"recode", file, "--code", "bs-en1990-na"});
    EXPECT_NE(all(), before);
    done({"recode", file, "--code", "en1990"});
    EXPECT_EQ(all(), before);
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
