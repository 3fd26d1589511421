#include <gmock/gmock.h>

#include <fstream>

#include "cli/run.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"

using mrl::test::CliTest;
using mrl::test::mrlLc;
using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::UnorderedElementsAre;

namespace {

/// A roof: weight, snow and wind with one load case each, by EN 1990.
class Combine : public CliTest
{
  protected:
    Combine()
    {
        done({"new", file, "--code", "en1990"});
        for (const char* action : {"G", "S", "W"}) {
            done({"action", "create", file, action});
        }
        create(1, "G");
        create(2, "S");
        create(3, "W");
    }

    void create(int number, const std::string& action) const
    {
        done({"case", "create", file, std::to_string(number), "--action", action});
    }
    std::vector<std::string> keys(std::vector<std::string> options = {}) const
    {
        options.insert(options.begin(), {"combine", file, "--json"});
        const json document = done(options).json();
        std::vector<std::string> keys;
        for (const json& each : document["combinations"]) {
            keys.push_back(each["key"]);
        }
        return keys;
    }
    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name)) << text;
        return path(name);
    }
};

} // namespace

TEST_F(Combine, ListsThePersistentCombinations)
{
    const json document = done({"combine", file, "--json"}).json();
    EXPECT_EQ(document["situation"], "persistent");
    // 1.35 or 1; nothing, S, W, S with W, W with S
    EXPECT_EQ(document["count"], "10");
    EXPECT_EQ(document["distinct"], "10");
    EXPECT_EQ(document["combinations"].size(), 10u);
    EXPECT_EQ(document.size(), 4u);
    EXPECT_THAT(keys(), IsSupersetOf({"1.35*1+1.5*2+0.9*3", "1.35*1+0.75*2+1.5*3", "1*1"}));
    for (const json& each : document["combinations"]) {
        EXPECT_EQ(each.size(), 3u);
        EXPECT_TRUE(each["expression"].is_null());
        if (each["key"] == "1.35*1+1.5*2+0.9*3") {
            EXPECT_EQ(each["leading"], "S");
        } else if (each["key"] == "1*1") {
            EXPECT_TRUE(each["leading"].is_null());
        }
    }
}

TEST_F(Combine, ListsAnotherSituation)
{
    // Psi2 of both is 0: beside the leading one the other one adds nothing.
    EXPECT_THAT(keys({"--situation", "frequent"}),
                UnorderedElementsAre("1*1", "1*1+0.2*2", "1*1+0.2*2", "1*1+0.2*3", "1*1+0.2*3"));
    EXPECT_EQ(done({"combine", file, "--situation", "frequent", "--json"}).json()["distinct"], "3");
    const json document = done({"combine", file, "--situation", "persistent-ab", "--json"}).json();
    EXPECT_EQ(document["combinations"][0]["expression"], "6.10a");
}

TEST_F(Combine, CountsEachExpression)
{
    const json document = done({"combine", file, "--situation", "persistent-ab", "--count", "--json"}).json();
    ASSERT_EQ(document["expressions"].size(), 2u);
    // 6.10a: nobody leads; S and W act or not
    EXPECT_EQ(document["expressions"][0]["count"], "8");
    EXPECT_EQ(document["expressions"][1]["expression"], "6.10b");
    EXPECT_EQ(document["expressions"][1]["count"], "10");
    EXPECT_EQ(document["count"], "18");
    EXPECT_FALSE(document.contains("combinations"));
    EXPECT_EQ(done({"combine", file, "--count"}).out, "persistent: 10 combinations, 10 different\n");
}

TEST_F(Combine, RefusesMoreThanTheLimitWithTheCount)
{
    EXPECT_THAT(fails(1, {"combine", file, "--limit", "9"}), HasSubstr("10 combinations, more than 9"));
    EXPECT_EQ(keys({"--limit", "10"}).size(), 10u);
}

TEST_F(Combine, PrintsALineForEachCombination)
{
    EXPECT_THAT(done({"combine", file}).out,
                AllOf(HasSubstr("persistent: 10 combinations, 10 different\n"),
                      HasSubstr("\nS             -             1.35*1+1.5*2+0.9*3\n")));
}

