#include <gmock/gmock.h>

#include "host/mrl_widgets.h"
#include "lcdata/values/packing.h"
#include "tests/loadcases/load_cases_fixture.h"
#include "tests/support/modal_answers.h"

namespace {

using namespace mrl::test;

class LoadcaseEdit : public testing::Test
{
  protected:
    LoadcaseEdit()
    {
        project.putAction(permanent());
        project.putAction(variable());
        project.putLoadCase(1, standaloneWithFactors());
        project.putLoadCase(2, following("G").title("Dead"));
        project.putLoadCase(3, following("Q").title("Live"));
    }
    static tagCDB_LC_CTRL standaloneWithFactors()
    {
        tagCDB_LC_CTRL record = standalone().title("Own");
        record.gamu = lcm_pack_pair(1.2f, 1.0f);
        record.gamf = 0.9f;
        record.dlz = -1.5f;
        return record;
    }
    LoadCaseProject project;
};

TEST_F(LoadcaseEdit, ChangeOfActionDropsOwnFactorsAndKeepsTheRest)
{
    const Tabs tabs(project);
    tabs.chooseAction(1, codeOf("Q"));
    EXPECT_EQ(tabs.value(1, LC_COL_GAMU), 1.5f);
    EXPECT_FALSE(tabs.isEditable(1, LC_COL_GAMU));
    EXPECT_EQ(tabs.text(1, LC_COL_TITLE), "Own");
    EXPECT_EQ(tabs.value(1, LC_COL_DEADFACTOR), 1.5f);
    EXPECT_TRUE(tabs.lc->isModified());
    tagCDB_LC_CTRL expected = following("Q").title("Own");
    expected.dlz = -1.5f;
    EXPECT_TRUE(sameBytes(tabs.read(1).record, expected));

    tabs.chooseAction(1, 0);
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        EXPECT_EQ(tabs.value(1, column), 0.0f);
        EXPECT_TRUE(tabs.isEditable(1, column));
    }
    EXPECT_EQ(tabs.value(1, LC_COL_DEADFACTOR), 1.5f);
}

TEST_F(LoadcaseEdit, OwnFactorsArePackedWithTheirRounding)
{
    const Tabs tabs(project);
    tabs.enter(1, LC_COL_GAMU, 1.3506f);
    tabs.enter(1, LC_COL_GAMA, 0.0f);
    tabs.enter(1, LC_COL_PSI1S, 0.0f);
    const tagCDB_LC_CTRL record = tabs.read(1).record;
    // 1.351 (3FACED91) and 0.001 * 0.0001: 0.84 steps of 2^-23, one step up
    EXPECT_EQ(bits(record.gamu), 0x3FACED92u);
    EXPECT_EQ(bits(record.psi1), 0u);
    EXPECT_EQ(record.gamf, 0.9f);
}

TEST_F(LoadcaseEdit, FactorThatBecomesUndefinedTakesItsMateAlong)
{
    const Tabs tabs(project);
    tabs.enter(1, LC_COL_GAMU, LC_UNDEFINED);
    EXPECT_EQ(tabs.value(1, LC_COL_GAMA), LC_UNDEFINED);
    EXPECT_TRUE(tabs.lc->isItemFromAction(tabs.row(1), LC_COL_GAMU));
    EXPECT_TRUE(tabs.lc->isItemFromAction(tabs.row(1), LC_COL_GAMA));
    EXPECT_EQ(bits(tabs.read(1).record.gamu), bits(LC_UNDEFINED));
    EXPECT_EQ(tabs.read(1).record.gamf, 0.9f); // has no mate
}

TEST_F(LoadcaseEdit, FactorThatLeavesTheActionGivesItsMateTheActionsNumber)
{
    const Tabs tabs(project);
    const int row = tabs.row(3);
    tabs.lc->setItemVal(row, LC_COL_GAMU, LC_UNDEFINED, true);
    tabs.lc->setItemVal(row, LC_COL_GAMA, LC_UNDEFINED, true);
    tabs.lc->setItemVal(row, LC_COL_GAMU, 1.4f, true);
    tabs.lc->setItemFromAction(row, LC_COL_GAMU, true);
    tabs.lc->updateCoupledItem(row, LC_COL_GAMU);
    EXPECT_EQ(tabs.value(3, LC_COL_GAMA), 1.0f); // Gama of Q
    EXPECT_FALSE(tabs.lc->isItemFromAction(row, LC_COL_GAMU));
    EXPECT_FALSE(tabs.lc->isItemFromAction(row, LC_COL_GAMA));
}

TEST_F(LoadcaseEdit, ActionOfARowAnswersForItsColumns)
{
    const Tabs tabs(project);
    EXPECT_EQ(tabs.lc->getActionVal(tabs.row(3), LC_COL_PSI1S), 0.9f);
    EXPECT_EQ(tabs.lc->getActionVal(tabs.row(3), LC_COL_TITLE), LC_UNDEFINED);
    EXPECT_EQ(tabs.lc->getActionVal(tabs.row(1), LC_COL_GAMU), LC_UNDEFINED);
    const Tabs alone(project, Tabs::LoadcasesAlone);
    EXPECT_EQ(alone.lc->getActionVal(alone.row(3), LC_COL_PSI1S), LC_UNDEFINED);
}

