#include <gmock/gmock.h>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::mrlLc;
using testing::HasSubstr;

namespace {

class Verify : public CliTest
{
  protected:
    Verify()
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "G"});
        done({"case", "set-current", file, "1"});
    }

    /// The message of the only finding.
    std::string finding() const
    {
        const auto run = mrlLc({"verify", file, "--json"});
        EXPECT_EQ(run.code, 1);
        const auto findings = run.json()["findings"];
        EXPECT_EQ(findings.size(), 1u) << run.out;
        return findings.empty()
                   ? ""
                   : findings[0]["name"].get<std::string>() + " " + findings[0]["message"].get<std::string>();
    }
};

} // namespace

TEST_F(Verify, SoundProjectHasNoFinding) { EXPECT_EQ(done({"verify", file}).out, "No findings.\n"); }

TEST_F(Verify, ForeignKindsNumericAndReservedKeysAreWhatTheyAre)
{
    done({"put", file, "12", "2", "05000000"});
    done({"put", file, "12", "3", "ffffffff" + std::string(600, 'a')});
    done({"put", file, "14", "5", "01"});
    done({"put", file, "14", "Y1_1", "01000000"});
    done({"put", file, "14", "W", "02000000", "--append"});
    done({"put", file, "99", "1", "01"});
    EXPECT_EQ(done({"verify", file}).out, "No findings.\n");
}

TEST_F(Verify, LoadCaseOfAnotherSizeIsAFinding)
{
    done({"put", file, "12", "2", "00000000"});
    EXPECT_EQ(finding(), "12/2 the load case has 4 bytes instead of 188");
}

TEST_F(Verify, ActionOfAnotherSizeIsAFinding)
{
    done({"put", file, "14", "W", "01000000", "--append"});
    EXPECT_EQ(finding(), "14/" + std::to_string(0x20202057) + " the action has 4 bytes instead of 112");
}

TEST_F(Verify, SystemRecordOfAnotherSizeIsAFinding)
{
    done({"put", file, "10", "0", "0000000003000000"});
    EXPECT_EQ(finding(), "10/0 the system record has 8 bytes instead of 352");
}

TEST_F(Verify, CurrentLoadCaseOfAnotherKindIsAFinding)
{
    done({"put", file, "0", "97", "010000000100000000000000"});
    EXPECT_EQ(finding(), "0/97 the current-load-case record has the kind 1 and counts as absent");
}

TEST_F(Verify, LoadCaseNumberBelowOneIsAFinding)
{
    done({"put", file, "12", "-4", "05000000"});
    EXPECT_EQ(finding(), "12/-4 a load-case number is above 0; no walk meets this key");
}