TEST_F(Combine, KeepsThoseThatGovernAResponse)
{
    const std::string responses = write("r.csv", "name,1,2,3\nM,10,5,-2\nN,10,5,-2\nV,1,0,7\n");
    EXPECT_THAT(keys({"--keep", responses}), ElementsAre("1.35*1+1.5*2", "1*1+1.5*3", "1.35*1+1.5*3", "1*1"));
    EXPECT_THAT(fails(3, {"combine", file, "--keep", write("bad.csv", "name,1,2\nM,10,5\n")}),
                HasSubstr("no column for load case 3"));
}

TEST_F(Combine, TellsWhatIsLeftOut)
{
    create(41, "IMP");
    done({"case", "create", file, "50"});
    const auto run = mrlLc({"combine", file, "--count"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "persistent: 10 combinations, 10 different\n");
    EXPECT_THAT(run.err,
                AllOf(HasSubstr("load case 41: an imperfection, which the situation doesn't bring in"),
                      HasSubstr("load case 50: it has neither an action nor factors")));
    done({"action", "create", file, "A"});
    create(60, "A");
    EXPECT_THAT(mrlLc({"combine", file, "--count"}).err,
                HasSubstr("action A doesn't act in situation persistent"));
}

TEST_F(Combine, TakesALoadCaseWithFactorsOfItsOwnAsAnActionOfItsOwn)
{
    done({"case", "create", file, "7"});
    done({"case", "set", file, "7", "--gamu", "1.5", "--psi0", "0.7"});
    EXPECT_THAT(keys(), IsSupersetOf({"1.35*1+1.5*7", "1.35*1+1.5*2+0.9*3+1.05*7"}));
    done({"case", "set", file, "7", "--gamf", "1"}); // above 0: it is permanent
    EXPECT_THAT(keys(), IsSupersetOf({"1.35*1+1.5*7", "1.35*1+1*7"}));
    for (const std::string& key : keys()) {
        EXPECT_THAT(key, HasSubstr("*7"));
    }
}

TEST_F(Combine, RefusesLoadCasesWithTheirNumbers)
{
    create(8, "S");
    create(9, "S");
    done({"del", file, "14", "S"});
    const std::string unknown = fails(1, {"combine", file});
    EXPECT_THAT(unknown, HasSubstr("load cases 2, 8, 9: action S is not known"));
    done({"action", "create", file, "S"});
    done({"action", "set", file, "W", "--gamf", "2"});
    EXPECT_THAT(fails(1, {"combine", file}), HasSubstr("load case 3: action W: "));
}

TEST_F(Combine, RefusesALoadCaseWithOtherFactorsThanItsActionAndTellsTheCure)
{
    auto record = stored<tagCDB_LC_CTRL>(LC_KWH_CASES, "3");
    record.psi0 = 0.3f;
    const QByteArray bytes(reinterpret_cast<const char*>(&record), sizeof record);
    done({"put", file, std::to_string(LC_KWH_CASES), "3", bytes.toHex().toStdString()});
    EXPECT_THAT(
        fails(1, {"combine", file}),
        HasSubstr("load case 3: it keeps factors that differ from those of its action W, which count; "
                  "choose the action again to let it follow"));
    done({"case", "set", file, "3", "--action", "W"});
    EXPECT_EQ(keys().size(), 10u);
}

TEST_F(Combine, RefusesASituationThatTheCodeLacks)
{
    EXPECT_THAT(fails(1, {"combine", file, "--situation", "winter"}),
                HasSubstr("no situation winter; it has persistent, "));
}

TEST_F(Combine, CountsTheSampleFrame)
{
    const auto run = mrlLc({"combine", MRL_SAMPLES "/frame.cdb", "--count", "--json"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.json()["count"], "15233672");
    EXPECT_EQ(run.json()["distinct"], "8501576");
    EXPECT_THAT(run.err, HasSubstr("an imperfection"));
    EXPECT_THAT(fails(1, {"combine", MRL_SAMPLES "/frame.cdb"}), HasSubstr("15233672 combinations"));
}