TEST_F(LoadcaseEdit, EditableFactorCellThatFollowsItsActionShowsItsValueAndReadsUndefined)
{
    const Tabs tabs(project);
    const int row = tabs.row(3);
    auto* header =
        static_cast<MRL_H_TwHeaderLineEditItem*>(tabs.table->horizontalHeaderItemOnColId(LC_COL_PSI0));
    // The table owns its cells.
    tabs.table->setItem(row, tabs.table->getColumnNumber(LC_COL_PSI0),
                        new MRL_H_TwEditableComboBoxItem(*header));
    tabs.lc->setItemVal(row, LC_COL_PSI0, LC_UNDEFINED, true);
    EXPECT_EQ(tabs.text(3, LC_COL_PSI0), "0.70");
    EXPECT_EQ(tabs.lc->getItemVal(row, LC_COL_PSI0), LC_UNDEFINED);
    tabs.lc->setItemVal(row, LC_COL_PSI0, 0.4f, true);
    EXPECT_EQ(tabs.lc->getItemVal(row, LC_COL_PSI0), 0.4f);
}

TEST_F(LoadcaseEdit, OnlySelectedRowsAreJudged)
{
    const Tabs tabs(project);
    tabs.enterAction(codeOf("G"), ACT_COL_GAMF, 2.0f); // above its Gamu: makes the load cases of G faulty
    EXPECT_TRUE(tabs.isValid(2)) << "verdicts stay until the next edit";
    EXPECT_EQ(tabs.value(2, LC_COL_GAMF), 2.0f);
    tabs.select({3});
    tabs.cell(2, LC_COL_TITLE)->setText("edited but not selected");
    EXPECT_TRUE(tabs.isValid(2));
    tabs.select({2});
    tabs.cell(3, LC_COL_TITLE)->setText("another row is edited");
    EXPECT_FALSE(tabs.isValid(2));
    EXPECT_TRUE(tabs.isRed(2, LC_COL_GAMF));
    EXPECT_EQ(tabs.cell(2, LC_COL_GAMF)->toolTip(), "GAMF has to be between 0.0 and 1.35!");
    EXPECT_FALSE(tabs.isRed(2, LC_COL_GAMU));
    EXPECT_FALSE(tabs.lc->isValid());
}

TEST_F(LoadcaseEdit, TitleEditLeavesTheFactorsAloneAndSetsModified)
{
    const Tabs tabs(project);
    tabs.lc->setItemVal(tabs.row(1), LC_COL_GAMU, LC_UNDEFINED, true);
    tabs.cell(1, LC_COL_TITLE)->setText("edit");
    EXPECT_TRUE(tabs.lc->isModified());
    EXPECT_FALSE(tabs.lc->isItemFromAction(tabs.row(1), LC_COL_TITLE));
    EXPECT_EQ(tabs.value(1, LC_COL_GAMA), 1.0f);
    tabs.cell(1, LC_COL_TITLE)->setText("-99999");
    EXPECT_FALSE(tabs.lc->isItemFromAction(tabs.row(1), LC_COL_TITLE)) << "a text is no factor";
}

TEST_F(LoadcaseEdit, LoadcasesAloneAreNotJudged)
{
    project.putLoadCase(9, following("gone"));
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    EXPECT_TRUE(tabs.lc->checkRow(tabs.row(9)));
    EXPECT_TRUE(tabs.isValid(9));
}

TEST_F(LoadcaseEdit, DeadWeightFollowsGravityAndTheBox)
{
    const Tabs tabs(project); // gravity along -Z
    tabs.enter(2, LC_COL_DEADFACTOR, 1.0f);
    EXPECT_EQ(tabs.read(2).record.dlz, -1.0f);
    EXPECT_EQ(tabs.read(2).record.dlx, 0.0f);
    tabs.enter(2, LC_COL_DEADFACTOR, -1.0f);
    EXPECT_EQ(tabs.read(2).record.dlz, -1.0f);

    auto* box = tabs.lc->findChild<MRL_QT_CheckBox*>("check_deadload");
    box->setChecked(true);
    tabs.enter(2, LC_COL_DLX, -0.5f);
    tabs.enter(2, LC_COL_DLZ, 2.0f);
    const tagCDB_LC_CTRL components = tabs.read(2).record;
    EXPECT_EQ(components.dlx, -0.5f);
    EXPECT_EQ(components.dlz, -2.0f);
    box->setChecked(false);
    EXPECT_EQ(tabs.read(2).record.dlx, 0.0f) << "the choice decides what is stored";
}

TEST_F(LoadcaseEdit, ChangeOfActionDropsWhatTheHiddenComponentsHeld)
{
    tagCDB_LC_CTRL record = following("G");
    record.dlx = 0.5f;
    record.dlz = -1.0f;
    project.putLoadCase(5, record);
    const Tabs tabs(project);
    EXPECT_EQ(tabs.value(5, LC_COL_DLX), 0.5f);
    tabs.chooseAction(5, codeOf("Q"));
    EXPECT_EQ(tabs.value(5, LC_COL_DLX), 0.0f);
    EXPECT_EQ(tabs.value(5, LC_COL_DLZ), 1.0f);
}

