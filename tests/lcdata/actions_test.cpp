#include "lcdata/actions.h"

#include <gmock/gmock.h>

#include "lcdata/load_cases.h"
#include "tests/support/project_test.h"

namespace {

using mrl::test::codeOf;
using mrl::test::DesignCodeBuilder;
using mrl::test::limitsOfOne;
using mrl::test::MemoryProject;
using mrl::test::ProjectTest;
using mrl::test::soundAction;
using ::testing::ElementsAre;

bool sameBytes(const tagCDB_LC_ACT& a, const tagCDB_LC_ACT& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

tagCDB_LC_ACT filled()
{
    tagCDB_LC_ACT record;
    std::memset(&record, 0x55, sizeof record);
    return record;
}

using CodeHasActions = ProjectTest;

TEST_F(CodeHasActions, AnyOfTheSixMarksWillDo)
{
    using Field = float tagCDB_LC_ACT::*;
    for (const Field field : {&tagCDB_LC_ACT::gamu, &tagCDB_LC_ACT::gamf, &tagCDB_LC_ACT::psi0,
                              &tagCDB_LC_ACT::psi1, &tagCDB_LC_ACT::psi2, &tagCDB_LC_ACT::psi1s}) {
        tagCDB_LC_ACT marks{};
        marks.*field = 0.5f;
        useCode(DesignCodeBuilder().marks(marks));
        EXPECT_TRUE(mrl_lc_code_has_actions(db));
    }
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(CodeHasActions, TheAccidentalFactorAloneIsNotLookedAt)
{
    tagCDB_LC_ACT marks{};
    marks.gama = 1.0f;
    marks.gamu = -1.0f;
    useCode(DesignCodeBuilder().marks(marks));
    EXPECT_FALSE(mrl_lc_code_has_actions(db));
}

TEST_F(CodeHasActions, AProjectWithoutDesignCodeHasNone)
{
    EXPECT_FALSE(mrl_lc_code_has_actions(other.db()));
    MemoryProject third;
    EXPECT_FALSE(mrl_lc_code_has_actions(third.db()));
    EXPECT_TRUE(otherIsCurrent());
}

using HasAction = ProjectTest;

TEST_F(HasAction, AsksTheProjectAndNotTheDesignCode)
{
    EXPECT_FALSE(mrl_lc_has_action(db, codeOf("G")));
    project.putAction(soundAction("G"));
    EXPECT_TRUE(mrl_lc_has_action(db, codeOf("G")));
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(HasAction, ARecordThatHadToBeCutDoesNotCountUnlikeALoadCase)
{
    const unsigned char longer[200] = {1};
    project.put(LC_KWH_ACTIONS, codeOf("G"), longer);
    project.put(LC_KWH_CASES, 1, longer);
    EXPECT_FALSE(mrl_lc_has_action(db, codeOf("G")));
    EXPECT_TRUE(mrl_lc_exists(db, 1));
}

TEST_F(HasAction, AKeyLeftOpenHarmsNobody)
{
    project.putAction(soundAction("G").title("one"));
    EXPECT_TRUE(mrl_lc_has_action(db, codeOf("G"))); // leaves the key open
    project.putAction(soundAction("G").title("two"));
    EXPECT_EQ(lcm_title_text(project.storedAction("G").title), "two");
    EXPECT_TRUE(mrl_lc_has_action(db, codeOf("G")));
    EXPECT_EQ(mrl_cdb_del(db, LC_KWH_ACTIONS, codeOf("G")), CD_OK);
    EXPECT_FALSE(mrl_lc_has_action(db, codeOf("G")));
}

using GetAction = ProjectTest;

TEST_F(GetAction, NoActionIsAZeroedRecord)
{
    tagCDB_LC_ACT record = filled();
    const auto before = project.fingerprint();
    EXPECT_TRUE(mrl_lc_getAction(db, 0, record, true));
    EXPECT_TRUE(sameBytes(record, tagCDB_LC_ACT{}));
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_TRUE(mrl_lc_getAction(-1, 0, record, true)) << "not even the database is asked";
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(GetAction, ReadsTheStoredRecord)
{
    const tagCDB_LC_ACT stored = soundAction("W").gamu(1.1f).title("Storm");
    project.putAction(stored);
    tagCDB_LC_ACT record = filled();
    EXPECT_TRUE(mrl_lc_getAction(db, codeOf("W"), record, false));
    EXPECT_TRUE(sameBytes(record, stored));
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(GetAction, AMissingActionIsNotFoundWithoutCreate)
{
    tagCDB_LC_ACT record{};
    EXPECT_FALSE(mrl_lc_getAction(db, codeOf("W"), record, false));
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("W")));
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(GetAction, CreateWritesTheDesignCodesAction)
{
    tagCDB_LC_ACT record{};
    EXPECT_TRUE(mrl_lc_getAction(db, codeOf("W"), record, true));
    EXPECT_EQ(lcm_title_text(record.title), "Wind");
    EXPECT_TRUE(sameBytes(record, project.storedAction("W")));
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(GetAction, CreateWritesNothingForAnActionThatTheDesignCodeDoesNotKnow)
{
    const auto before = project.fingerprint();
    tagCDB_LC_ACT record{};
    EXPECT_FALSE(mrl_lc_getAction(db, codeOf("ZZ"), record, true));
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(GetAction, AnOldNumberStandsForItsAction)
{
    project.putAction(soundAction("Q").title("stored"));
    tagCDB_LC_ACT record{};
    EXPECT_TRUE(mrl_lc_getAction(db, 12, record, false));
    EXPECT_EQ(lcm_title_text(record.title), "stored") << "the stored record and not the default";
}

TEST_F(GetAction, AnOldNumberOfAMissingActionLeavesTheDefaultInTheRecord)
{
    tagCDB_LC_ACT record{};
    EXPECT_FALSE(mrl_lc_getAction(db, 4, record, false));
    EXPECT_EQ(lcm_title_text(record.title), "Permanent load");
    EXPECT_TRUE(mrl_lc_getAction(db, 4, record, true));
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("G")));
}

TEST_F(GetAction, AnUnknownOldNumberFallsBackToTheDeadOrTheLiveAction)
{
    project.putAction(soundAction("G").title("stored dead"));
    project.putAction(soundAction("Q").title("stored live"));
    for (const int number : {3, 5, 6}) {
        tagCDB_LC_ACT record{};
        EXPECT_TRUE(mrl_lc_getAction(db, number, record, false)) << number;
        EXPECT_EQ(lcm_title_text(record.title), "stored dead") << number;
    }
    for (const int number : {1, 8, 70, 999, -1000, -2000000000}) {
        tagCDB_LC_ACT record{};
        EXPECT_TRUE(mrl_lc_getAction(db, number, record, false)) << number;
        EXPECT_EQ(lcm_title_text(record.title), "stored live") << number;
    }
}

TEST_F(GetAction, CreateLooksUpTheCallersOwnNumberAndNotTheFallBack)
{
    const auto before = project.fingerprint();
    tagCDB_LC_ACT record{};
    EXPECT_FALSE(mrl_lc_getAction(db, 3, record, true)) << "3 is unknown, although 2 is known";
    EXPECT_FALSE(mrl_lc_getAction(db, 70, record, true));
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(GetAction, NegativeNumbersMeetTheEnumerationOfTheDesignCode)
{
    project.putAction(soundAction("P").title("stored"));
    tagCDB_LC_ACT record{};
    EXPECT_TRUE(mrl_lc_getAction(db, -2, record, false)) << "P is the second default action";
    EXPECT_EQ(lcm_title_text(record.title), "stored");
}

TEST_F(GetAction, WithoutEvenTheFallBackNothingIsFound)
{
    useCode(DesignCodeBuilder().marks(limitsOfOne()).add(soundAction("W").partition(0x32)));
    tagCDB_LC_ACT record{};
    EXPECT_FALSE(mrl_lc_getAction(db, 3, record, true));
    EXPECT_FALSE(mrl_lc_getAction(db, 9, record, true));
    EXPECT_FALSE(mrl_lc_getAction(other.db(), 2, record, true)) << "no design code at all";
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(GetAction, ACutRecordCountsAsMissing)
{
    const unsigned char longer[200] = {1};
    project.put(LC_KWH_ACTIONS, codeOf("G"), longer);
    tagCDB_LC_ACT record{};
    EXPECT_FALSE(mrl_lc_getAction(db, codeOf("G"), record, false));
    EXPECT_TRUE(mrl_lc_getAction(db, codeOf("G"), record, true));
    EXPECT_EQ(project.bytes(LC_KWH_ACTIONS, codeOf("G")).size(), 112u);
}

using DefaultAction = ProjectTest;

TEST_F(DefaultAction, IsTheFirstOfItsFamily)
{
    tagCDB_LC_ACT record = filled();
    EXPECT_EQ(mrl_lc_get_default_action(db, true, record), codeOf("G"));
    EXPECT_EQ(lcm_title_text(record.title), "Permanent load");
    EXPECT_EQ(mrl_lc_get_default_action(db, false), codeOf("Q"));
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(DefaultAction, LoadGroupsAreSkipped)
{
    useCode(DesignCodeBuilder()
                .marks(limitsOfOne())
                .add(soundAction("L_1").partition(0x132))
                .add(soundAction("L_5").partition(0x532))
                .add(soundAction("L").partition(0x32)));
    EXPECT_EQ(mrl_lc_get_default_action(db, false), codeOf("L"));
}

TEST_F(DefaultAction, OldNumbersStandInForAMissingFamily)
{
    useCode(DesignCodeBuilder()
                .marks(limitsOfOne())
                .add(soundAction("P").partition(0x20).title("as dead"), {2})
                .add(soundAction("L_1").partition(0x132), {7}));
    tagCDB_LC_ACT record{};
    EXPECT_EQ(mrl_lc_get_default_action(db, true, record), codeOf("P"));
    EXPECT_EQ(lcm_title_text(record.title), "as dead");
    EXPECT_EQ(mrl_lc_get_default_action(db, false), codeOf("L_1"));
}

TEST_F(DefaultAction, IsACodeOfBlanksWhenThereIsNoneAtAll)
{
    useCode(DesignCodeBuilder().marks(limitsOfOne()).add(soundAction("P").partition(0x20)));
    tagCDB_LC_ACT record = filled();
    EXPECT_EQ(mrl_lc_get_default_action(db, true, record), LC_BLANK_WORD);
    EXPECT_TRUE(sameBytes(record, tagCDB_LC_ACT{})) << "the last one of the enumeration is gone";
    EXPECT_EQ(mrl_lc_get_default_action(other.db(), false), LC_BLANK_WORD);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(DefaultAction, TheListIsAppendedInOrder)
{
    std::vector<int> list{1};
    EXPECT_TRUE(mrl_lc_get_default_action_list(db, list));
    EXPECT_THAT(list, ElementsAre(1, codeOf("G"), codeOf("P"), codeOf("Q"), codeOf("Q_1"), codeOf("W"),
                                  codeOf("A"), codeOf("E")));
    EXPECT_TRUE(mrl_lc_get_default_action_list(other.db(), list));
    EXPECT_EQ(list.size(), 8u);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(DefaultAction, AllOf999AreListed)
{
    DesignCodeBuilder code;
    for (int i = 0; i < 999; ++i) {
        code.add(soundAction(QString("%1").arg(i, 3, 10, QLatin1Char('0'))));
    }
    useCode(code);
    std::vector<int> list;
    mrl_lc_get_default_action_list(db, list);
    EXPECT_EQ(list.size(), 999u);
    EXPECT_EQ(list.back(), codeOf("998"));
}

using CreateDefaultAction = ProjectTest;

TEST_F(CreateDefaultAction, WritesItOverAStoredOne)
{
    project.putAction(soundAction("W").title("old"));
    EXPECT_TRUE(mrl_lc_create_default_action(db, codeOf("W")));
    EXPECT_EQ(lcm_title_text(project.storedAction("W").title), "Wind");
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(CreateDefaultAction, RefusesWhatIsNoDefaultActionAndReportsTheCodeAllTheSame)
{
    const auto before = project.fingerprint();
    int code = 0;
    EXPECT_FALSE(mrl_lc_create_default_action(db, codeOf("ZZ")));
    EXPECT_FALSE(mrl_lc_create_default_action(db, 2)) << "no old numbers here";
    EXPECT_FALSE(mrl_lc_create_default_action(db, QString("zz"), &code));
    EXPECT_EQ(code, codeOf("ZZ"));
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(CreateDefaultAction, TakesANameInText)
{
    int code = 0;
    EXPECT_TRUE(mrl_lc_create_default_action(db, QString("q_1"), &code));
    EXPECT_EQ(code, codeOf("Q_1"));
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q_1")));
    EXPECT_TRUE(mrl_lc_create_default_action(db, QString("g"), nullptr));
}

using ActionInfo = ProjectTest;

TEST_F(ActionInfo, IsAllFalseAtFirst)
{
    const MRL_LC_Action_Info info;
    EXPECT_FALSE(info.gama || info.gamu || info.gamf || info.psi0 || info.psi1 || info.psi1s || info.psi2);
}

TEST_F(ActionInfo, FollowsTheMarksAndLeavesItsDatabaseCurrent)
{
    MRL_LC_Action_Info info;
    EXPECT_TRUE(info.init(db));
    EXPECT_TRUE(info.gama && info.gamu && info.gamf && info.psi0 && info.psi1 && info.psi1s && info.psi2);
    EXPECT_EQ(mrl_cdb_status(-1), db);

    tagCDB_LC_ACT marks{};
    marks.gamu = 0.001f;
    marks.psi1s = -1.0f;
    useCode(DesignCodeBuilder().marks(marks));
    EXPECT_TRUE(info.init(db));
    EXPECT_TRUE(info.gamu);
    EXPECT_FALSE(info.gama || info.gamf || info.psi0 || info.psi1 || info.psi1s || info.psi2);
}

TEST_F(ActionInfo, CopiesAllSeven)
{
    MRL_LC_Action_Info info;
    info.init(db);
    MRL_LC_Action_Info copy;
    copy = info;
    EXPECT_EQ(std::memcmp(&copy, &info, 7), 0);
    copy = MRL_LC_Action_Info();
    EXPECT_FALSE(copy.gamu);
}

TEST_F(ActionInfo, AFileWithoutTheSectionHasNoAccidentalFactor)
{
    useCode(DesignCodeBuilder().marks(limitsOfOne()).withoutActionsSection());
    MRL_LC_Action_Info info;
    EXPECT_TRUE(info.init(db));
    EXPECT_FALSE(info.gama);
    EXPECT_TRUE(info.gamu && info.psi2);
}

TEST_F(ActionInfo, StaysAsItWasWithoutADesignCode)
{
    MRL_LC_Action_Info info;
    info.init(db);
    EXPECT_FALSE(info.init(other.db()));
    EXPECT_TRUE(info.gama && info.gamu);
}

} // namespace
