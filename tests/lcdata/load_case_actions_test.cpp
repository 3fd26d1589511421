#include <gmock/gmock.h>

#include "lcdata/actions.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/packing.h"
#include "tests/support/project_test.h"

namespace {

using mrl::test::bareLoadCase;
using mrl::test::codeOf;
using mrl::test::DesignCodeBuilder;
using mrl::test::limitsOfOne;
using mrl::test::ProjectTest;
using mrl::test::soundAction;

QString titleOf(const tagCDB_LC_CTRL& record) { return lcm_title_text(record.title); }

using LoadCaseInit = ProjectTest;

TEST_F(LoadCaseInit, MakesALoadCaseOfTheDefaultDeadActionAndStoresTheAction)
{
    tagCDB_LC_CTRL record = bareLoadCase("Q").title("before");
    EXPECT_TRUE(mrl_lc_init(db, 5, record, true, false));
    EXPECT_EQ(record.kind, 0);
    EXPECT_EQ(record.action, codeOf("G"));
    EXPECT_EQ(record.factor, 1.0f);
    EXPECT_EQ(titleOf(record), "Permanent load");
    for (const float field : {record.psi0, record.psi1, record.psi2, record.gamu, record.gamf}) {
        EXPECT_EQ(field, LC_UNDEFINED);
    }
    EXPECT_EQ(std::memcmp(&record, project.bytes(LC_KWH_CASES, 5).data(), sizeof record), 0);
    EXPECT_EQ(project.storedAction("G").gamu, 1.35f);
    EXPECT_EQ(mrl_lc_current(db), 0);
}

TEST_F(LoadCaseInit, TakesTheLiveActionAndMakesItCurrentWhenAsked)
{
    tagCDB_LC_CTRL record{};
    EXPECT_TRUE(mrl_lc_init(db, 6, record, false, true));
    EXPECT_EQ(record.action, codeOf("Q"));
    EXPECT_EQ(mrl_lc_current(db), 6);
}

TEST_F(LoadCaseInit, LeavesItsDatabaseCurrent)
{
    tagCDB_LC_CTRL record{};
    mrl_lc_init(db, 6, record, false, false);
    EXPECT_EQ(mrl_cdb_status(-1), db);
}

TEST_F(LoadCaseInit, ASecondCallReturnsTheStoredRecordAndChangesNothing)
{
    tagCDB_LC_CTRL record{};
    mrl_lc_init(db, 6, record, false, false);
    mrl_cdb_use(other.db(), 0);
    const auto before = project.fingerprint();
    tagCDB_LC_CTRL again{};
    EXPECT_FALSE(mrl_lc_init(db, 6, again, true, true));
    EXPECT_EQ(std::memcmp(&record, &again, sizeof record), 0);
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(LoadCaseInit, KeepsTheFactorsOfAStoredAction)
{
    project.putAction(soundAction("G").gamu(1.2f).title("Own dead"));
    tagCDB_LC_CTRL record{};
    mrl_lc_init(db, 5, record, true, false);
    EXPECT_EQ(project.storedAction("G").gamu, 1.2f);
    EXPECT_EQ(titleOf(record), "Own dead");
}

TEST_F(LoadCaseInit, WithoutAnyDefaultActionTheLoadCaseHasNone)
{
    useCode(DesignCodeBuilder().marks(limitsOfOne()));
    tagCDB_LC_CTRL record{};
    EXPECT_TRUE(mrl_lc_init(db, 5, record, true, false));
    EXPECT_EQ(record.action, 0);
    EXPECT_EQ(titleOf(record), "");
    EXPECT_EQ(project.storedLoadCase(5).gamu, LC_UNDEFINED);
}

using SetAction = ProjectTest;

TEST_F(SetAction, BindsTheRecordAndLeavesItsDatabaseCurrent)
{
    project.putAction(soundAction("W").title("Storm"));
    tagCDB_LC_CTRL record = bareLoadCase().title("x").deadWeight(0, 0, 1).factor(2);
    mrl_lc_set_action(db, record, codeOf("W"), false);
    EXPECT_EQ(record.action, codeOf("W"));
    EXPECT_EQ(titleOf(record), "Storm");
    EXPECT_EQ(record.gamu, LC_UNDEFINED);
    EXPECT_EQ(record.dlz, 1.0f);
    EXPECT_EQ(record.factor, 2.0f);
    EXPECT_EQ(mrl_cdb_status(-1), db);
}

TEST_F(SetAction, AnActionThatIsMissingLeavesNone)
{
    tagCDB_LC_CTRL record = bareLoadCase("G").title("x");
    mrl_lc_set_action(db, record, codeOf("W"), false);
    EXPECT_EQ(record.action, 0);
    EXPECT_EQ(titleOf(record), "");
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("W")));
}

