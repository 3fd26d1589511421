// What the table of load cases is made of: its captions, its tool tips, and what its columns take.

#include <gmock/gmock.h>

#include <QHeaderView>
#include <QTranslator>

#include <cstdlib>

#include "host/mrl_widgets.h"
#include "loadcases/table_loadcases.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

MRL_H_TwHeaderItem* header(const Tabs& tabs, int column)
{
    return static_cast<MRL_H_TwHeaderItem*>(tabs.table->horizontalHeaderItemOnColId(column));
}
const StructLineEdit& description(const Tabs& tabs, int column)
{
    return static_cast<MRL_H_TwHeaderLineEditItem*>(header(tabs, column))->description();
}

TEST(LoadcaseColumns, HaveTheirCaptionsAndToolTips)
{
    const LoadCaseProject project(sampleCodeOf({"G", "Q", "W"}));
    const Tabs tabs(project);
    const struct
    {
        int column;
        QString caption;
        QString toolTip;
    } expected[] = {
        {LC_COL_NUMBER, "Nr", "Number of loadcase"},
        {LC_COL_TITLE, "Title", "Name of loadcase"},
        {LC_COL_ACTION, "Action", "Action of loadcase"},
        {LC_COL_DEADFACTOR, "Factor of dead weight", "Component of automatic dead weight in Z-direction"},
        {LC_COL_DLX, "DLX", "Component of automatic dead weight in X-direction"},
        {LC_COL_DLY, "DLY", "Component of automatic dead weight in Y-direction"},
        {LC_COL_DLZ, "DLZ", "Component of automatic dead weight in Z-direction"},
        {LC_COL_GAMU, "gU", "Unfavourable safety factor"},
        {LC_COL_GAMF, "gF", "Favourable safety factor"},
        {LC_COL_GAMA, "gA", "Accidental safety factor"},
        {LC_COL_PSI0, "p0", "Combination factor p0"},
        {LC_COL_PSI1, "p1", "Combination factor p1"},
        {LC_COL_PSI2, "p2", "Combination factor p2"},
        {LC_COL_PSI1S, "p1s", "Combination factor p1s"}};
    for (const auto& [column, caption, toolTip] : expected) {
        EXPECT_EQ(header(tabs, column)->text(), caption);
        EXPECT_EQ(header(tabs, column)->toolTip(), toolTip);
    }
}

class LoadcaseColumn : public testing::TestWithParam<std::pair<const char*, int>>
{
};

TEST_P(LoadcaseColumn, IsLeftOutWhereTheDesignCodeLacksItsFactor)
{
    const auto [key, column] = GetParam();
    const LoadCaseProject project(withoutLines(LOAD_CASE_CODE, std::string(key) + " = 1\n"));
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    EXPECT_EQ(tabs.table->columnCount(), 13);
    EXPECT_EQ(tabs.table->getColumnNumber(column), -1);
    for (int position = 0; position < 13; ++position) {
        EXPECT_NE(tabs.table->getColumnId(position), -1) << "a gap";
    }
}

INSTANTIATE_TEST_SUITE_P(Factors, LoadcaseColumn,
                         testing::Values(std::pair{"Gamu", LC_COL_GAMU}, std::pair{"Gamf", LC_COL_GAMF},
                                         std::pair{"Gama", LC_COL_GAMA}, std::pair{"Psi0", LC_COL_PSI0},
                                         std::pair{"Psi1", LC_COL_PSI1}, std::pair{"Psi2", LC_COL_PSI2},
                                         std::pair{"Psi1s", LC_COL_PSI1S}),
                         [](const auto& factor) { return std::string(factor.param.first); });

/// Whether a column takes a number: typed, with the current row's action "None".
bool takes(const Tabs& tabs, int column, const QString& text)
{
    QTableWidgetItem* cell = tabs.cell(1, column);
    MRL_H_TwSimpleLineEditItem::fromItem(cell)->setVal(0.25f);
    tabs.table->setCurrentItem(cell);
    QTest::keyClick(tabs.table, Qt::Key_F2);
    auto* editor = tabs.table->viewport()->findChild<QLineEdit*>();
    EXPECT_NE(editor, nullptr);
    if (editor == nullptr) {
        return false;
    }
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    delete editor; // else the next search finds it while it waits for its deletion
    return tabs.value(1, column) != 0.25f;
}