TEST_F(LoadcaseEdit, ColoursStayWhenTheActionGoes)
{
    const Tabs tabs(project);
    tabs.enterAction(codeOf("G"), ACT_COL_GAMF, 2.0f);
    tabs.select({2});
    tabs.cell(2, LC_COL_TITLE)->setText("judged");
    ASSERT_TRUE(tabs.isRed(2, LC_COL_GAMF));
    tabs.chooseAction(2, 0);
    EXPECT_TRUE(tabs.isValid(2)) << "a row without an action is not looked at";
    EXPECT_TRUE(tabs.isRed(2, LC_COL_GAMF));
    EXPECT_FALSE(tabs.cell(2, LC_COL_GAMF)->toolTip().isEmpty());
    tabs.chooseAction(2, codeOf("Q"));
    EXPECT_FALSE(tabs.isRed(2, LC_COL_GAMF));
    EXPECT_TRUE(tabs.cell(2, LC_COL_GAMF)->toolTip().isEmpty());
}

TEST_F(LoadcaseEdit, ChosenMarkerMeansTheActionThatItNames)
{
    project.putLoadCase(5, following("Ab"));
    project.putLoadCase(6, following("Xy"));
    const Tabs tabs(project);
    tabs.chooseAction(5, tabs.actionId(6));
    EXPECT_EQ(tabs.read(5).record.action, codeOf("Xy"));
    tabs.actions->slot_addAllClicked(); // the list is made anew
    EXPECT_EQ(tabs.text(5, LC_COL_ACTION), "*** Action XY   is missing ***");
    EXPECT_EQ(tabs.read(5).record.action, codeOf("Xy"));
}

TEST_F(LoadcaseEdit, PlaneSystemStoresNoComponentInZ)
{
    project.setSystem(1, -3);
    tagCDB_LC_CTRL record = following("G");
    record.dlz = -1.0f;
    project.putLoadCase(5, record);
    const Tabs tabs(project);
    tabs.lc->findChild<MRL_QT_CheckBox*>("check_deadload")->setChecked(true);
    EXPECT_EQ(tabs.read(5).record.dlz, 0.0f);
}

// The table sorts by a factor column: each write of it may move the row that is being written.
TEST_F(LoadcaseEdit, SortedByAFactorEveryRecordStaysItsOwn)
{
    for (int number = 10; number < 40; ++number) {
        tagCDB_LC_CTRL record = (number % 3 == 0 ? standalone() : following(number % 3 == 1 ? "G" : "Q"))
                                    .title(QString("Case %1").arg(number));
        record.dlz = -0.01f * static_cast<float>(number);
        if (record.action == 0) {
            record.gamu = lcm_pack_pair(1.0f, 1.0f); // a Gama of 0 would change with each fill
            record.psi0 = 0.01f * static_cast<float>(number);
        }
        project.putLoadCase(number, record);
    }
    const Tabs tabs(project);
    tabs.table->sortByColumn(tabs.table->getColumnNumber(LC_COL_PSI0), Qt::DescendingOrder);
    std::map<int, tagCDB_LC_CTRL> expected;
    for (const int number : tabs.numbers()) {
        expected[number] = tabs.read(number).record;
    }
    const auto compare = [&](const char* step) {
        ASSERT_EQ(tabs.numbers().size(), expected.size()) << step;
        for (const auto& [number, record] : expected) {
            EXPECT_TRUE(sameBytes(tabs.read(number).record, record)) << step << ' ' << number;
        }
    };

    tabs.enterAction(codeOf("Q"), ACT_COL_PSI0, 0.05f);
    EXPECT_EQ(tabs.value(11, LC_COL_PSI0), 0.05f);
    compare("action's factor");

    tabs.chooseAction(12, codeOf("G"));
    expected[12].action = codeOf("G");
    expected[12].gamu = expected[12].gamf = expected[12].psi0 = expected[12].psi1 = expected[12].psi2 =
        LC_UNDEFINED;
    compare("another action");

    tabs.select({15});
    tabs.lc->slot_newClicked();
    expected[40] = expected[15];
    compare("new");

    tabs.select({18, 20});
    {
        mrl::test::ModalAnswers answers;
        answers.key(Qt::Key_Return).key(Qt::Key_Return);
        tabs.lc->slot_copyClicked(); // in the order of the rows, 41 and 42
    }
    const auto copies = tabs.lc->getCopies();
    ASSERT_EQ(copies.size(), 2u);
    for (const LCM_LoadcaseCopy& copy : copies) {
        expected[copy.target] = expected[copy.source];
    }
    compare("copies");

    tabs.enter(15, LC_COL_PSI0, 0.99f);
    expected[15].psi0 = 0.99f;
    EXPECT_EQ(tabs.row(15), 12) << "behind the twelve load cases of G with 1.0";
    compare("own factor");
}

} // namespace