TEST_F(SetAction, CreatesTheActionWhenAsked)
{
    tagCDB_LC_CTRL record{};
    mrl_lc_set_action(db, record, codeOf("W"), true);
    EXPECT_EQ(record.action, codeOf("W"));
    EXPECT_EQ(titleOf(record), "Wind");
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("W")));
}

using InitAction = ProjectTest;

TEST_F(InitAction, ALoadCaseWithoutActionLosesItsTitle)
{
    tagCDB_LC_CTRL record = bareLoadCase().title("x");
    mrl_lc_init_action(db, record, false);
    EXPECT_EQ(titleOf(record), "");
    EXPECT_EQ(record.psi1, LC_UNDEFINED);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(InitAction, AnUnknownActionKeepsItsWordAndClearsTheTitle)
{
    tagCDB_LC_CTRL record = bareLoadCase("ZZ").title("x");
    mrl_lc_init_action(db, record, true);
    EXPECT_EQ(record.action, codeOf("ZZ"));
    EXPECT_EQ(titleOf(record), "");
}

using CreateLoadCase = ProjectTest;

TEST_F(CreateLoadCase, StoresTheActionsFactorsAndLeavesTheFactorZero)
{
    project.putAction(
        soundAction("Q_1").gamu(1.5f).gamf(0.25f).gama(1.0f).psi0(0.7f).psi1(0.5f).psi1s(0.9f).psi2(0.3f));
    EXPECT_TRUE(mrl_lc_create_load_case(db, 3, codeOf("Q_1"), "Wind from the left"));
    const tagCDB_LC_CTRL record = project.storedLoadCase(3);
    EXPECT_EQ(record.action, codeOf("Q_1"));
    EXPECT_EQ(record.gamu, lcm_pack_pair(1.5f, 1.0f));
    EXPECT_EQ(record.psi1, lcm_pack_pair(0.5f, 0.9f));
    EXPECT_EQ(record.gamf, 0.25f);
    EXPECT_EQ(record.psi0, 0.7f);
    EXPECT_EQ(record.psi2, 0.3f);
    EXPECT_EQ(record.factor, 0.0f);
    EXPECT_EQ(titleOf(record), "Wind from the left");
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(CreateLoadCase, TakesANameInText)
{
    project.putAction(soundAction("Q_1"));
    EXPECT_TRUE(mrl_lc_create_load_case(db, 3, QString("q_1"), "Wind"));
    EXPECT_EQ(project.storedLoadCase(3).action, codeOf("Q_1"));
}

TEST_F(CreateLoadCase, RefusesAnActionThatOnlyTheDesignCodeKnows)
{
    const auto before = project.fingerprint();
    EXPECT_FALSE(mrl_lc_create_load_case(db, 3, codeOf("G"), "x"));
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_TRUE(otherIsCurrent());
    EXPECT_TRUE(mrl_lc_create_default_action(db, codeOf("G")));
    EXPECT_TRUE(mrl_lc_create_load_case(db, 3, codeOf("G"), "x"));
}

TEST_F(CreateLoadCase, RefusesANumberThatIsTaken)
{
    project.putAction(soundAction("G"));
    project.putLoadCase(3, bareLoadCase().kind(9));
    const auto before = project.fingerprint();
    EXPECT_FALSE(mrl_lc_create_load_case(db, 3, codeOf("G"), "x"));
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(CreateLoadCase, RefusesNoAction) { EXPECT_FALSE(mrl_lc_create_load_case(db, 3, 0, "x")); }

TEST_F(CreateLoadCase, AnImperfectionReplacesTheLoadCaseOfItsNumber)
{
    project.putLoadCase(3, bareLoadCase("G").factor(2.0f).deadWeight(0, 0, 1));
    EXPECT_TRUE(mrl_lc_create_load_case(db, 3, 70, "Lean"));
    const tagCDB_LC_CTRL expected = bareLoadCase().action(70).title("Lean");
    const tagCDB_LC_CTRL record = project.storedLoadCase(3);
    EXPECT_EQ(std::memcmp(&record, &expected, sizeof record), 0);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(CreateLoadCase, KeepsThirtyThreeUnitsOfTheTitle)
{
    mrl_lc_create_load_case(db, 3, 70, QString(40, 'x'));
    EXPECT_EQ(mrl_lc_get_name(db, 3), QString(33, 'x'));
}

using LoadCaseTypes = ProjectTest;

TEST_F(LoadCaseTypes, GoByTheFamilyOfTheAction)
{
    EXPECT_TRUE(mrl_lc_isdeadtype(db, bareLoadCase("G")));
    EXPECT_FALSE(mrl_lc_isdeadtype(db, bareLoadCase("P")));
    EXPECT_TRUE(mrl_lc_isprestresstype(db, bareLoadCase("P")));
    EXPECT_FALSE(mrl_lc_islivetype(db, bareLoadCase("P")));
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase("Q")));
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase("Q_1"))) << "load groups are live";
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase("A")));
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(LoadCaseTypes, ResolveOldNumbersAndStoredActions)
{
    EXPECT_TRUE(mrl_lc_isdeadtype(db, bareLoadCase().action(2)));
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase().action(7)));
    project.putAction(soundAction("MY").partition(0x20));
    EXPECT_TRUE(mrl_lc_isprestresstype(db, bareLoadCase("MY")));
}