class ComponentAlongGravity : public testing::TestWithParam<int>
{
};

TEST_P(ComponentAlongGravity, IsAnAmountUpTo9999AndTheOthersHaveSigns)
{
    const LoadCaseProject project;
    project.setSystem(0, GetParam());
    project.putLoadCase(1, standalone());
    Tabs tabs(project, Tabs::LoadcasesAlone);
    tabs.lc->findChild<MRL_QT_CheckBox*>("check_deadload")->setChecked(true);
    tabs.show();
    for (int axis = 1; axis <= 3; ++axis) {
        const int column = LC_COL_DLX + axis - 1;
        const bool along = axis == std::abs(GetParam());
        EXPECT_EQ(takes(tabs, column, "-0.5"), !along) << axis;
        EXPECT_EQ(takes(tabs, column, "10000"), !along) << axis;
        EXPECT_TRUE(takes(tabs, column, "9999")) << axis;
        EXPECT_TRUE(takes(tabs, column, "0")) << axis;
    }
    tabs.lc->findChild<MRL_QT_CheckBox*>("check_deadload")->setChecked(false);
    EXPECT_FALSE(takes(tabs, LC_COL_DEADFACTOR, "-1"));
    EXPECT_FALSE(takes(tabs, LC_COL_DEADFACTOR, "10000"));
    EXPECT_TRUE(takes(tabs, LC_COL_DEADFACTOR, "9999"));
}

INSTANTIATE_TEST_SUITE_P(Directions, ComponentAlongGravity, testing::Values(-3, -2, -1, 1, 2, 3));

TEST(LoadcaseColumns, FactorsTakeAnyNumber)
{
    const LoadCaseProject project;
    project.putLoadCase(1, standalone());
    Tabs tabs(project, Tabs::LoadcasesAlone);
    tabs.show();
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        EXPECT_TRUE(takes(tabs, column, "-12345")) << column;
        EXPECT_TRUE(takes(tabs, column, "12345")) << column;
    }
}

TEST(LoadcaseColumns, DescribeNumberTitleAndFactorsToTheirEditors)
{
    const LoadCaseProject project;
    const Tabs tabs(project);
    for (const int column : {LC_COL_NUMBER, LC_COL_TITLE}) {
        const StructLineEdit& base = description(tabs, column);
        EXPECT_EQ(base.format, column == LC_COL_NUMBER ? 0 : -15);
        EXPECT_EQ(base.precision, -1);
        EXPECT_EQ(base.value, 0.0);
        EXPECT_EQ(base.firstBound, 99999.0);
        EXPECT_EQ(base.secondBound, -99999.0);
        EXPECT_EQ(base.thirdBound, -99998.0);
        EXPECT_EQ(base.flags, 0x800);
        EXPECT_EQ(base.separator, ",");
    }
    const StructLineEdit standard = MRL_H_TwHeaderLineEditItem::getDefaultStrcLe(-3);
    for (const int column : {LC_COL_DEADFACTOR, LC_COL_DLX, LC_COL_DLZ, LC_COL_GAMU, LC_COL_PSI1S}) {
        const StructLineEdit& factor = description(tabs, column);
        EXPECT_EQ(factor.format, -3);
        EXPECT_EQ(factor.precision, 2);
        EXPECT_EQ(factor.value, standard.value);
        EXPECT_EQ(factor.thirdBound, standard.thirdBound);
        EXPECT_EQ(factor.flags, standard.flags | 0x800);
    }
}

