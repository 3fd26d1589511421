#include "tests/model/model_fixture.h"

#include <limits>

namespace {

using mrl::test::bareLoadCase;
using mrl::test::codeOf;
using mrl::test::DesignCodeBuilder;
using mrl::test::found;
using mrl::test::Model;
using mrl::test::ModelTest;
using mrl::test::shapeOf;
using mrl::test::soundAction;
using mrl::test::titleOf;

using StoreAction = ModelTest;

TEST_F(StoreAction, PutsTheRecordIntoTheEntryAndKeepsItsState)
{
    const Model model = load();
    model->storeAction(codeOf("W"), soundAction("W").title("stored"), false);
    model->storeAction(codeOf("Q_1"), soundAction("Q_1").title("stored too"), false);
    EXPECT_EQ(titleOf(found(*model, "W")), "stored");
    EXPECT_EQ(titleOf(found(*model, "Q_1")), "stored too");
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
}

TEST_F(StoreAction, TheCodeOfAnEntryStaysWhateverTheRecordIsNamed)
{
    const Model model = load();
    model->storeAction(codeOf("W"), soundAction("ZZ"), false);
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
}

TEST_F(StoreAction, AppendsAnUnknownActionOnlyWhenItMay)
{
    const Model model = load();
    model->storeAction(codeOf("U1"), soundAction("U1"), false);
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0");
    model->storeAction(codeOf("U1"), soundAction("U1"), true);
    EXPECT_EQ(shapeOf(model->actions), "G:1 P:0 Q:1(Q_1:0) W:0 A:0 E:0 U1:1")
        << "not marked as the user's own";
}

TEST_F(StoreAction, ManyAtOnceAreTheSameAsOneByOne)
{
    const Model one = load();
    const Model many = load();
    const std::vector<LCM_CodedAction> rows = {{codeOf("W"), soundAction("W").title("1")},
                                               {codeOf("U1"), soundAction("U1").title("2")},
                                               {codeOf("U1"), soundAction("U1").title("3")},
                                               {codeOf("Q_1"), soundAction("Q_1").title("4")}};
    for (const LCM_CodedAction& row : rows) {
        one->storeAction(row.code, row.record, true);
    }
    many->storeActions(rows, true);
    EXPECT_EQ(shapeOf(many->actions), shapeOf(one->actions));
    for (const char* name : {"W", "U1", "Q_1"}) {
        EXPECT_EQ(titleOf(found(*many, name)), titleOf(found(*one, name)));
    }
    EXPECT_EQ(titleOf(found(*many, "U1")), "3");
}

using WriteActions = ModelTest;

TEST_F(WriteActions, StoresTheActiveEntriesAndNothingElse)
{
    const Model model = load();
    model->writeActions(db);
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("G")));
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q")));
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("W")));
    EXPECT_EQ(titleOf(project.storedAction("G")), "Permanent load");
    EXPECT_EQ(project.bytes(LC_KWH_ACTIONS, codeOf("G")).size(), 112u);
}

TEST_F(WriteActions, AnActionTakenOutHasNoKeyAfterwards)
{
    project.putAction(soundAction("W"));
    project.putAction(soundAction("U1"));
    project.putAction(soundAction("A"));
    const Model model = load();
    model->removeActions({codeOf("W"), codeOf("U1")});
    model->writeActions(db);
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("W")));
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("U1")));
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("A")));
}

TEST_F(WriteActions, OtherModulesKeysStay)
{
    const tagCDB_LC_ACT foreign = soundAction("W").title("foreign");
    for (const int key : {-5, 3, 0x2020201F, 0x20202020, codeOf("Y1"), codeOf("Y")}) {
        project.putAction(key, foreign);
    }
    project.append(LC_KWH_ACTIONS, codeOf("Y1"), foreign);
    load()->writeActions(db);
    for (const int key : {-5, 3, 0x2020201F, 0x20202020, codeOf("Y1"), codeOf("Y")}) {
        EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, key)) << key;
    }
    tagCDB_LC_ACT second{};
    int length = sizeof second;
    mrl_cdb_get(db, LC_KWH_ACTIONS, codeOf("Y1"), &second, &length, 0);
    length = sizeof second;
    EXPECT_EQ(mrl_cdb_get(db, LC_KWH_ACTIONS, codeOf("Y1"), &second, &length, 1), CD_OK);
}

TEST_F(WriteActions, KeysOfNegativeCodesAreBelowTheWordOfBlanksAndStay)
{
    project.putAction(static_cast<int>(0xC3434241u), soundAction("W"));
    load()->writeActions(db);
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, static_cast<int>(0xC3434241u)));
}

