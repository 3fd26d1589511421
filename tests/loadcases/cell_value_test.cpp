// Cells of a class that the table's headers don't make: they are left alone, and have no value.

#include "loadcases/cell_value.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "host/mrl_widgets.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

TEST(LoadcaseCell, OfAForeignClassHasNoValueNoTextAndNoId)
{
    QTableWidgetItem foreign("1.5");
    for (QTableWidgetItem* cell : {&foreign, static_cast<QTableWidgetItem*>(nullptr)}) {
        EXPECT_EQ(lcm_cell_value(cell), LC_UNDEFINED);
        EXPECT_EQ(lcm_cell_number(cell), -99999);
        EXPECT_EQ(lcm_cell_text(cell), QString());
        EXPECT_EQ(lcm_cell_id(cell), -1);
        EXPECT_FALSE(lcm_cell_from_action(cell));
        lcm_set_cell_from_action(cell, true);
        EXPECT_FALSE(lcm_cell_from_action(cell));
        lcm_set_cell_value(cell, 2.0f, LCM_CellInput::Locked, 0.0f);
    }
    EXPECT_EQ(foreign.text(), "1.5");
    EXPECT_FALSE(foreign.data(ROLE_FROM_ACTION).isValid());
    EXPECT_TRUE(foreign.flags() & Qt::ItemIsEditable);
}

class LoadcaseCells : public testing::Test
{
  protected:
    LoadcaseCells()
    {
        project.putAction(permanent());
        project.putAction(variable());
        project.putLoadCase(1, following("Q").title("Live"));
        project.putLoadCase(2, standalone());
    }
    LoadCaseProject project;
};

TEST_F(LoadcaseCells, TextIsThatOfALineOrOfTheChosenEntry)
{
    const Tabs tabs(project);
    EXPECT_EQ(tabs.lc->getItemText(tabs.row(1), LC_COL_TITLE), "Live");
    EXPECT_EQ(tabs.lc->getItemText(tabs.row(1), LC_COL_ACTION), "Q    Variable");
    EXPECT_EQ(tabs.lc->getItemText(tabs.row(1), 4711), QString());
}

TEST_F(LoadcaseCells, RowWithoutAnActionCellReadsAsMinusOne)
{
    const Tabs tabs(project);
    const int row = tabs.row(2);
    delete tabs.table->takeItem(row, tabs.table->getColumnNumber(LC_COL_ACTION));
    LCM_LoadcaseEntry entry;
    tabs.lc->readRow(row, entry);
    EXPECT_EQ(entry.record.action, -1);
    EXPECT_EQ(bits(entry.record.gamu), bits(LC_UNDEFINED));
    tabs.lc->setActionItem(row, LC_COL_ACTION, codeOf("Q")); // nothing to choose in
    EXPECT_EQ(tabs.table->itemOnColId(row, LC_COL_ACTION), nullptr);
}

TEST_F(LoadcaseCells, ActionIsChosenInItsOwnColumnOnly)
{
    const Tabs tabs(project);
    tabs.lc->setActionItem(tabs.row(1), LC_COL_TITLE, codeOf("G"));
    EXPECT_EQ(tabs.actionId(1), codeOf("Q"));
    EXPECT_EQ(tabs.text(1, LC_COL_TITLE), "Live");
    tabs.lc->setActionItem(tabs.row(1), LC_COL_ACTION, codeOf("G"));
    EXPECT_EQ(tabs.actionId(1), codeOf("G"));
}

TEST_F(LoadcaseCells, MissingActionSetAgainKeepsTheWordThatTheRowCameWith)
{
    project.putLoadCase(3, following("Ab"));
    const Tabs tabs(project);
    tabs.lc->setActionItem(tabs.row(3), LC_COL_ACTION, tabs.actionId(3));
    EXPECT_EQ(tabs.read(3).record.action, codeOf("Ab"));
    tabs.lc->setActionItem(tabs.row(3), LC_COL_ACTION, codeOf("Xy"));
    EXPECT_EQ(tabs.text(3, LC_COL_ACTION), "*** Action Xy   is missing ***");
    EXPECT_EQ(tabs.read(3).record.action, codeOf("Xy"));
}

TEST_F(LoadcaseCells, FillingARowReportsNoEdit)
{
    const Tabs tabs(project);
    QSignalSpy reports(tabs.table, SIGNAL(cellChanged(int, int)));
    LCM_LoadcaseEntry entry;
    entry.number = 1;
    entry.record = standalone().title("Filled");
    entry.record.dlz = -2.0f;
    tabs.lc->fillRow(tabs.row(1), entry);
    EXPECT_EQ(tabs.text(1, LC_COL_TITLE), "Filled");
    EXPECT_EQ(reports.count(), 0);
    EXPECT_FALSE(tabs.lc->isModified());
}

TEST_F(LoadcaseCells, ChangeOfActionIsReportedOnce)
{
    const Tabs tabs(project);
    QSignalSpy reports(tabs.table, SIGNAL(cellChanged(int, int)));
    tabs.chooseAction(2, codeOf("Q"));
    EXPECT_EQ(tabs.value(2, LC_COL_GAMU), 1.5f);
    EXPECT_EQ(reports.count(), 1) << "what follows from it is no edit";
}

TEST_F(LoadcaseCells, UndefinedOwnFactorShowsNothing)
{
    tagCDB_LC_CTRL record = standalone();
    record.gamf = LC_UNDEFINED;
    project.putLoadCase(2, record);
    const Tabs tabs(project);
    EXPECT_EQ(tabs.text(2, LC_COL_GAMF), "");
    EXPECT_TRUE(tabs.lc->isItemFromAction(tabs.row(2), LC_COL_GAMF));
    EXPECT_EQ(bits(tabs.read(2).record.gamf), bits(LC_UNDEFINED));
}

TEST_F(LoadcaseCells, ComponentsAcrossGravityAreShownAndReadWithTheirSigns)
{
    tagCDB_LC_CTRL record = following("Q");
    record.dlx = 0.25f;
    record.dly = -0.5f;
    record.dlz = -1.0f;
    project.putLoadCase(1, record);
    const Tabs tabs(project);
    tabs.lc->findChild<MRL_QT_CheckBox*>("check_deadload")->setChecked(true);
    EXPECT_EQ(tabs.value(1, LC_COL_DLX), 0.25f);
    EXPECT_EQ(tabs.value(1, LC_COL_DLY), -0.5f);
    EXPECT_EQ(tabs.value(1, LC_COL_DLZ), 1.0f);
    EXPECT_TRUE(sameBytes(tabs.read(1).record, record));
    for (const int column : {LC_COL_DEADFACTOR, LC_COL_DLX, LC_COL_DLY, LC_COL_DLZ}) {
        EXPECT_TRUE(tabs.isEditable(1, column)) << column;
    }
}

TEST_F(LoadcaseCells, NumberIsKeptAsANumber)
{
    const Tabs tabs(project);
    tabs.lc->setItemVal(tabs.row(1), LC_COL_NUMBER, 12.0f, true);
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(2, 12)) << "sorted as numbers";
    EXPECT_EQ(tabs.cell(12, LC_COL_NUMBER)->data(Qt::DisplayRole).type(), QVariant::Int);
    EXPECT_EQ(tabs.text(12, LC_COL_TITLE), "Live");
}

} // namespace
