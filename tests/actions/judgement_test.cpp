#include "tests/actions/actions_fixture.h"

#include <QClipboard>

using mrl::test::ACTIONS_CODE;
using mrl::test::ActionsProject;
using mrl::test::ActionsTab;
using mrl::test::replaced;
using mrl::test::soundAction;

namespace {

class Judgement : public ::testing::Test
{
  protected:
    Judgement()
    {
        project.putAction(soundAction("A").gamu(1.0f).gamf(1.0f));
        project.putAction(soundAction("G").gamu(1.35f).gamf(1.0f));
        project.putAction(soundAction("Q").gamu(1.5f).gamf(0.0f));
        project.putAction(soundAction("U1").gamu(1.2f).gamf(0.5f));
    }

    ActionsProject project;
};

} // namespace

TEST_F(Judgement, TypedFactorOutOfRangeTurnsRedAtOnceAndSaysWhy)
{
    ActionsTab tab(project);
    ASSERT_TRUE(tab.widget.isValid());
    tab.enter("G", ACT_COL_GAMF, "1.36");
    EXPECT_TRUE(tab.isRed("G", ACT_COL_GAMF));
    EXPECT_EQ(tab.toolTip("G", ACT_COL_GAMF), QStringLiteral("GAMF has to be between 0.0 and 1.35!"));
    EXPECT_FALSE(tab.isRowValid("G"));
    EXPECT_FALSE(tab.widget.isValid());
    EXPECT_EQ(tab.record("G").gamf, 1.36f);
    EXPECT_TRUE(tab.widget.isModified());
}

TEST_F(Judgement, RightValueTurnsTheRowBlackAgain)
{
    ActionsTab tab(project);
    tab.enter("G", ACT_COL_GAMF, "1.36");
    tab.enter("G", ACT_COL_GAMU, "1.4");
    EXPECT_FALSE(tab.isRed("G", ACT_COL_GAMF));
    EXPECT_EQ(tab.toolTip("G", ACT_COL_GAMF), QString());
    EXPECT_TRUE(tab.isRowValid("G"));
    EXPECT_TRUE(tab.widget.isValid());
}

TEST_F(Judgement, EveryJudgementBeginsWithABlackRowWithoutToolTips)
{
    ActionsTab tab(project);
    {
        const QSignalBlocker blocker(&tab.table);
        for (const int id : {ACT_COL_ACTION, ACT_COL_DESCRIPTION, ACT_COL_PARTITION, ACT_COL_GAMA}) {
            tab.cell("G", id)->setToolTip("of another time");
            tab.cell("G", id)->setForeground(QBrush(Qt::blue));
        }
    }
    tab.enter("G", ACT_COL_GAMU, "1.4");
    for (const int id : {ACT_COL_ACTION, ACT_COL_DESCRIPTION, ACT_COL_PARTITION, ACT_COL_GAMA}) {
        EXPECT_EQ(tab.toolTip("G", id), QString()) << id;
        EXPECT_EQ(tab.cell("G", id)->foreground(), QBrush(Qt::black)) << id;
    }
}

TEST_F(Judgement, MissingCellsReadAsUndefinedAndMinusOne)
{
    ActionsTab tab(project);
    const int row = tab.rowOf("G");
    for (const int id : {ACT_COL_PARTITION, ACT_COL_SUPERPOSITION, ACT_COL_GAMU}) {
        delete tab.table.takeItem(row, tab.table.getColumnNumber(id));
    }
    const tagCDB_LC_ACT record = tab.record("G");
    EXPECT_EQ(record.gamu, LC_UNDEFINED);
    EXPECT_EQ(record.gamf, 1.0f);
    EXPECT_EQ(record.partition, -17); // -1 times 16 and -1
}

TEST_F(Judgement, CommaIsADecimalSignToo)
{
    ActionsTab tab(project);
    tab.enter("G", ACT_COL_GAMF, "1,2");
    EXPECT_EQ(tab.record("G").gamf, 1.2f);
}

TEST_F(Judgement, OnlyTheFailingCellsAreRed)
{
    ActionsTab tab(project);
    tab.enter("G", ACT_COL_PSI1, "0.4");
    // Psi2 is 0.5: it lies above Psi1 now, and Psi1 below it; Psi1s = 0.5 is no less than Psi1.
    for (const int id : {ACT_COL_PSI1, ACT_COL_PSI2}) {
        EXPECT_TRUE(tab.isRed("G", id)) << id;
    }
    for (const int id : {ACT_COL_ACTION, ACT_COL_DESCRIPTION, ACT_COL_PARTITION, ACT_COL_SUPERPOSITION,
                         ACT_COL_GAMU, ACT_COL_GAMF, ACT_COL_GAMA, ACT_COL_PSI0, ACT_COL_PSI1S}) {
        EXPECT_FALSE(tab.isRed("G", id)) << id;
        EXPECT_EQ(tab.cell("G", id)->foreground(), QBrush(Qt::black)) << id;
    }
}