TEST_F(WriteActions, APlaceholderIsNotWrittenButItsActiveChildIs)
{
    useCode(DesignCodeBuilder().add(soundAction("Q_1")).add(soundAction("Q_2")));
    project.putAction(soundAction("Q_1"));
    const Model model = load();
    ASSERT_EQ(shapeOf(model->actions), "Q:-1(Q_1:1 Q_2:0)");
    model->writeActions(db);
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q")));
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q_1")));
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q_2")));
}

TEST_F(WriteActions, AnActiveChildOfAFreeParentIsWritten)
{
    project.putAction(soundAction("Q_1"));
    const Model model = load();
    model->writeActions(db);
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q_1")));
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q")));
}

TEST_F(WriteActions, AParentMustBeExactlyActiveAndAChildOnlyNotFree)
{
    const Model model = load();
    model->actions[0]->state = 2;
    model->actions[2]->subActions[0]->state = 2;
    model->writeActions(db);
    EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf("G")));
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q_1")));
}

TEST_F(WriteActions, AnAccidentalFactorOfZeroBecomesAThousandth)
{
    const std::pair<float, float> cases[] = {{0.0f, 0.001f},       {-0.00000005f, 0.001f},
                                             {0.0000001f, 0.001f}, {0.0000002f, 0.0000002f},
                                             {1.0f, 1.0f},         {0.001f, 0.001f}};
    for (const auto& [before, after] : cases) {
        project.putAction(soundAction("G").gama(before));
        const Model model = load();
        model->writeActions(db);
        EXPECT_EQ(project.storedAction("G").gama, after) << before;
        EXPECT_EQ(found(*model, "G").gama, after) << "in the model too";
    }
}

TEST_F(WriteActions, TheKeyIsTheEntrysCodeWhateverTheRecordIsNamed)
{
    const Model model = load();
    model->storeAction(codeOf("G"), soundAction("ZZ"), false);
    model->writeActions(db);
    EXPECT_EQ(lcm_action_code(project.storedAction("G")), codeOf("ZZ"));
}

TEST_F(WriteActions, GivesTheSameRecordsWhenItIsDoneTwice)
{
    const Model model = load();
    model->writeActions(db);
    const auto once = project.fingerprint();
    model->writeActions(db);
    EXPECT_EQ(project.fingerprint(), once);
}

using WriteLoadcases = ModelTest;

TEST_F(WriteLoadcases, ReplacesOwnLoadCasesAndLeavesForeignOnes)
{
    project.putLoadCase(1, bareLoadCase("G").title("stays"));
    project.putLoadCase(2, bareLoadCase("G").kind(1).title("goes"));
    project.putLoadCase(3, bareLoadCase().kind(2).title("foreign"));
    project.putLoadCase(4, bareLoadCase().kind(-1).title("foreign"));
    const Model model = load();
    model->loadcases.pop_back();
    model->loadcases.push_back({7, bareLoadCase("Q").title("new")});
    model->writeLoadcases(db);
    EXPECT_EQ(lcm_title_text(project.storedLoadCase(1).title), "stays");
    EXPECT_FALSE(project.hasKey(LC_KWH_CASES, 2));
    EXPECT_EQ(project.storedLoadCase(3).kind, 2);
    EXPECT_EQ(project.storedLoadCase(4).kind, -1);
    EXPECT_EQ(lcm_title_text(project.storedLoadCase(7).title), "new");
}

TEST_F(WriteLoadcases, ALongForeignRecordStaysWholeAndAnOwnOneIsCut)
{
    std::vector<unsigned char> foreign(5000, 9);
    const int length = 5000;
    mrl_cdb_put(db, LC_KWH_CASES, 3, foreign.data(), &length, 0);
    const unsigned char own[300] = {};
    project.put(LC_KWH_CASES, 4, own);
    load()->writeLoadcases(db);
    std::vector<unsigned char> back(5000);
    int got = 5000;
    EXPECT_EQ(mrl_cdb_get(db, LC_KWH_CASES, 3, back.data(), &got, 0), CD_OK);
    EXPECT_EQ(back, foreign);
    EXPECT_EQ(project.bytes(LC_KWH_CASES, 4).size(), 188u);
}

