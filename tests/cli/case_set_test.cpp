#include <gmock/gmock.h>

#include "cli/run.h"
#include "support/record_layout.h"

using mrl::test::CliTest;
using mrl::test::FACTOR_PLACES;
using mrl::test::FactorPlace;
using mrl::test::floatAt;
using mrl::test::Half;
using testing::HasSubstr;

namespace {

class CaseSet : public CliTest
{
  protected:
    CaseSet()
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "W", "--title", "First"});
    }
};

} // namespace

TEST_F(CaseSet, ChangesTitleDeadWeightAndFactor)
{
    const auto before = loadCase(1);
    done({"case", "set", file, "1", "--title", "Second", "--dlx", "0.5", "--dly", "-0.25", "--dlz", "-1",
          "--factor", "1.5"});
    auto after = loadCase(1);
    EXPECT_EQ(after["title"], "Second");
    EXPECT_EQ(after["DLX"], 0.5);
    EXPECT_EQ(after["DLY"], -0.25);
    EXPECT_EQ(after["DLZ"], -1.0);
    EXPECT_EQ(after["factor"], 1.5);
    for (const char* name : {"title", "DLX", "DLY", "DLZ", "factor"}) {
        after[name] = before[name];
    }
    EXPECT_EQ(after, before);
}

TEST_F(CaseSet, NewActionKeepsTitleAndDeadWeightAndIsFollowed)
{
    done({"case", "set", file, "1", "--dlz", "-1", "--factor", "2"});
    done({"case", "set", file, "1", "--action", "G"});
    const auto lc = loadCase(1);
    EXPECT_EQ(lc["action"], "G");
    EXPECT_EQ(lc["title"], "First");
    EXPECT_EQ(lc["DLZ"], -1.0);
    EXPECT_EQ(lc["factor"], 2.0);
    for (const char* name : {"Gamu", "Gamf", "Gama", "Psi0", "Psi1", "Psi2", "Psi1s"}) {
        EXPECT_TRUE(lc[name].is_null()) << name;
    }
}

TEST_F(CaseSet, EveryFactorOptionAndFieldHasItsPlaceInTheRecord)
{
    for (const FactorPlace& place : FACTOR_PLACES) {
        done({"case", "set", file, "1", "--action", "NONE"});
        done({"case", "set", file, "1", "--" + QString(place.key).toLower().toStdString(), "0.5"});
        // The minor one of a pair stands in the field as its ten-thousandth.
        const float expected = place.half == Half::Minor ? 0.5e-4f : 0.5f;
        EXPECT_FLOAT_EQ(floatAt(stored<tagCDB_LC_CTRL>(12, "1"), place.loadCaseByte), expected) << place.key;
        const auto shown = loadCase(1);
        for (const FactorPlace& other : FACTOR_PLACES) {
            EXPECT_EQ(shown[other.key], &other == &place ? 0.5 : 0.0) << place.key << ' ' << other.key;
        }
    }
}

TEST_F(CaseSet, NoActionHasFactorsOfZero)
{
    done({"case", "set", file, "1", "--action", "NONE"});
    EXPECT_TRUE(loadCase(1)["action"].is_null());
    EXPECT_EQ(loadCase(1)["Gamu"], 0.0);
    done({"case", "set", file, "1", "--action", "imp"});
    EXPECT_EQ(loadCase(1)["action"], "IMP");
}

TEST_F(CaseSet, ActionThatIsNotStoredIsRefused)
{
    EXPECT_THAT(fails(1, {"case", "set", file, "1", "--action", "S"}), HasSubstr("no action S"));
    EXPECT_EQ(loadCase(1)["action"], "W");
}

TEST_F(CaseSet, TakesEveryFactor)
{
    done({"case",   "set", file,     "1",   "--action", "NONE", "--gamu", "1.35", "--gamf",  "0.9",
          "--gama", "1.1", "--psi0", "0.7", "--psi1",   "0.5",  "--psi2", "0.3",  "--psi1s", "0.8"});
    const auto lc = loadCase(1);
    EXPECT_EQ(lc["Gamu"], 1.35);
    EXPECT_EQ(lc["Gamf"], 0.9);
    // The minor value of a pair comes in steps of 0.002; 1.1 is 550 of them.
    EXPECT_NEAR(lc["Gama"].get<double>(), 1.1, 0.0021);
    EXPECT_EQ(lc["Psi0"], 0.7);
    EXPECT_EQ(lc["Psi1"], 0.5);
    EXPECT_EQ(lc["Psi2"], 0.3);
    EXPECT_NEAR(lc["Psi1s"].get<double>(), 0.8, 0.0021);
}

TEST_F(CaseSet, GamaOfZeroIsStoredAsAThousandth)
{
    done({"case", "set", file, "1", "--action", "NONE", "--gamu", "1", "--gama", "0"});
    // 0.001 comes back as the next step, 0.002.
    EXPECT_NEAR(loadCase(1)["Gama"].get<double>(), 0.002, 1e-6);
}

TEST_F(CaseSet, OneOfAPairKeepsItsMate)
{
    done({"case", "set", file, "1", "--gama", "0.5"});
    EXPECT_EQ(loadCase(1)["Gamu"], 1.5);
    EXPECT_NEAR(loadCase(1)["Gama"].get<double>(), 0.5, 0.0021);
    done({"case", "set", file, "1", "--gamu", "1.2"});
    EXPECT_EQ(loadCase(1)["Gamu"], 1.2);
    EXPECT_NEAR(loadCase(1)["Gama"].get<double>(), 0.5, 0.0021);
}

TEST_F(CaseSet, OneOfAPairThatFollowedTakesTheActionsValueForItsMate)
{
    done({"case", "set", file, "1", "--action", "W"});
    done({"case", "set", file, "1", "--psi1", "0.4", "--gamu", "1.4"});
    const auto lc = loadCase(1);
    EXPECT_EQ(lc["Psi1"], 0.4);
    EXPECT_EQ(lc["Psi1s"], 0.0);
    EXPECT_EQ(lc["Gamu"], 1.4);
    EXPECT_NEAR(lc["Gama"].get<double>(), 1.0, 0.0021); // that of W
    EXPECT_TRUE(lc["Psi0"].is_null()) << "what has no mate still follows";
}

TEST_F(CaseSet, KeepsWhatOtherModulesStoreBehindTheLoadCase)
{
    const std::string bytes = done({"get", file, "12", "1", "--hex"}).out.substr(6, 376);
    done({"put", file, "12", "1", bytes + "aabb"});
    done({"put", file, "12", "1", "05000000", "--append"});
    done({"case", "set", file, "1", "--title", "Second"});
    const auto records = done({"get", file, "12", "1", "--json"}).json();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0]["bytes"].get<std::string>().substr(376), "aabb");
    EXPECT_EQ(records[1]["bytes"], "05000000");
}

TEST_F(CaseSet, RefusesAMissingLoadCaseAndOneOfAnotherModule)
{
    EXPECT_THAT(fails(1, {"case", "set", file, "2", "--title", "x"}), HasSubstr("no load case 2"));
    done({"put", file, "12", "2", "05000000"});
    EXPECT_THAT(fails(1, {"case", "set", file, "2", "--title", "x"}), HasSubstr("another module"));
}
