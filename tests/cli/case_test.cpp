#include <gmock/gmock.h>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using testing::HasSubstr;

namespace {

class CaseCommand : public CliTest
{
  protected:
    CaseCommand() { makeProject(); }
};

} // namespace

TEST_F(CaseCommand, CreateWithAnActionFollowsItsFactorsWithAFactorOfOne)
{
    EXPECT_EQ(done({"case", "create", file, "3", "--action", "w", "--title", "Wind +X"}).out, "3\n");
    const auto lc = loadCase(3);
    EXPECT_EQ(lc["title"], "Wind +X");
    EXPECT_EQ(lc["action"], "W");
    EXPECT_EQ(lc["kind"], 0);
    EXPECT_EQ(lc["factor"], 1.0);
    EXPECT_EQ(lc["Gamu"], nullptr);
    EXPECT_EQ(lc["Gama"], nullptr);
    EXPECT_EQ(lc["Psi0"], nullptr);
    EXPECT_EQ(lc["Psi1"], nullptr);
    EXPECT_EQ(lc["current"], false);
}

TEST_F(CaseCommand, CreateAnImperfection)
{
    done({"case", "create", file, "3", "--action", "IMP"});
    const auto lc = loadCase(3);
    EXPECT_EQ(lc["action"], "IMP");
    EXPECT_EQ(lc["title"], "Loadcase 3");
    EXPECT_EQ(lc["factor"], 1.0);
}

TEST_F(CaseCommand, CreateWithoutAnAction)
{
    done({"case", "create", file, "3"});
    const auto lc = loadCase(3);
    EXPECT_TRUE(lc["action"].is_null());
    EXPECT_EQ(lc["factor"], 1.0);
    EXPECT_EQ(lc["Gamu"], 0.0);
}

TEST_F(CaseCommand, CreateWithoutANumberTakesTheNextBehindTheHighest)
{
    EXPECT_EQ(done({"case", "create", file}).out, "1\n");
    done({"case", "create", file, "40"});
    done({"put", file, "12", "41", "05000000"}); // another module's
    EXPECT_EQ(done({"case", "create", file, "--action", "G"}).out, "42\n");
}

TEST_F(CaseCommand, CreateWithoutANumberGoesByTheHighestOfItsOwn)
{
    done({"put", file, "12", "1", "05000000"});
    EXPECT_EQ(done({"case", "create", file}).out, "2\n");
    done({"put", file, "12", "700", "05000000"});
    EXPECT_EQ(done({"case", "create", file}).out, "3\n");
}

TEST_F(CaseCommand, CreateWithoutANumberIsRefusedWhenNoneIsLeft)
{
    done({"case", "create", file, "999999"});
    EXPECT_THAT(fails(1, {"case", "create", file}), HasSubstr("999999"));
}

TEST_F(CaseCommand, CreateTakesNumbersFromOneTo999999)
{
    for (const char* number : {"0", "-1", "1000000", "1.5", "x"}) {
        fails(2, {"case", "create", file, number, "--action", "G"});
    }
    done({"case", "create", file, "1"});
    done({"case", "create", file, "999999"});
}