TEST_F(WriteLoadcases, ANumberThatAForeignRecordHoldsIsOverwrittenAsTold)
{
    project.putLoadCase(3, bareLoadCase().kind(2));
    const Model model = load();
    model->loadcases.push_back({3, bareLoadCase("G")});
    model->writeLoadcases(db);
    EXPECT_EQ(project.storedLoadCase(3).kind, 0);
}

TEST_F(WriteLoadcases, WritesNothingButLoadCases)
{
    project.putAction(soundAction("G"));
    project.put(0, 97, 5);
    project.put(11, 1, 5);
    project.put(13, 1, 5);
    const auto before = project.fingerprint();
    load()->writeLoadcases(db);
    EXPECT_EQ(project.fingerprint(), before);
}

TEST_F(WriteLoadcases, ThousandsComeBackAsTheyWere)
{
    for (int i = 1; i <= 2000; ++i) {
        project.putLoadCase(i, bareLoadCase(i % 3 == 0 ? "G" : "Q").factor(static_cast<float>(i)));
    }
    const auto before = project.fingerprint();
    load()->writeLoadcases(db);
    EXPECT_EQ(project.fingerprint(), before);
}

using Superposition = ModelTest;

TEST_F(Superposition, AnEmptyProjectHasNeitherKeysNorContent)
{
    const Model model = load();
    EXPECT_FALSE(model->hasSuperpositionKeys());
    EXPECT_FALSE(model->hasSuperpositionContent());
}

TEST_F(Superposition, KeysAreLookedForAtTheFirstKeyOnly)
{
    const Model model = load();
    project.putAction(soundAction("G"));
    EXPECT_FALSE(model->hasSuperpositionKeys());
    project.putAction(0x20202020, soundAction("G"));
    EXPECT_FALSE(model->hasSuperpositionKeys()) << "the word of blanks is no number";
    project.putAction(0x2020201F, soundAction("G"));
    EXPECT_TRUE(model->hasSuperpositionKeys());
}

TEST_F(Superposition, TheKeyZeroAndNegativeKeysAreNotLookedAt)
{
    project.putAction(0, soundAction("G"));
    project.putAction(-1, soundAction("G"));
    const Model model = load();
    EXPECT_FALSE(model->hasSuperpositionKeys());
    EXPECT_FALSE(model->hasSuperpositionContent());
}

TEST_F(Superposition, ANumberInTheNextGroupIsNone)
{
    project.put(15, 3, soundAction("G").record());
    const Model model = load();
    EXPECT_FALSE(model->hasSuperpositionKeys());
    EXPECT_FALSE(model->hasSuperpositionContent());
}

tagCDB_LC_ACT words(int first, int second)
{
    tagCDB_LC_ACT record{};
    record.kind = first;
    lcm_word_to_chars(second, record.name);
    return record;
}

TEST_F(Superposition, ContentIsAFirstRecordWithAPositiveWord)
{
    project.putAction(3, words(0, 5));
    project.putAction(4, words(-1, 5));
    const Model model = load();
    EXPECT_FALSE(model->hasSuperpositionContent());
    EXPECT_TRUE(model->hasSuperpositionKeys());
    project.putAction(5, words(1, 0));
    EXPECT_TRUE(model->hasSuperpositionContent());
}

TEST_F(Superposition, ContentIsALaterRecordOfKindTwoWithAPositiveWord)
{
    const Model model = load();
    project.putAction(3, words(0, 0));
    project.append(LC_KWH_ACTIONS, 3, words(1, 5));
    project.append(LC_KWH_ACTIONS, 3, words(2, 0));
    project.append(LC_KWH_ACTIONS, 3, words(2, -5));
    EXPECT_FALSE(model->hasSuperpositionContent());
    project.append(LC_KWH_ACTIONS, 3, words(2, 5));
    EXPECT_TRUE(model->hasSuperpositionContent());
    EXPECT_TRUE(model->hasSuperpositionContent()) << "asking twice gives the same";
}

TEST_F(Superposition, ActionsThemselvesAreNoContent)
{
    project.putAction(soundAction("G"));
    project.putAction(0x20202020, words(1, 1));
    EXPECT_FALSE(load()->hasSuperpositionContent());
}

TEST_F(Superposition, AKeyLeftOpenHarmsNobody)
{
    project.putAction(5, words(1, 0));
    const Model model = load();
    EXPECT_TRUE(model->hasSuperpositionContent()); // leaves the key open
    EXPECT_EQ(mrl_cdb_del(db, LC_KWH_ACTIONS, 5), CD_OK);
    EXPECT_FALSE(model->hasSuperpositionContent());
    model->writeActions(db);
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("G")));
}

} // namespace