TEST(LoadcaseColumns, TableSortsAndLeavesSearchAndWidthsAlone)
{
    const LoadCaseProject project;
    project.putLoadCase(1, following(70));
    const Tabs tabs(project);
    EXPECT_TRUE(tabs.table->isSortingEnabled());
    EXPECT_FALSE(tabs.table->isSearchEnabled());
    EXPECT_TRUE(tabs.table->isResetContextMenuOnCreation());
    EXPECT_NE(qobject_cast<MyDelegate*>(tabs.table->itemDelegate()), nullptr);
    EXPECT_EQ(tabs.table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
    const QHeaderView* rows = tabs.table->verticalHeader();
    EXPECT_EQ(rows->sectionResizeMode(0), QHeaderView::Fixed);
    EXPECT_EQ(rows->defaultSectionSize(), rows->fontMetrics().height() + 8);
}

TEST(LoadcaseColumns, AreAsWideAsTheirTextsAfterFilling)
{
    const LoadCaseProject project;
    project.putLoadCase(1, following(70).title("short"));
    const LoadCaseProject wide;
    wide.putLoadCase(1, following(70).title(QString(33, 'W')));
    const auto width = [](const LoadCaseProject& shown) {
        const Tabs tabs(shown, Tabs::LoadcasesAlone);
        return tabs.table->columnWidth(tabs.table->getColumnNumber(LC_COL_TITLE));
    };
    EXPECT_GT(width(wide), 2 * width(project));
}

/// Translates every text of the tab, to a text that shows it.
class Translated : public QTranslator
{
  public:
    Translated() { QCoreApplication::installTranslator(this); }
    ~Translated() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return qstrcmp(context, "LCM_LoadcaseWidget") == 0 ? '~' + QString::fromLatin1(text) : QString();
    }
};

TEST(LoadcaseColumns, AreTranslatedButForTheNumberAndTheMarker)
{
    const Translated translated;
    const LoadCaseProject project(sampleCodeOf({"G", "Q", "W"}));
    project.putLoadCase(1, following("X"));
    const Tabs tabs(project);
    EXPECT_EQ(header(tabs, LC_COL_NUMBER)->text(), "Nr");
    EXPECT_EQ(header(tabs, LC_COL_NUMBER)->toolTip(), "~Number of loadcase");
    for (int column = LC_COL_TITLE; column <= LC_COL_DLZ; ++column) {
        EXPECT_EQ(header(tabs, column)->text().startsWith('~'), !lcm_is_factor_column(column)) << column;
        EXPECT_TRUE(header(tabs, column)->toolTip().startsWith('~')) << column;
    }
    EXPECT_EQ(header(tabs, LC_COL_PSI0)->toolTip(), "~Combination factor p0");
    auto* actions = static_cast<MRL_H_TwHeaderComboBoxItem*>(header(tabs, LC_COL_ACTION));
    std::vector<QString> entries;
    for (const ComboList& entry : actions->getComboEntries(0)) {
        entries.push_back(entry.text);
    }
    EXPECT_THAT(entries, testing::IsSupersetOf({QString("~None"), QString("IMP  ~Imperfection"),
                                                QString("*** Action X    is missing ***")}));
    for (auto* button : tabs.lc->findChildren<QAbstractButton*>(QRegularExpression("^(button|check)_"))) {
        EXPECT_TRUE(button->text().startsWith('~')) << button->objectName().toStdString();
    }
    EXPECT_EQ(tabs.table->findChild<QAction*>("delete unused loadcases")->text(), "~Delete unused loadcases");
}

TEST(LoadcaseColumns, ComponentsAreFittedWhenTheyAreFirstShown)
{
    qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
        ->setAppSettings("LF_Manager", "checkDeadload", 0);
    const LoadCaseProject project;
    project.putLoadCase(1, standalone());
    const Tabs tabs(project);
    auto* box = tabs.lc->findChild<MRL_QT_CheckBox*>("check_deadload");
    ASSERT_FALSE(box->isChecked());
    box->setChecked(true);
    QHeaderView* header = tabs.table->horizontalHeader();
    const int column = tabs.table->getColumnNumber(LC_COL_DLX);
    const int shown = tabs.table->columnWidth(column);
    EXPECT_NE(shown, header->defaultSectionSize());
    tabs.table->resizeColumnToContents(column);
    EXPECT_EQ(tabs.table->columnWidth(column), shown);

    tabs.table->setColumnWidth(column, 234);
    box->setChecked(false);
    box->setChecked(true);
    EXPECT_EQ(tabs.table->columnWidth(column), 234) << "a width that the user chose stays";
}

} // namespace