TEST_F(Judgement, OneEntryChangesAllThreeSelectedRows)
{
    ActionsTab tab(project);
    tab.clickCell("G", ACT_COL_GAMU);
    tab.clickCell("U1", ACT_COL_GAMU, Qt::ShiftModifier);
    QSignalSpy values(&tab.widget, SIGNAL(signal_actionValuesChanged(int, int)));
    tab.typeOver("0.9");
    for (const char* name : {"G", "Q", "U1"}) {
        EXPECT_EQ(tab.record(name).gamu, 0.9f) << name;
    }
    EXPECT_EQ(tab.record("A").gamu, 1.0f);
    EXPECT_EQ(values.count(), 3);
    // Gamf 1.0 of G is above 0.9 now; 0 of Q and 0.5 of U1 aren't.
    EXPECT_FALSE(tab.isRowValid("G"));
    EXPECT_TRUE(tab.isRowValid("Q"));
    EXPECT_TRUE(tab.isRowValid("U1"));
    EXPECT_TRUE(tab.isRed("G", ACT_COL_GAMF));
}

TEST_F(Judgement, SignalNamesThePositionsAndComesAfterTheVerdict)
{
    ActionsTab tab(project);
    int row = -1;
    int column = -1;
    bool valid = true;
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_actionValuesChanged, &tab.widget,
                     [&](int r, int c) {
                         row = r;
                         column = c;
                         valid = tab.isRowValid("Q");
                     });
    tab.enter("Q", ACT_COL_GAMF, "9");
    EXPECT_EQ(row, tab.rowOf("Q"));
    EXPECT_EQ(tab.table.getColumnId(column), ACT_COL_GAMF);
    EXPECT_FALSE(valid);
}

TEST_F(Judgement, EditedRowIsNamedAlthoughItWillSortElsewhere)
{
    ActionsTab tab(project);
    tab.table.sortByColumn(tab.table.getColumnNumber(ACT_COL_GAMU), Qt::AscendingOrder);
    ASSERT_EQ(tab.names(), QStringList({"A", "U1", "G", "Q"}));
    QStringList seen;
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_actionValuesChanged, &tab.widget,
                     [&](int row, int) {
                         tagCDB_LC_ACT record{};
                         tab.widget.readRow(row, record);
                         seen << QString::fromLatin1(mrl::test::codeName(record)).trimmed();
                     });
    tab.enter("A", ACT_COL_GAMU, "9");
    EXPECT_EQ(seen, QStringList({"A"}));
    EXPECT_TRUE(tab.isRowValid("A"));
    EXPECT_EQ(tab.record("A").gamu, 9.0f);
    EXPECT_EQ(tab.names(), QStringList({"U1", "G", "Q", "A"}));
}

TEST_F(Judgement, SeveralRowsKeepTheirRecordsWhileASortedFactorChanges)
{
    ActionsTab tab(project);
    tab.table.sortByColumn(tab.table.getColumnNumber(ACT_COL_GAMU), Qt::DescendingOrder);
    std::map<QString, tagCDB_LC_ACT> expected;
    for (const QString& name : tab.names()) {
        expected[name] = tab.record(name);
    }
    ASSERT_EQ(tab.names(), QStringList({"Q", "G", "U1", "A"}));
    tab.clickCell("G", ACT_COL_GAMU);
    tab.clickCell("A", ACT_COL_GAMU, Qt::ShiftModifier);
    tab.typeOver("2");
    for (auto& [name, record] : expected) {
        if (name != "Q") {
            record.gamu = 2.0f;
        }
        const tagCDB_LC_ACT now = tab.record(name);
        EXPECT_EQ(std::memcmp(&now, &record, sizeof now), 0) << name.toStdString();
    }
    EXPECT_EQ(tab.names().last(), QStringLiteral("Q"));
}

TEST_F(Judgement, ChangeInARowThatIsNotSelectedJudgesNothing)
{
    ActionsTab tab(project);
    tab.table.clearSelection();
    QSignalSpy values(&tab.widget, SIGNAL(signal_actionValuesChanged(int, int)));
    static_cast<MRL_H_TwSimpleLineEditItem*>(tab.cell("G", ACT_COL_GAMF))->setVal(5.0f);
    EXPECT_EQ(values.count(), 1);
    EXPECT_TRUE(tab.isRowValid("G"));
    EXPECT_FALSE(tab.isRed("G", ACT_COL_GAMF));
    EXPECT_TRUE(tab.widget.isModified());
}

TEST_F(Judgement, JudgingReportsNoChangeOfItsOwn)
{
    ActionsTab tab(project);
    QSignalSpy cells(&tab.table, SIGNAL(cellChanged(int, int)));
    tab.enter("G", ACT_COL_GAMF, "1.36");
    EXPECT_EQ(cells.count(), 1);
}

