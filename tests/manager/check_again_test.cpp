// "Check again" on F5, which a host can ask for.
#include "host/mrl_widgets.h"
#include "tests/manager/manager_fixture.h"

namespace mrl::test {

class CheckAgain : public ManagerTest
{
  protected:
    CheckAgain() { project.putAction(soundAction("G").partition(0x10).gamu(1.35f).gamf(1.5f)); }
    ~CheckAgain() override { wantExtras(0); }

    static void wantExtras(int wanted)
    {
        qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
            ->setAppSettings("LF_Manager", "extras", wanted);
    }
    static const QTableWidgetItem* cell(QWidget* dialog, int number, int column)
    {
        MRL_H_TableWidget* table = loadCaseTab(dialog)->tableWidget();
        return table->itemOnColId(rowOf(table, LC_COL_NUMBER, QString::number(number)), column);
    }
    static bool isRed(QWidget* dialog, int number)
    {
        return cell(dialog, number, LC_COL_GAMF)->foreground().color() == Qt::red;
    }
    /// Puts the favourable factor of G right on the actions tab.
    static void correctAction(QWidget* dialog)
    {
        tabsOf(dialog)->setCurrentWidget(actionsTab(dialog));
        MRL_H_TableWidget* table = actionsTab(dialog)->tableWidget();
        typeInto(table, rowOf(table, ACT_COL_ACTION, "G"), ACT_COL_GAMF, "1");
    }
    static void giveNone(QWidget* dialog, int number)
    {
        MRL_H_TableWidget* table = loadCaseTab(dialog)->tableWidget();
        tabsOf(dialog)->setCurrentWidget(loadCaseTab(dialog));
        const int row = rowOf(table, LC_COL_NUMBER, QString::number(number));
        table->selectRow(row);
        dynamic_cast<MRL_H_TwSimpleComboBoxItem*>(table->itemOnColId(row, LC_COL_ACTION))->setCurrentId(0);
    }
};

TEST_F(CheckAgain, FreesTheLoadCasesOfACorrectedAction)
{
    wantExtras(1);
    MRL_LC_CtrlStruct control;
    const int result = run(control, [](QWidget* dialog) {
        ASSERT_TRUE(isRed(dialog, 1));
        correctAction(dialog);
        ASSERT_TRUE(isRed(dialog, 1)) << "an edited action judges no load case";
        EXPECT_FALSE(loadCaseTab(dialog)->isValid());
        QTest::keyClick(dialog, Qt::Key_F5);
        for (int number = 1; number <= 3; ++number) {
            EXPECT_FALSE(isRed(dialog, number));
            EXPECT_EQ(cell(dialog, number, LC_COL_GAMF)->toolTip(), QString());
        }
        pressOk(dialog);
    });
    EXPECT_EQ(result, QDialog::Accepted);
}

TEST_F(CheckAgain, TakesTheColoursOfAnActionFromALoadCaseThatWasGivenNone)
{
    wantExtras(1);
    MRL_LC_CtrlStruct control;
    run(control, [this](QWidget* dialog) {
        giveNone(dialog, 2);
        ASSERT_TRUE(isRed(dialog, 2)) << "a load case without an action isn't examined";
        QTest::keyClick(dialog, Qt::Key_F5);
        EXPECT_FALSE(isRed(dialog, 2));
        EXPECT_EQ(cell(dialog, 2, LC_COL_GAMF)->toolTip(), QString());
        EXPECT_TRUE(isRed(dialog, 1)) << "what is wrong stays red";
        EXPECT_FALSE(loadCaseTab(dialog)->isValid());
        answers.click("Discard");
        pressCancel(dialog);
    });
}

TEST_F(CheckAgain, JudgesWhatIsStillBeingTyped)
{
    wantExtras(1);
    MRL_LC_CtrlStruct control;
    run(control, [this](QWidget* dialog) {
        tabsOf(dialog)->setCurrentWidget(actionsTab(dialog));
        MRL_H_TableWidget* table = actionsTab(dialog)->tableWidget();
        const int row = rowOf(table, ACT_COL_ACTION, "G");
        table->setFocus();
        table->setCurrentCell(row, table->getColumnNumber(ACT_COL_GAMF));
        QTest::keyClicks(table, "1");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
        EXPECT_FALSE(isRed(dialog, 1));
        EXPECT_TRUE(loadCaseTab(dialog)->isValid());
        answers.click("Discard");
        pressCancel(dialog);
    });
}

TEST_F(CheckAgain, IsOfferedOnlyIfTheHostWantsIt)
{
    MRL_LC_CtrlStruct control;
    run(control, [](QWidget* dialog) {
        EXPECT_EQ(dialog->findChild<QAction*>("check again"), nullptr);
        correctAction(dialog);
        QTest::keyClick(dialog, Qt::Key_F5);
        EXPECT_TRUE(isRed(dialog, 1));
        pressCancel(dialog);
    });
}

} // namespace mrl::test
