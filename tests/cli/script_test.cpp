#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"
#include "lcdata/values/records.h"

using namespace mrl::test;
using testing::HasSubstr;

namespace {

class CliScript : public CliTest
{
  protected:
    CliScript()
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "G", "--title", "Dead"});
        done({"case", "create", file, "2", "--action", "Q", "--title", "Live"});
    }
    std::string script(const std::string& text) const
    {
        std::ofstream(path("s.jsonl"), std::ios::binary) << text;
        return path("s.jsonl");
    }
    std::string title(int number) const { return loadCase(number)["title"]; }
};

TEST_F(CliScript, DoesAllOperationsAndTellsEach)
{
    const auto out = done({"apply", file, script(R"({"op": "action create", "name": "S"}
{"op": "action create", "name": "U1", "partition": "Q_2", "superposition": "COND", "title": "Crane", "Gamu": 1.4}
{"op": "action set", "name": "W", "Psi0": 0.5}

{"op": "case create", "title": "Snow", "action": "S", "DLZ": -0.5}
{"op": "case create", "number": 10, "action": "U1"}
{"op": "case set", "number": 1, "title": "Roof"}
{"op": "case remove", "number": 2}
{"op": "case renumber", "moves": ["1=3", "3=1"]}
{"op": "case create", "number": 2}
{"op": "action remove", "name": "Q"}
)")})
                         .out;
    EXPECT_THAT(out, HasSubstr("{\"line\":5,\"op\":\"case create\",\"number\":3}\n"));
    EXPECT_EQ(title(1), "Snow");
    EXPECT_EQ(title(3), "Roof");
    EXPECT_EQ(title(10), "Loadcase 10");
    EXPECT_EQ(loadCase(2)["action"], nullptr);
    EXPECT_EQ(action("U1")["partition"], "Q_2");
    EXPECT_EQ(mrlLc({"action", "show", file, "Q"}).code, 1);
}

TEST_F(CliScript, OneFailureUndoesAllAndNamesItsLine)
{
    const std::string before = contentOf(file);
    const std::pair<const char*, const char*> scripts[] = {
        {R"({"op": "case create", "number": 2})", "load case 2 exists already"},
        {R"({"op": "case set", "number": 7, "title": "x"})", "there is no load case 7"},
        {R"({"op": "case set", "number": 1, "colour": "x"})", "\"colour\" is not known here"},
        {R"({"op": "case set", "number": 1, "action": "XX"})", "[action-missing]"},
        {R"({"op": "case remove", "number": 7})", "there is no load case 7"},
        {R"({"op": "case renumber", "moves": ["1=2"]})", "load case 2 exists already"},
        {R"({"op": "case renumber", "moves": "1=2"})", "\"moves\" is missing or no list"},
        {R"({"op": "case set", "number": 99999999999})", "\"number\" is missing or no whole number"},
        {R"({"op": "case set", "number": 1, "title": true})", "\"title\" is neither text nor number"},
        {R"({"op": "action create", "name": "U1"})", "the design code has no action U1"},
        {R"({"op": "action create", "name": "Y1", "partition": "Q"})", "[new-name-begins-with-y]"},
        {R"({"op": "action set", "name": "U1"})", "the project has no action U1"},
        {R"({"op": "action remove", "name": "Q"})", "load cases use the action Q: 2"},
        {R"({"op": "dance"})", "there is no operation \"dance\""},
        {"[]", "no JSON object with \"op\""}};
    for (const auto& [text, error] : scripts) {
        const std::string line = R"({"op": "case create", "number": 50})"
                                 "\n" +
                                 std::string(text);
        EXPECT_THAT(fails(1, {"apply", file, script(line)}), HasSubstr("p.cdb: line 2: ")) << text;
        EXPECT_THAT(fails(1, {"apply", file, script(line)}), HasSubstr(error));
        EXPECT_EQ(contentOf(file), before) << text;
    }
}

TEST_F(CliScript, LoadCasesAreRenumberedAtOnceAndTheCurrentOneGoesAlong)
{
    done({"case", "set-current", file, "2"});
    done({"case", "renumber", file, "1=2", "2=1"});
    EXPECT_EQ(title(1), "Live");
    EXPECT_EQ(title(2), "Dead");
    EXPECT_EQ(done({"case", "current", file, "--json"}).json()["currentLoadCase"], 1);
    done({"case", "renumber", file, "1-2=101"});
    EXPECT_EQ(title(101), "Live");
    done({"case", "renumber", file, "100-200:-100"});
    EXPECT_EQ(title(1), "Live");
    EXPECT_THAT(done({"case", "renumber", file, "1-2:+5"}).out, HasSubstr("2 -> 7\n"));
}

TEST_F(CliScript, UnsoundNumbersAreRefused)
{
    EXPECT_THAT(fails(1, {"case", "renumber", file, "1=2"}), HasSubstr("load case 2 exists already"));
    EXPECT_THAT(fails(1, {"case", "renumber", file, "1=5", "2=5"}), HasSubstr("two load cases"));
    EXPECT_THAT(fails(1, {"case", "renumber", file, "1=0"}), HasSubstr("none from 1 to 999999"));
    EXPECT_THAT(fails(1, {"case", "renumber", file, "9=10"}), HasSubstr("there is no load case 9"));
    EXPECT_THAT(fails(2, {"case", "renumber", file, "1>2"}), HasSubstr("none of A=B"));
}

TEST_F(CliScript, RecordsOfOtherGroupsAreNamedBeforeRenumbering)
{
    done({"put", file, "160", "2", "01"});
    const Outcome run = mrlLc({"case", "renumber", file, "2=5"});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out, HasSubstr("record 160/2 keeps its number"));
    EXPECT_EQ(title(2), "Live");
    done({"case", "renumber", file, "2=5", "--force"});
    EXPECT_EQ(title(5), "Live");
}

TEST_F(CliScript, RecordsBehindALoadCaseGoAlong)
{
    done({"put", file, "12", "2", "0700000011", "--append"});
    done({"case", "renumber", file, "2=5"});
    EXPECT_EQ(done({"get", file, "12", "5", "--json"}).json().size(), 2u);
}

TEST_F(CliScript, OwnActionIsMadeAndJudged)
{
    done({"action", "create", file, "U1", "--partition", "Q_3", "--superposition", "COND", "--gamu", "1.4",
          "--title", "Crane"});
    EXPECT_EQ(action("U1")["partition"], "Q_3");
    EXPECT_EQ(action("U1")["title"], "Crane");
    EXPECT_THAT(fails(1, {"action", "create", file, "U2", "--partition", "Q", "--gamu", "1", "--gamf", "2"}),
                HasSubstr("gamf-not-between-0-and-gamu"));
    EXPECT_THAT(fails(1, {"action", "create", file, "IMP", "--partition", "Q"}),
                HasSubstr("new-name-is-imp"));
    EXPECT_THAT(fails(1, {"action", "create", file, "U1", "--partition", "Q"}), HasSubstr("stored already"));
    fails(2, {"action", "create", file, "U3", "--gamu", "1"});
}

TEST_F(CliScript, ActionIsRemovedUnlessLoadCasesUseIt)
{
    EXPECT_THAT(fails(1, {"action", "remove", file, "Q"}), HasSubstr("load cases use the action Q: 2"));
    done({"action", "remove", file, "W"});
    fails(1, {"action", "show", file, "W"});
    fails(1, {"action", "remove", file, "W"});
}

TEST_F(CliScript, CreatedLoadCaseFollowsItsAction)
{
    EXPECT_EQ(loadCase(1)["Gamu"], nullptr);
    EXPECT_EQ(stored<tagCDB_LC_CTRL>(12, "1").psi0, LC_UNDEFINED);
    EXPECT_EQ(loadCase(1)["factor"], 1);
    done({"action", "set", file, "G", "--gamu", "1.2"});
    done({"check", file});
}

TEST_F(CliScript, CheckTellsCopiesThatDifferFromTheAction)
{
    done({"case", "set", file, "2", "--psi0", "0.3"});
    EXPECT_THAT(mrlLc({"check", file, "--json"}).out, HasSubstr("load-case-factors-differ-from-action"));
    EXPECT_EQ(mrlLc({"check", file}).code, 1);
}

} // namespace
