#include "tests/model/model_fixture.h"

namespace {

using mrl::test::bareLoadCase;
using mrl::test::codeOf;
using mrl::test::found;
using mrl::test::Model;
using mrl::test::ModelTest;
using mrl::test::soundAction;
using mrl::test::titleOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<int> numbersOf(const LCM_DataClass& model)
{
    std::vector<int> numbers;
    for (const LCM_LoadcaseEntry& entry : model.loadcases) {
        numbers.push_back(entry.number);
    }
    return numbers;
}

using Loadcases = ModelTest;

TEST_F(Loadcases, AnEmptyProjectHasNoneAndAsksAgain)
{
    const Model model = load();
    EXPECT_THAT(model->loadcases, IsEmpty());
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), IsEmpty());
    project.putLoadCase(4, bareLoadCase());
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), ElementsAre(4));
    project.putLoadCase(5, bareLoadCase());
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), ElementsAre(4)) << "filled once";
}

TEST_F(Loadcases, AreThoseOfKindsZeroAndOneInOrder)
{
    project.putLoadCase(30, bareLoadCase());
    project.putLoadCase(2, bareLoadCase().kind(1));
    project.putLoadCase(5, bareLoadCase().kind(2));
    project.putLoadCase(6, bareLoadCase().kind(-1));
    project.putLoadCase(999999, bareLoadCase());
    const Model model = load();
    EXPECT_THAT(numbersOf(*model), ElementsAre(2, 30, 999999));
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), ElementsAre(2, 5, 6, 30, 999999))
        << "those of other modules too";
}

TEST_F(Loadcases, TheKeyZeroIsNeverRead)
{
    project.putLoadCase(0, bareLoadCase());
    project.putLoadCase(1, bareLoadCase());
    EXPECT_THAT(numbersOf(*load()), ElementsAre(1));
}

TEST_F(Loadcases, KeepEveryByteOfTheRecord)
{
    tagCDB_LC_CTRL record = bareLoadCase("Q_1").title("Wind").deadWeight(1, 2, 3).factor(4).kind(1);
    record.reserved3[7] = 99;
    project.putLoadCase(8, record);
    const Model model = load();
    EXPECT_EQ(std::memcmp(&model->loadcases[0].record, &record, sizeof record), 0);
}

TEST_F(Loadcases, ALongerRecordIsCutToItsBeginning)
{
    std::vector<unsigned char> longer(3000, 0);
    const tagCDB_LC_CTRL record = bareLoadCase("G").title("long");
    std::memcpy(longer.data(), &record, sizeof record);
    longer[188] = 77;
    const int length = 3000;
    mrl_cdb_put(db, LC_KWH_CASES, 8, longer.data(), &length, 0);
    const Model model = load();
    EXPECT_EQ(std::memcmp(&model->loadcases[0].record, &record, sizeof record), 0);
}

TEST_F(Loadcases, AShorterRecordBehindALongerOneHasZeros)
{
    project.putLoadCase(1, bareLoadCase("G").title("full"));
    const int words[2] = {0, 70};
    project.put(LC_KWH_CASES, 2, words);
    const Model model = load();
    const tagCDB_LC_CTRL expected = bareLoadCase().action(70);
    EXPECT_EQ(std::memcmp(&model->loadcases[1].record, &expected, sizeof expected), 0);
}

TEST_F(Loadcases, OnlyTheFirstRecordOfAKeyCounts)
{
    project.putLoadCase(1, bareLoadCase().kind(3));
    project.append(LC_KWH_CASES, 1, bareLoadCase().record());
    EXPECT_THAT(load()->loadcases, IsEmpty());
}

TEST_F(Loadcases, OldActionNumbersBecomeCodes)
{
    project.putAction(soundAction("MY"));
    const int words[] = {0, 70, 2, 12, 2, codeOf("MY"), 55, codeOf("ZZ")};
    const int expected[] = {0, 70, codeOf("G"), codeOf("Q"), codeOf("G"), codeOf("MY"), 55, codeOf("ZZ")};
    int number = 0;
    for (const int word : words) {
        project.putLoadCase(++number, bareLoadCase().action(word));
    }
    const Model model = load();
    for (std::size_t i = 0; i < std::size(words); ++i) {
        EXPECT_EQ(model->loadcases[i].record.action, expected[i]) << words[i];
    }
}

TEST_F(Loadcases, UsedNumbersShrinkOneByOne)
{
    project.putLoadCase(1, bareLoadCase());
    project.putLoadCase(2, bareLoadCase());
    const Model model = load();
    model->removeUsedLoadcaseNumber(1);
    model->removeUsedLoadcaseNumber(17);
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), ElementsAre(2));
    model->removeUsedLoadcaseNumber(2);
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), ElementsAre(1, 2)) << "empty, it is read anew";
}

