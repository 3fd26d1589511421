#include <gmock/gmock.h>

#include <QHeaderView>

#include "lcdata/values/packing.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

int positionOf(const Tabs& tabs, int column) { return tabs.table->getColumnNumber(column); }
QString caption(const Tabs& tabs, int column)
{
    return tabs.table->horizontalHeaderItemOnColId(column)->text();
}
QString headerTip(const Tabs& tabs, int column)
{
    return tabs.table->horizontalHeaderItemOnColId(column)->toolTip();
}

TEST(LoadcaseTable, HasTheColumnsOfTheDesignCodeInTheirOrder)
{
    const LoadCaseProject project;
    const Tabs tabs(project);
    const int order[] = {LC_COL_NUMBER, LC_COL_TITLE, LC_COL_ACTION, LC_COL_DEADFACTOR, LC_COL_DLX,
                         LC_COL_DLY,    LC_COL_DLZ,   LC_COL_GAMU,   LC_COL_GAMF,       LC_COL_GAMA,
                         LC_COL_PSI0,   LC_COL_PSI1,  LC_COL_PSI2,   LC_COL_PSI1S};
    ASSERT_EQ(tabs.table->columnCount(), 14);
    for (int i = 0; i < 14; ++i) {
        EXPECT_EQ(tabs.table->getColumnId(i), order[i]);
    }
    EXPECT_EQ(tabs.table->objectName(), "loadcase table");
    EXPECT_EQ(caption(tabs, LC_COL_NUMBER), "Nr");
    EXPECT_EQ(caption(tabs, LC_COL_GAMU), "gU");
    EXPECT_EQ(caption(tabs, LC_COL_PSI1S), "Psi1s");
    EXPECT_EQ(headerTip(tabs, LC_COL_PSI1S), "Combination factor Psi1s");
    EXPECT_EQ(headerTip(tabs, LC_COL_GAMA), "Accidental safety factor");
}

TEST(LoadcaseTable, DesignCodeWithoutAnAccidentalFactorHasOneColumnLess)
{
    const LoadCaseProject project(withoutLines(LOAD_CASE_CODE, "Gama"));
    const Tabs tabs(project);
    EXPECT_EQ(tabs.table->columnCount(), 13);
    EXPECT_EQ(positionOf(tabs, LC_COL_GAMA), -1);
    EXPECT_EQ(positionOf(tabs, LC_COL_PSI0), positionOf(tabs, LC_COL_GAMF) + 1);
}

TEST(LoadcaseTable, DeadWeightNamesTheAxisOfGravity)
{
    const std::pair<int, QString> axes[] = {{1, "X"}, {-2, "Y"}, {3, "Z"}, {9, "Z"}};
    for (const auto& [gravity, letter] : axes) {
        const LoadCaseProject project;
        project.setSystem(0, gravity);
        const Tabs tabs(project, Tabs::LoadcasesAlone);
        EXPECT_EQ(headerTip(tabs, LC_COL_DEADFACTOR),
                  "Component of automatic dead weight in " + letter + "-direction");
    }
}

TEST(LoadcaseTable, EmptyProjectSortsResizesAndReadsItsSettings)
{
    const LoadCaseProject project;
    const Tabs tabs(project);
    EXPECT_EQ(tabs.table->rowCount(), 0);
    EXPECT_TRUE(tabs.lc->isValid());
    EXPECT_FALSE(tabs.lc->isActionUsed(permanent()));
}

TEST(LoadcaseTable, StandsSortedByNumberWithItsTitles)
{
    const LoadCaseProject project;
    for (const int number : {10, 9, 100}) {
        project.putLoadCase(number, following("G").title(QString("Case %1").arg(number)));
    }
    project.putAction(permanent());
    const Tabs tabs(project);
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(9, 10, 100));
    EXPECT_EQ(tabs.text(100, LC_COL_TITLE), "Case 100");
    EXPECT_FALSE(tabs.lc->isModified());
}

TEST(LoadcaseTable, FillingSortsByNumberHoweverTheEmptyTableWasSorted)
{
    const LoadCaseProject project;
    for (const int number : {1, 2, 3}) {
        project.putLoadCase(number, following(70));
    }
    LCM_LoadcaseWidget tab(project.db(), nullptr, "loadcasewidget");
    auto* table = static_cast<MRL_H_TableWidget*>(tab.tableWidget());
    table->sortByColumn(0, Qt::DescendingOrder);
    tab.fillTable();
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(tab.getItemVal(row, LC_COL_NUMBER), static_cast<float>(row + 1));
    }
}