TEST_F(CaseCommand, CreateRefusesANumberThatExists)
{
    done({"case", "create", file, "3", "--action", "G", "--title", "First"});
    done({"put", file, "12", "4", "05000000"});
    const std::string before = contentOf(file);
    for (const char* action : {"G", "IMP", "NONE"}) {
        EXPECT_THAT(fails(1, {"case", "create", file, "3", "--action", action}),
                    HasSubstr("load case 3 exists"));
        EXPECT_THAT(fails(1, {"case", "create", file, "4", "--action", action}),
                    HasSubstr("load case 4 exists"));
    }
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(CaseCommand, CreateRefusesAnActionThatIsNotStored)
{
    EXPECT_THAT(fails(1, {"case", "create", file, "3", "--action", "S"}),
                HasSubstr("the project has no action S"));
    fails(1, {"case", "show", file, "3"});
}

TEST_F(CaseCommand, TitleOf33UnitsFitsAndOneOf34IsWrongUsage)
{
    done({"case", "create", file, "1", "--title", std::string(33, 'x')});
    EXPECT_EQ(loadCase(1)["title"], std::string(33, 'x'));
    EXPECT_THAT(fails(2, {"case", "create", file, "2", "--title", std::string(34, 'x')}),
                HasSubstr("34 units"));
    // A character beyond the basic plane takes two units, so 16 of them fit and 17 don't.
    std::string wide;
    for (int i = 0; i < 16; ++i) {
        wide += "\xF0\x9F\x8F\x97";
    }
    done({"case", "create", file, "2", "--title", wide});
    EXPECT_EQ(loadCase(2)["title"], wide);
    fails(2, {"case", "create", file, "3", "--title", wide + "\xF0\x9F\x8F\x97"});
    fails(2, {"case", "create", file, "3", "--title", "caf\xE9"});
}

TEST_F(CaseCommand, InitTakesTheDefaultLiveOrDeadAction)
{
    done({"case", "init", file, "1"});
    done({"case", "init", file, "2", "--dead", "--current", "--title", "Own"});
    EXPECT_EQ(loadCase(1)["action"], "Q");
    EXPECT_EQ(loadCase(1)["title"], "Variable load");
    EXPECT_TRUE(loadCase(1)["Gamu"].is_null()) << "it follows its action";
    EXPECT_TRUE(loadCase(1)["Gama"].is_null());
    EXPECT_EQ(loadCase(1)["factor"], 1.0);
    EXPECT_EQ(loadCase(2)["action"], "G");
    EXPECT_EQ(loadCase(2)["title"], "Own");
    EXPECT_EQ(loadCase(2)["current"], true);
    EXPECT_THAT(fails(1, {"case", "init", file, "1"}), HasSubstr("exists"));
    fails(2, {"case", "init", file, "0"});
}

TEST_F(CaseCommand, RemoveTakesALoadCaseAway)
{
    done({"case", "create", file, "1"});
    done({"case", "remove", file, "1"});
    fails(1, {"case", "remove", file, "1"});
}

TEST_F(CaseCommand, RemoveSparesOtherModulesWithoutForce)
{
    done({"put", file, "12", "9", "05000000"});
    EXPECT_THAT(fails(1, {"case", "remove", file, "9"}), HasSubstr("--force"));
    done({"get", file, "12", "9"});
    done({"case", "remove", file, "9", "--force"});
    fails(1, {"get", file, "12", "9"});
}

TEST_F(CaseCommand, CurrentIsZeroUntilOneIsSet)
{
    EXPECT_EQ(done({"case", "current", file}).out, "0\n");
    done({"case", "create", file, "5"});
    done({"case", "set-current", file, "5"});
    EXPECT_EQ(done({"case", "current", file}).out, "5\n");
    EXPECT_EQ(done({"case", "current", file, "--json"}).json()["currentLoadCase"], 5);
    fails(1, {"case", "set-current", file, "6"});
    EXPECT_EQ(done({"case", "current", file}).out, "5\n");
}

TEST_F(CaseCommand, ListTellsEveryLoadCaseAscending)
{
    done({"case", "create", file, "12", "--action", "G"});
    done({"case", "create", file, "2", "--action", "IMP"});
    done({"put", file, "12", "7", "05000000"});
    const auto list = done({"case", "list", file, "--json"}).json();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0]["number"], 2);
    EXPECT_EQ(list[1]["number"], 7);
    EXPECT_EQ(list[1]["kind"], 5);
    EXPECT_TRUE(list[1]["title"].is_null());
    EXPECT_EQ(list[2]["action"], "G");
}

TEST_F(CaseCommand, ListOfAnEmptyProjectIsAnEmptyArray)
{
    EXPECT_EQ(done({"case", "list", file, "--json"}).json(), nlohmann::json::array());
}

TEST_F(CaseCommand, ListTakesTheLoadCasesOfOneAction)
{
    done({"case", "create", file, "1", "--action", "G"});
    done({"case", "create", file, "2", "--action", "IMP"});
    done({"case", "create", file, "3"});
    const auto numberOf = [&](const char* action) {
        const auto list = done({"case", "list", file, "--action", action, "--json"}).json();
        return list.size() == 1 ? list[0]["number"].get<int>() : -1;
    };
    EXPECT_EQ(numberOf("g"), 1);
    EXPECT_EQ(numberOf("IMP"), 2);
    EXPECT_EQ(numberOf("NONE"), 3);
}

TEST_F(CaseCommand, ListForPeopleMarksTheCurrentOneAndWhatFollowsItsAction)
{
    done({"case", "init", file, "2", "--current"});
    const std::string out = done({"case", "list", file}).out;
    EXPECT_THAT(out, HasSubstr("\n*      2  Q      Variable load"));
    EXPECT_THAT(out, HasSubstr("      -       -       -"));
}

TEST_F(CaseCommand, ControlCharactersOfATitleDoNotReachTheTerminal)
{
    done({"case", "create", file, "1", "--title", "a\x1b[31mb"});
    EXPECT_THAT(done({"case", "list", file}).out, HasSubstr("a?[31mb"));
    EXPECT_EQ(loadCase(1)["title"], "a\x1b[31mb");
}

TEST_F(CaseCommand, OldActionNumberIsNamedByItsAction)
{
    done({"put", file, "12", "1", "0000000002000000" + std::string(360, '0')});
    done({"put", file, "12", "2", "0000000063000000" + std::string(360, '0')});
    EXPECT_EQ(loadCase(1)["action"], "G");
    EXPECT_EQ(loadCase(2)["action"], "99") << "the design code doesn't know it";
}

TEST_F(CaseCommand, NumbersAreDecimalOrWrongUsage)
{
    EXPECT_EQ(done({"case", "create", file, "010"}).out, "10\n");
    for (const char* number : {"0x10", "0", "1000000", "1e2", "+5", "5 ", "0b1", "''", "99999999999"}) {
        EXPECT_THAT(fails(2, {"case", "create", file, number}), HasSubstr("in decimals")) << number;
    }
}