TEST_F(LoadCaseTypes, WhatIsUnknownIsLive)
{
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase("ZZ")));
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase())) << "no action";
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase().action(70)));
    EXPECT_FALSE(mrl_lc_isdeadtype(db, 17)) << "no record";
    EXPECT_FALSE(mrl_lc_isprestresstype(db, 17));
    EXPECT_TRUE(mrl_lc_islivetype(db, 17));
    EXPECT_TRUE(mrl_lc_islivetype(other.db(), bareLoadCase("G"))) << "no design code";
}

TEST_F(LoadCaseTypes, AreAskedByNumber)
{
    project.putLoadCase(1, bareLoadCase("G"));
    project.putLoadCase(2, bareLoadCase("P"));
    project.putLoadCase(3, bareLoadCase("Q"));
    EXPECT_TRUE(mrl_lc_isdeadtype(db, 1));
    EXPECT_FALSE(mrl_lc_islivetype(db, 1));
    EXPECT_TRUE(mrl_lc_isprestresstype(db, 2));
    EXPECT_FALSE(mrl_lc_islivetype(db, 2));
    EXPECT_TRUE(mrl_lc_islivetype(db, 3));
}

TEST_F(LoadCaseTypes, ANegativePartitionTruncatesTowardsZero)
{
    project.putAction(soundAction("MY").partition(-1));
    EXPECT_TRUE(mrl_lc_islivetype(db, bareLoadCase("MY")));
    project.putAction(soundAction("MZ").partition(31));
    EXPECT_TRUE(mrl_lc_isdeadtype(db, bareLoadCase("MZ")));
}

TEST(LoadCaseFromAction, KeepsTheReservedWords)
{
    tagCDB_LC_CTRL record{};
    lcm_load_case_from_action(soundAction("Q_1"), record, 0);
    EXPECT_EQ(record.action, 0);
    lcm_load_case_from_action(soundAction("Q_1"), record, 70);
    EXPECT_EQ(record.action, 70);
    lcm_load_case_from_action(soundAction("Q_1"), record, 5);
    EXPECT_EQ(record.action, codeOf("Q_1"));
}

TEST(LoadCaseFromAction, UndefinedFactorsStayUndefined)
{
    tagCDB_LC_ACT undefined = soundAction("Q");
    lcm_default_factors(codeOf("Q"), undefined);
    tagCDB_LC_CTRL record{};
    lcm_load_case_from_action(undefined, record, codeOf("Q"));
    for (const float field : {record.psi0, record.psi1, record.psi2, record.gamu, record.gamf}) {
        EXPECT_EQ(field, LC_UNDEFINED);
    }
}

TEST(DefaultFactors, AreZeroForNoneAndImperfectionAndElseUndefined)
{
    for (const auto& [word, expected] :
         {std::pair<int, float>{0, 0.0f}, {70, 0.0f}, {2, LC_UNDEFINED}, {codeOf("G"), LC_UNDEFINED}}) {
        tagCDB_LC_ACT record = soundAction("G");
        lcm_default_factors(word, record);
        for (const float factor :
             {record.gamu, record.gamf, record.psi0, record.psi1, record.psi2, record.psi1s, record.gama}) {
            EXPECT_EQ(factor, expected);
        }
        EXPECT_EQ(record.partition, 0x32) << "nothing else changes";
    }
}

using ResolveActionWord = ProjectTest;

TEST_F(ResolveActionWord, ReplacesAnOldNumberByTheCode)
{
    mrl_cdb_use(db, 0);
    const auto resolved = [](std::int32_t word) {
        lcm_resolve_action_word(word);
        return word;
    };
    EXPECT_EQ(resolved(2), codeOf("G"));
    EXPECT_EQ(resolved(12), codeOf("Q"));
    EXPECT_EQ(resolved(codeOf("W")), codeOf("W"));
    EXPECT_EQ(resolved(0), 0);
    EXPECT_EQ(resolved(70), 70);
    EXPECT_EQ(resolved(55), 55) << "an unknown number stays";
    EXPECT_EQ(resolved(codeOf("ZZ")), codeOf("ZZ"));
    project.putAction(soundAction("MY"));
    EXPECT_EQ(resolved(codeOf("MY")), codeOf("MY"));
}

} // namespace