TEST(LoadcaseTable, RowShowsItsActionsFactorsReadOnly)
{
    const LoadCaseProject project;
    project.putAction(variable());
    tagCDB_LC_CTRL record = following("Q");
    record.gamf = 1.23f; // what an older program copied here isn't shown
    project.putLoadCase(1, record);
    const Tabs tabs(project);
    EXPECT_EQ(tabs.actionId(1), codeOf("Q"));
    EXPECT_EQ(tabs.text(1, LC_COL_ACTION), "Q    Variable");
    const std::pair<int, float> expected[] = {{LC_COL_GAMU, 1.5f}, {LC_COL_GAMF, 0.0f}, {LC_COL_GAMA, 1.0f},
                                              {LC_COL_PSI0, 0.7f}, {LC_COL_PSI1, 0.5f}, {LC_COL_PSI2, 0.3f},
                                              {LC_COL_PSI1S, 0.9f}};
    for (const auto& [column, value] : expected) {
        EXPECT_EQ(tabs.value(1, column), value) << column;
        EXPECT_FALSE(tabs.isEditable(1, column)) << column;
        EXPECT_FALSE(tabs.lc->isItemFromAction(tabs.row(1), column)) << column;
    }
    EXPECT_EQ(tabs.text(1, LC_COL_GAMU), "1.50");
    EXPECT_TRUE(tabs.isEditable(1, LC_COL_DEADFACTOR));
    EXPECT_FALSE(tabs.isEditable(1, LC_COL_NUMBER));
    EXPECT_EQ(tabs.lc->getItemVal(tabs.row(1), LC_COL_ACTION), LC_UNDEFINED);
}

TEST(LoadcaseTable, RowWithoutActionShowsItsOwnFactorsForChange)
{
    const LoadCaseProject project;
    tagCDB_LC_CTRL record = standalone();
    record.gamu = lcm_pack_pair(1.35f, 1.0f);
    record.gamf = 0.9f;
    record.psi0 = 0.6f;
    record.psi1 = lcm_pack_pair(0.5f, 0.8f);
    record.psi2 = 0.3f;
    project.putLoadCase(1, record);
    const Tabs tabs(project);
    EXPECT_EQ(tabs.text(1, LC_COL_ACTION), "None");
    const std::pair<int, float> expected[] = {{LC_COL_GAMU, 1.35f}, {LC_COL_GAMF, 0.9f}, {LC_COL_GAMA, 1.0f},
                                              {LC_COL_PSI0, 0.6f},  {LC_COL_PSI1, 0.5f}, {LC_COL_PSI2, 0.3f},
                                              {LC_COL_PSI1S, 0.8f}};
    for (const auto& [column, value] : expected) {
        EXPECT_FLOAT_EQ(tabs.value(1, column), value) << column;
        EXPECT_TRUE(tabs.isEditable(1, column)) << column;
    }
}

TEST(LoadcaseTable, ImperfectionShowsZerosReadOnly)
{
    const LoadCaseProject project;
    project.putLoadCase(1, following(70));
    const Tabs tabs(project);
    EXPECT_EQ(tabs.text(1, LC_COL_ACTION), "IMP  Imperfection");
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        EXPECT_EQ(tabs.value(1, column), 0.0f);
        EXPECT_FALSE(tabs.isEditable(1, column));
    }
    EXPECT_TRUE(tabs.isValid(1));
}

TEST(LoadcaseTable, NegativeComponentAlongGravityShowsItsAmount)
{
    const LoadCaseProject project;
    tagCDB_LC_CTRL record = following(70);
    record.dlx = -0.5f;
    record.dlz = -1.25f;
    project.putLoadCase(1, record);
    const Tabs tabs(project);
    EXPECT_EQ(tabs.value(1, LC_COL_DLZ), 1.25f);
    EXPECT_EQ(tabs.value(1, LC_COL_DEADFACTOR), 1.25f);
    EXPECT_EQ(tabs.value(1, LC_COL_DLX), -0.5f);
}