TEST_F(Loadcases, RemovingFromNoUsedNumbersChangesNothing)
{
    const Model model = load();
    project.putLoadCase(1, bareLoadCase());
    model->removeUsedLoadcaseNumber(1);
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), ElementsAre(1));
}

TEST_F(Loadcases, UsedNumbersAreThoseOfTheConstruction)
{
    project.putLoadCase(1, bareLoadCase());
    const Model model = load();
    project.putLoadCase(2, bareLoadCase());
    EXPECT_THAT(model->getUsedLoadcaseNumbers(), ElementsAre(1));
}

using WorkingModel = ModelTest;

TEST_F(WorkingModel, LeavesItsDatabaseCurrentAndTheProjectAsItIs)
{
    project.putAction(soundAction("G"));
    project.putLoadCase(1, bareLoadCase("G"));
    const auto before = project.fingerprint();
    const Model model = load();
    EXPECT_EQ(mrl_cdb_status(-1), db);
    EXPECT_EQ(project.fingerprint(), before);
}

TEST_F(WorkingModel, LivesUntilItsLastRelease)
{
    LCM_DataClass* model = new LCM_DataClass(db);
    EXPECT_EQ(model->referenceCount(), 1);
    EXPECT_EQ(model->parent(), nullptr);
    bool gone = false;
    QObject::connect(model, &QObject::destroyed, [&] { gone = true; });
    model->addReference();
    EXPECT_EQ(model->referenceCount(), 2);
    model->release();
    EXPECT_FALSE(gone);
    model->release();
    EXPECT_TRUE(gone);
}

TEST_F(WorkingModel, FindsInTheTreeThatIsAskedFor)
{
    project.putAction(soundAction("W").title("stored"));
    project.putAction(soundAction("U1"));
    const Model model = load();
    EXPECT_EQ(titleOf(found(*model, "W")), "stored");
    EXPECT_EQ(titleOf(found(*model, "W", true)), "Wind");
    EXPECT_EQ(titleOf(found(*model, "Q_1", true)), "Offices");
    tagCDB_LC_ACT record = soundAction("A").title("as it was");
    EXPECT_EQ(model->findAction(codeOf("U1"), record, true), 0);
    EXPECT_EQ(model->findAction(codeOf("ZZ"), record, false), 0);
    EXPECT_EQ(titleOf(record), "as it was");
}

TEST_F(WorkingModel, ListsActiveActionsParentsFirst)
{
    project.putAction(soundAction("Q_1"));
    project.putAction(soundAction("W"));
    project.putAction(soundAction("U1"));
    const Model model = load();
    std::vector<tagCDB_LC_ACT> records(3);
    EXPECT_TRUE(model->activeActions(records));
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(lcm_action_code(records[0]), codeOf("Q_1")) << "although Q itself is not active";
    EXPECT_EQ(lcm_action_code(records[1]), codeOf("W"));
    EXPECT_EQ(lcm_action_code(records[2]), codeOf("U1"));

    const Model empty(new LCM_DataClass(other.db()));
    EXPECT_FALSE(empty->activeActions(records));
    EXPECT_TRUE(records.empty());
}

TEST_F(WorkingModel, ANewEntryIsOwnedButNotInTheTree)
{
    const Model model = load();
    const std::size_t before = model->actions.size();
    std::vector<LCM_ActionEntry*> entries;
    for (int i = 0; i < 1000; ++i) {
        entries.push_back(
            model->newEntry(soundAction("U1").title(QString::number(i)), LCM_STATE_ACTIVE, true));
    }
    EXPECT_EQ(model->actions.size(), before);
    EXPECT_EQ(titleOf(entries[0]->record), "0") << "pointers stay valid";
    EXPECT_EQ(entries[0]->code, codeOf("U1"));
    EXPECT_EQ(entries[0]->state, 1);
    EXPECT_TRUE(entries[0]->userDefined);
    EXPECT_TRUE(entries[0]->subActions.empty());
}

TEST_F(WorkingModel, AChangeThroughACopyOfTheVectorIsAChangeOfTheModel)
{
    const Model model = load();
    const std::vector<LCM_ActionEntry*> copy = model->actions;
    copy[0]->record.gamu = 3.0f;
    EXPECT_EQ(found(*model, "G").gamu, 3.0f);
}

TEST_F(WorkingModel, KnowsGravity)
{
    EXPECT_EQ(load()->gravityDirection(), 1);
    const int words[88] = {0, -3};
    project.put(10, 0, words);
    EXPECT_EQ(load()->gravityDirection(), -3);
}

TEST_F(WorkingModel, HandsOutTheMarks)
{
    const Model model = load();
    EXPECT_EQ(model->availabilityRecord()->psi0, 1.0f);
    EXPECT_EQ(model->availabilityRecord()->partition, 0);
}

} // namespace
