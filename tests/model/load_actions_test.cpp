#include "tests/model/model_fixture.h"

namespace {

using mrl::test::ActionBuilder;
using mrl::test::codeOf;
using mrl::test::DesignCodeBuilder;
using mrl::test::found;
using mrl::test::limitsOfOne;
using mrl::test::Model;
using mrl::test::ModelTest;
using mrl::test::shapeOf;
using mrl::test::soundAction;
using mrl::test::titleOf;

/// An action that is no default one, so that it stays free in a project without actions.
ActionBuilder accidental(const char* name) { return soundAction(name).partition(0x42); }

using DesignCodeTree = ModelTest;

TEST_F(DesignCodeTree, AParentCarriesTheChildrenBehindIt)
{
    useCode(DesignCodeBuilder().add(accidental("Q")).add(accidental("Q_1")).add(accidental("W")));
    EXPECT_EQ(shapeOf(load()->designCodeTree()), "Q:0(Q_1:0) W:0");
    EXPECT_EQ(shapeOf(load()->actions), "Q:0(Q_1:0) W:0");
}

TEST_F(DesignCodeTree, AChildWithoutParentGetsAPlaceholder)
{
    useCode(DesignCodeBuilder().add(accidental("Q_1").title("first").gamu(1.4f)).add(accidental("Q_2")));
    const Model model = load();
    EXPECT_EQ(shapeOf(model->designCodeTree()), "Q:-1(Q_1:0 Q_2:0)");
    EXPECT_EQ(shapeOf(model->actions), "Q:-1(Q_1:0 Q_2:0)");
    const LCM_ActionEntry& placeholder = *model->actions[0];
    EXPECT_EQ(placeholder.record.suffix, 0);
    EXPECT_EQ(titleOf(placeholder.record), "first") << "it is a copy of its first child";
    EXPECT_EQ(placeholder.record.gamu, 1.4f);
    EXPECT_FALSE(placeholder.userDefined);
}

TEST_F(DesignCodeTree, AParentBehindItsChildMakesASecondEntry)
{
    useCode(DesignCodeBuilder().add(accidental("Q_1")).add(accidental("Q")).add(accidental("Q_2")));
    EXPECT_EQ(shapeOf(load()->actions), "Q:-1(Q_1:0 Q_2:0) Q:0");
}

TEST_F(DesignCodeTree, TheLetterYIsNothingSpecialThere)
{
    useCode(DesignCodeBuilder().add(accidental("Y")).add(accidental("Y_1")));
    EXPECT_EQ(shapeOf(load()->actions), "Y:0(Y_1:0)");
}

TEST_F(DesignCodeTree, TheTreesShareNoEntry)
{
    useCode(DesignCodeBuilder().add(accidental("Q")).add(accidental("Q_1")));
    const Model model = load();
    EXPECT_NE(model->actions[0], model->designCodeTree()[0]);
    EXPECT_NE(model->actions[0]->subActions[0], model->designCodeTree()[0]->subActions[0]);
}

TEST_F(DesignCodeTree, AllOf999EntriesAreRead)
{
    DesignCodeBuilder code;
    for (int i = 0; i < 999; ++i) {
        code.add(soundAction(QString("%1").arg(i, 3, 10, QLatin1Char('0'))));
    }
    useCode(code);
    EXPECT_EQ(load()->designCodeTree().size(), 999u);
}

TEST_F(DesignCodeTree, IsEmptyWithoutADesignCode)
{
    const Model model(new LCM_DataClass(other.db()));
    EXPECT_TRUE(model->actions.empty());
    EXPECT_TRUE(model->designCodeTree().empty());
    EXPECT_EQ(model->availabilityRecord()->gamu, 0.0f) << "zeroed before it is read";
}

TEST_F(DesignCodeTree, KeepsItsValuesWhateverTheProjectHolds)
{
    project.putAction(soundAction("W").gamu(9.0f));
    const Model model = load();
    EXPECT_EQ(found(*model, "W").gamu, 9.0f);
    EXPECT_EQ(found(*model, "W", true).gamu, 1.5f);
}

using StoredActions = ModelTest;

TEST_F(StoredActions, AProjectWithoutActionsGetsTheTwoDefaults)
{
    EXPECT_EQ(shapeOf(load()->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
}

TEST_F(StoredActions, NothingIsWrittenForTheDefaults)
{
    const auto before = project.fingerprint();
    load();
    EXPECT_EQ(project.fingerprint(), before);
}

TEST_F(StoredActions, OneActionOfTheDesignCodeKeepsTheDefaultsAway)
{
    project.putAction(soundAction("W").title("Storm"));
    const Model model = load();
    EXPECT_EQ(shapeOf(model->actions), "G:0 P:0 Q:0(Q_1:0) W:1 A:0 E:0");
    EXPECT_EQ(titleOf(found(*model, "W")), "Storm");
}

TEST_F(StoredActions, AnOwnActionAloneLeavesTheDefaultsActiveToo)
{
    project.putAction(soundAction("U1"));
    EXPECT_EQ(shapeOf(load()->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0 U1:1*");
}

TEST_F(StoredActions, OwnActionsFollowByTheirKeysAsParents)
{
    project.putAction(soundAction("Z"));
    project.putAction(soundAction("Q_7"));
    project.putAction(soundAction("Q_1"));
    project.putAction(soundAction("B"));
    // 0x202020xx for one letter, 0x20375F51 for Q_7
    EXPECT_EQ(shapeOf(load()->actions), "G:0 P:0 Q:0(Q_1:1) W:0 A:0 E:0 B:1* Z:1* Q_7:1*");
}

TEST_F(StoredActions, TheReservedLetterIsNeitherReadNorCounted)
{
    project.putAction(soundAction("Y1"));
    EXPECT_EQ(shapeOf(load()->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
    useCode(DesignCodeBuilder().add(accidental("Y")));
    project.putAction(soundAction("Y"));
    EXPECT_EQ(shapeOf(load()->actions), "Y:0");
}

TEST_F(StoredActions, NumbersAndTheWordOfBlanksAreNotSeen)
{
    for (const int key : {-1, 7, 0x2020201F, 0x20202020}) {
        project.putAction(key, soundAction("W"));
    }
    EXPECT_EQ(shapeOf(load()->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
}

TEST_F(StoredActions, OfTwoRecordsOfAKeyTheLaterOneWinsAndBothCount)
{
    putUnder("W", soundAction("W").title("first"));
    appendUnder("W", soundAction("W").title("second"));
    const Model model = load();
    EXPECT_EQ(titleOf(found(*model, "W")), "second");
    EXPECT_EQ(model->loadActionsFromDatabase(db), 2);
}

TEST_F(StoredActions, OtherKindsArePassedOver)
{
    putUnder("W", ofKind(2, soundAction("W").title("foreign")));
    EXPECT_EQ(shapeOf(load()->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
    appendUnder("W", soundAction("W").title("ours"));
    appendUnder("W", ofKind(3, soundAction("W").title("foreign too")));
    const Model model = load();
    EXPECT_EQ(titleOf(found(*model, "W")), "ours");
    EXPECT_EQ(model->loadActionsFromDatabase(db), 1);
}

TEST_F(StoredActions, ASecondRecordUnderAnOwnKeyIsNoActionOfTheDesignCode)
{
    putUnder("U1", soundAction("U1").title("first"));
    appendUnder("U1", soundAction("U1").title("second"));
    const Model model = load();
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0 U1:1*") << "the defaults are there";
    EXPECT_EQ(titleOf(found(*model, "U1")), "second");
}

TEST_F(StoredActions, TheKeyDecidesAndNotTheNameInTheRecord)
{
    putUnder("W", soundAction("A").title("named A"));
    putUnder("U1", soundAction("U2"));
    const Model model = load();
    EXPECT_EQ(titleOf(found(*model, "W")), "named A");
    EXPECT_EQ(shapeOf(model->actions), "G:0 P:0 Q:0(Q_1:0) W:1 A:0 E:0 U2:1*")
        << "an own entry goes by its record";
}

TEST_F(StoredActions, AStoredParentMakesAPlaceholderActive)
{
    useCode(DesignCodeBuilder().add(soundAction("Q_1")));
    project.putAction(soundAction("Q").title("own"));
    EXPECT_EQ(shapeOf(load()->actions), "Q:1(Q_1:0)");
}

TEST_F(StoredActions, OfEqualCodesTheFirstParentWins)
{
    useCode(DesignCodeBuilder().add(soundAction("Q_1")).add(soundAction("Q")));
    project.putAction(soundAction("Q"));
    EXPECT_EQ(shapeOf(load()->actions), "Q:1(Q_1:0) Q:0");
}

TEST_F(StoredActions, ARecordThatIsTooLongIsCutToAnAction)
{
    std::vector<unsigned char> longer(300, 0);
    const tagCDB_LC_ACT record = soundAction("W").title("cut");
    std::memcpy(longer.data(), &record, sizeof record);
    const int length = 300;
    mrl_cdb_put(db, LC_KWH_ACTIONS, codeOf("W"), longer.data(), &length, 0);
    EXPECT_EQ(titleOf(found(*load(), "W")), "cut");
}

using DefaultActions = ModelTest;

TEST_F(DefaultActions, AChildBecomesActiveAloneAndNotItsParent)
{
    useCode(DesignCodeBuilder()
                .marks(limitsOfOne())
                .add(soundAction("G").partition(0x10))
                .add(soundAction("L").partition(0x42))
                .add(soundAction("L_A").partition(0x32).title("plain live")));
    EXPECT_EQ(shapeOf(load()->actions), "G:1 L:0(L_A:1)");
}

TEST_F(DefaultActions, OneThatIsNotInTheTreeChangesNothing)
{
    useCode(DesignCodeBuilder().marks(limitsOfOne()).add(soundAction("P").partition(0x20)));
    EXPECT_EQ(shapeOf(load()->actions), "P:0")
        << "there is neither a dead nor a live one: the code of blanks";
}

TEST_F(DefaultActions, EqualCodesAreStoredOnce)
{
    useCode(
        DesignCodeBuilder().marks(limitsOfOne()).add(soundAction("P").partition(0x20).title("both"), {2, 7}));
    EXPECT_EQ(shapeOf(load()->actions), "P:1");
}

TEST_F(DefaultActions, EveryEntryOfTheCodeBecomesActive)
{
    useCode(DesignCodeBuilder()
                .marks(limitsOfOne())
                .add(soundAction("Q_1").partition(0x132))
                .add(soundAction("Q").partition(0x32)));
    EXPECT_EQ(shapeOf(load()->actions), "Q:1(Q_1:0) Q:1");
}

using RemoveAction = ModelTest;

TEST_F(RemoveAction, AChildIsFreeAgainWithItsDefaults)
{
    project.putAction(soundAction("Q"));
    project.putAction(soundAction("Q_1").gamu(9.0f).title("changed"));
    const Model model = load();
    model->removeAction(codeOf("Q_1"));
    EXPECT_EQ(shapeOf(model->actions), "G:0 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
    EXPECT_EQ(found(*model, "Q_1").gamu, 1.5f);
    EXPECT_EQ(titleOf(found(*model, "Q_1")), "Offices");
}

TEST_F(RemoveAction, AParentIsFreeAgainAndKeepsItsChildren)
{
    project.putAction(soundAction("Q").gamu(9.0f));
    project.putAction(soundAction("Q_1"));
    const Model model = load();
    model->removeAction(codeOf("Q"));
    EXPECT_EQ(shapeOf(model->actions), "G:0 P:0 Q:0(Q_1:1) W:0 A:0 E:0");
    EXPECT_EQ(found(*model, "Q").gamu, 1.5f);
}

TEST_F(RemoveAction, AnOwnActionIsGoneButItsEntryStaysValid)
{
    project.putAction(soundAction("U1").title("mine"));
    project.putAction(soundAction("U2"));
    const Model model = load();
    const std::vector<LCM_ActionEntry*> copy = model->actions;
    model->removeAction(codeOf("U1"));
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0 U2:1*");
    tagCDB_LC_ACT record{};
    EXPECT_EQ(model->findAction(codeOf("U1"), record, false), 0);
    EXPECT_EQ(titleOf(copy[6]->record), "mine");
    EXPECT_EQ(copy[6]->state, 0);
}

TEST_F(RemoveAction, APlaceholderThatWasActiveBecomesFree)
{
    useCode(DesignCodeBuilder().add(soundAction("Q_1").title("default")));
    project.putAction(soundAction("Q").title("own"));
    const Model model = load();
    model->removeAction(codeOf("Q"));
    EXPECT_EQ(shapeOf(model->actions), "Q:0(Q_1:0)");
    EXPECT_EQ(titleOf(found(*model, "Q")), "default");
}

TEST_F(RemoveAction, AnUnknownCodeChangesNothing)
{
    const Model model = load();
    model->removeAction(codeOf("ZZ"));
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
}

TEST_F(RemoveAction, ManyAtOnceAreTheSameAsOneByOne)
{
    for (const char* name : {"U1", "U2", "U3", "W", "Q_1"}) {
        project.putAction(soundAction(name).gamu(9.0f));
    }
    const Model model = load();
    model->removeActions({codeOf("U1"), codeOf("U3"), codeOf("Q_1"), codeOf("ZZ")});
    EXPECT_EQ(shapeOf(model->actions), "G:0 P:0 Q:0(Q_1:0) W:1 A:0 E:0 U2:1*");
    EXPECT_EQ(found(*model, "Q_1").gamu, 1.5f);
}

TEST_F(RemoveAction, AnActionThatStoreActionMadeStaysAsAFreeEntry)
{
    const Model model = load();
    model->storeAction(codeOf("U1"), soundAction("U1"), true);
    model->removeAction(codeOf("U1"));
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0 U1:0");
}

using ResetAction = ModelTest;

TEST_F(ResetAction, GivesTheDefaultsBackAndKeepsTheState)
{
    project.putAction(soundAction("W").gamu(9.0f));
    const Model model = load();
    model->resetAction(codeOf("W"));
    EXPECT_EQ(found(*model, "W").gamu, 1.5f);
    EXPECT_EQ(shapeOf(model->actions), "G:0 P:0 Q:0(Q_1:0) W:1 A:0 E:0");
}

TEST_F(ResetAction, AnOwnActionHasNoDefaults)
{
    project.putAction(soundAction("U1").gamu(9.0f));
    const Model model = load();
    model->resetAction(codeOf("U1"));
    EXPECT_EQ(found(*model, "U1").gamu, 9.0f);
}

TEST_F(ResetAction, AnEntryTakenOutComesBackActive)
{
    const Model model = load();
    model->actions.erase(model->actions.begin()); // G
    model->resetAction(codeOf("G"));
    EXPECT_EQ(shapeOf(model->actions), "P:0 Q:1(Q_1:0) W:0 A:0 E:0 G:1");
}

} // namespace