TEST(LoadcaseTable, MissingActionShowsItsMarkerAndZeros)
{
    const LoadCaseProject project;
    project.putAction(permanent());
    for (const int number : {1, 2, 3}) {
        project.putLoadCase(number, following("X"));
    }
    const Tabs tabs(project);
    EXPECT_EQ(tabs.text(2, LC_COL_ACTION), "*** Action X    is missing ***");
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        EXPECT_EQ(tabs.value(2, column), 0.0f);
    }
    EXPECT_FALSE(tabs.isValid(2));
    EXPECT_TRUE(tabs.cell(2, LC_COL_ACTION)->toolTip().isEmpty());
    EXPECT_FALSE(tabs.lc->isValid());

    auto* header =
        static_cast<MRL_H_TwHeaderComboBoxItem*>(tabs.table->horizontalHeaderItemOnColId(LC_COL_ACTION));
    const auto entries = header->getComboEntries(0);
    EXPECT_EQ(std::count_if(entries.begin(), entries.end(),
                            [](const ComboList& entry) { return entry.text.startsWith("***"); }),
              1);
}

TEST(LoadcaseTable, LowerCaseActionIsFoundBySecondAttempt)
{
    const LoadCaseProject project;
    project.putAction(permanent());
    project.putAction(bareAction("q").title("old").factors(1.0f).partition(0x31));
    project.putLoadCase(1, following("Q"));
    project.putLoadCase(2, following("q"));
    const Tabs tabs(project);
    EXPECT_EQ(tabs.actionId(1), codeOf("q"));
    EXPECT_EQ(tabs.actionId(2), codeOf("q"));
    EXPECT_EQ(tabs.value(1, LC_COL_GAMU), 1.0f);
    EXPECT_TRUE(tabs.isValid(1));
}

TEST(LoadcaseTable, RowWithAMissingActionIsWrittenBackWithItsWord)
{
    const LoadCaseProject project;
    project.putLoadCase(1, following("X"));
    project.putLoadCase(2, following("x"));
    project.putLoadCase(3, following("Ab"));
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    EXPECT_EQ(tabs.actionId(1), codeOf("x"));
    EXPECT_EQ(tabs.actionId(3), codeOf("ab"));
    EXPECT_TRUE(tabs.lc->isValid());
    tabs.save();
    EXPECT_EQ(project.storedLoadCase(1).action, codeOf("X"));
    EXPECT_EQ(project.storedLoadCase(2).action, codeOf("x"));
    EXPECT_EQ(project.storedLoadCase(3).action, codeOf("Ab"));
}

TEST(LoadcaseTable, NumberIsExactToTheLastDigit)
{
    const LoadCaseProject project;
    for (const int number : {999999, 16777217, 2147483647}) {
        project.putLoadCase(number, following(70));
    }
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(999999, 16777217, 2147483647));
    tabs.save();
    EXPECT_THAT(project.storedNumbers(), testing::ElementsAre(999999, 16777217, 2147483647));
}

TEST(LoadcaseTable, LoadcasesAloneTakeTheirFactorsFromTheModel)
{
    const LoadCaseProject project;
    project.putAction(variable().gamu(1.4f)); // not as the design code has it
    project.putLoadCase(1, following("Q"));
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    EXPECT_EQ(tabs.value(1, LC_COL_GAMU), 1.4f);
    EXPECT_TRUE(tabs.isValid(1));
}

TEST(LoadcaseTable, FactorColumnsTakeAnyNumberDeadWeightItsRange)
{
    const LoadCaseProject project;
    const Tabs tabs(project);
    const auto description = [&](int column) {
        return static_cast<MRL_H_TwHeaderLineEditItem*>(tabs.table->horizontalHeaderItemOnColId(column))
            ->description();
    };
    for (const int column : {LC_COL_DEADFACTOR, LC_COL_DLZ}) { // gravity along Z
        EXPECT_EQ(description(column).firstBound, 0.0);
        EXPECT_EQ(description(column).secondBound, 9999.0);
    }
    for (const int column : {LC_COL_DLX, LC_COL_DLY, LC_COL_GAMU, LC_COL_PSI1S}) {
        EXPECT_GT(description(column).firstBound, description(column).secondBound);
    }
    EXPECT_EQ(description(LC_COL_NUMBER).format, 0);
    EXPECT_EQ(description(LC_COL_TITLE).format, -15);
    EXPECT_EQ(description(LC_COL_GAMU).format, -3);
    EXPECT_EQ(description(LC_COL_GAMU).precision, 2);
    EXPECT_NE(description(LC_COL_GAMU).flags & 0x800, 0);
}

} // namespace