TEST_F(Judgement, ChosenPartitionReachesTheRecord)
{
    ActionsTab tab(project);
    static_cast<MRL_H_TwSimpleComboBoxItem*>(tab.cell("Q", ACT_COL_PARTITION))->setCurrentId(50);
    EXPECT_EQ(tab.record("Q").partition, 0x232);
    static_cast<MRL_H_TwSimpleComboBoxItem*>(tab.cell("Q", ACT_COL_SUPERPOSITION))->setCurrentId(8);
    EXPECT_EQ(tab.record("Q").partition, 0x238);
}

TEST_F(Judgement, TypedDescriptionReachesTheRecord)
{
    ActionsTab tab(project);
    tab.enter("Q", ACT_COL_DESCRIPTION, "Live load");
    EXPECT_EQ(lcm_title_text(tab.record("Q").title), QStringLiteral("Live load"));
}

TEST_F(Judgement, PastedColumnIsJudgedRowByRow)
{
    ActionsTab tab(project);
    tab.clickCell("G", ACT_COL_GAMF);
    QApplication::clipboard()->setText("1,1\n7\n0.25");
    QSignalSpy values(&tab.widget, SIGNAL(signal_actionValuesChanged(int, int)));
    QTest::keyClick(&tab.table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(tab.record("G").gamf, 1.1f);
    EXPECT_EQ(tab.record("Q").gamf, 7.0f);
    EXPECT_EQ(tab.record("U1").gamf, 0.25f);
    EXPECT_TRUE(tab.isRowValid("G"));
    EXPECT_TRUE(tab.isRed("Q", ACT_COL_GAMF));
    EXPECT_TRUE(tab.isRowValid("U1"));
    EXPECT_EQ(values.count(), 3);
}

TEST_F(Judgement, EmptiedFactorGetsItsFormerValueBack)
{
    ActionsTab tab(project);
    tab.clickCell("G", ACT_COL_GAMU);
    tab.table.setFocus();
    QTest::keyClick(&tab.table, Qt::Key_F2);
    QWidget* editor = QApplication::focusWidget();
    ASSERT_NE(editor, &tab.table);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(tab.record("G").gamu, 1.35f);
    EXPECT_EQ(tab.table.rowCount(), 4); // the key stayed with the editor
}

TEST_F(Judgement, FindActionSeesTheEdit)
{
    ActionsTab tab(project);
    tagCDB_LC_ACT record{};
    ASSERT_TRUE(tab.widget.findAction(mrl::test::codeOf("G"), record));
    EXPECT_EQ(record.gamu, 1.35f);
    tab.enter("G", ACT_COL_GAMU, "1.45");
    ASSERT_TRUE(tab.widget.findAction(mrl::test::codeOf("G"), record));
    EXPECT_EQ(record.gamu, 1.45f);
    EXPECT_EQ(tab.widget.getActionMap().at(mrl::test::codeOf("G")).gamu, 1.45f);
}

TEST_F(Judgement, FindActionLeavesTheRecordWhenThereIsNoRow)
{
    ActionsTab tab(project);
    tagCDB_LC_ACT record = soundAction("G").gamu(7.0f);
    EXPECT_FALSE(tab.widget.findAction(mrl::test::codeOf("Z"), record));
    EXPECT_EQ(record.gamu, 7.0f);
    EXPECT_FALSE(tab.widget.actionExists(mrl::test::codeOf("Z")));
    EXPECT_TRUE(tab.widget.actionExists(mrl::test::codeOf("U1")));
    tagCDB_LC_CTRL loadcase{};
    loadcase.action = mrl::test::codeOf("Q");
    EXPECT_TRUE(tab.widget.findAction(loadcase, record));
    EXPECT_EQ(record.gamu, 1.5f);
}

TEST_F(Judgement, AllRowsAreReadInTheirOrder)
{
    ActionsTab tab(project);
    std::vector<tagCDB_LC_ACT> records(9);
    tab.widget.readAllRows(records);
    QStringList names;
    for (const tagCDB_LC_ACT& record : records) {
        names << QString::fromLatin1(mrl::test::codeName(record)).trimmed();
    }
    EXPECT_EQ(names, tab.names());
}

TEST_F(Judgement, DanishAnnexSteersTheTabToo)
{
    const std::string danish =
        replaced(replaced(ACTIONS_CODE, "country = 0", "country = 45"), "2002", "2004");
    ActionsProject other(danish);
    other.putAction(soundAction("G").psi1s(0.8f));
    const ActionsTab tab(other);
    EXPECT_EQ(tab.toolTip("G", ACT_COL_PSI1S), QStringLiteral("Psi1' has to be between 0.9 and 1.0!"));
}
