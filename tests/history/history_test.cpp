#include "history/history.h"

#include <QClipboard>
#include <QSignalSpy>

#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "tests/history/snapshot.h"
#include "tests/loadcases/load_cases_fixture.h"
#include "tests/support/modal_answers.h"

namespace mrl::test {

class History : public ::testing::Test
{
  protected:
    History()
    {
        project.putAction(permanent());
        project.putAction(variable());
        for (int number = 1; number <= 4; ++number) {
            project.putLoadCase(number, bareLoadCase("G").title(QString("LC %1").arg(number)));
        }
        tabs.emplace(project);
        tabs->show();
        parts = {tabs->actions, tabs->lc, tabs->window()->findChild<QTabWidget*>()};
        history.emplace(parts, nullptr);
    }

    /// Enters a text into a cell as pasting it does.
    void paste(int number, int column, const QString& text) const
    {
        tabs->table->clearSelection();
        tabs->table->setCurrentItem(tabs->cell(number, column));
        QApplication::clipboard()->setText(text);
        tabs->table->pasteClipboard();
    }
    void pasteAction(int code, int column, const QString& text) const
    {
        MRL_H_TableWidget* table = tabs->actions->tableWidget();
        table->clearSelection();
        table->setCurrentItem(table->itemOnColId(tabs->actionRow(code), column));
        QApplication::clipboard()->setText(text);
        table->pasteClipboard();
    }

    LoadCaseProject project;
    std::optional<Tabs> tabs;
    LCM_HistoryTabs parts;
    std::optional<LCM_History> history;
};

TEST_F(History, IsEmptyAtFirst)
{
    EXPECT_EQ(history->undoCount(), 0);
    history->undo();
    history->redo();
    EXPECT_EQ(history->redoCount(), 0);
}

TEST_F(History, TakesAPasteBackWithVerdictsColoursAndToolTips)
{
    const QStringList before = snapshotOf(parts);
    pasteAction(codeOf("Q"), ACT_COL_GAMF, "1.6");
    ASSERT_FALSE(tabs->actions->isValid());
    const QStringList after = snapshotOf(parts);
    history->undo();
    EXPECT_TRUE(tabs->actions->isValid());
    EXPECT_FALSE(tabs->actions->isModified()) << "nothing is changed any more";
    tagCDB_LC_ACT action{};
    ASSERT_TRUE(tabs->actions->findAction(codeOf("Q"), action));
    EXPECT_EQ(action.gamf, 0.0f) << "the cache of the rows follows";
    history->redo();
    EXPECT_FALSE(tabs->actions->isValid());
    EXPECT_EQ(snapshotOf(parts).mid(2), after.mid(2));
    history->undo();
    EXPECT_EQ(
        tabs->actions->tableWidget()->itemOnColId(tabs->actionRow(codeOf("Q")), ACT_COL_GAMF)->toolTip(),
        QString());
    EXPECT_NE(before, after);
}

TEST_F(History, EmitsNoSignalOfTheTabsOrTheirTables)
{
    pasteAction(codeOf("G"), ACT_COL_DESCRIPTION, "Dead");
    ASSERT_TRUE(tabs->text(1, LC_COL_ACTION).contains("Dead"));
    QSignalSpy count(tabs->actions, &LCM_ActionsWidget::signal_actionCountChanged);
    QSignalSpy values(tabs->actions, &LCM_ActionsWidget::signal_actionValuesChanged);
    QSignalSpy actionCells(tabs->actions->tableWidget(), &QTableWidget::cellChanged);
    QSignalSpy loadCaseCells(tabs->table, &QTableWidget::cellChanged);
    history->undo();
    EXPECT_FALSE(tabs->text(1, LC_COL_ACTION).contains("Dead"));
    history->redo();
    EXPECT_TRUE(tabs->text(1, LC_COL_ACTION).contains("Dead"));
    QCoreApplication::processEvents();
    EXPECT_EQ(count.count() + values.count() + actionCells.count() + loadCaseCells.count(), 0);
}

TEST_F(History, MakesNoStepOfACommandThatChangesNothing)
{
    ModalAnswers answers;
    answers.key(Qt::Key_Escape);
    tabs->actions->slot_newClicked();
    tabs->table->selectRow(0);
    answers.click("No");
    tabs->lc->slot_deleteClicked();
    paste(2, LC_COL_TITLE, "LC 2");
    EXPECT_EQ(history->undoCount(), 0);
}

TEST_F(History, GivesDeletedLoadCasesTheirNumbersAndCopiesBack)
{
    ModalAnswers answers;
    tabs->select({2});
    answers.key(Qt::Key_Return);
    tabs->lc->slot_copyClicked();
    ASSERT_EQ(tabs->lc->getCopies().size(), 1U);
    const int copy = tabs->lc->getCopies().front().target;
    tabs->select({3, copy});
    answers.click("Yes");
    tabs->lc->slot_deleteClicked();
    ASSERT_EQ(tabs->row(3), -1);
    ASSERT_TRUE(tabs->lc->getCopies().empty());
    history->undo();
    EXPECT_GE(tabs->row(3), 0);
    EXPECT_EQ(tabs->lc->getCopies().size(), 1U);
    EXPECT_EQ(tabs->lc->workingModel()->getUsedLoadcaseNumbers().count(3), 1U);
    history->undo();
    EXPECT_EQ(tabs->row(copy), -1);
    EXPECT_TRUE(tabs->lc->getCopies().empty());
}

TEST_F(History, TakesADeletedActionBackWithItsLoadCasesAndItsTreeEntry)
{
    const QStringList before = snapshotOf(parts);
    tabs->selectAction(codeOf("G"));
    ModalAnswers answers;
    answers.click("Delete");
    tabs->actions->slot_deleteClicked();
    ASSERT_EQ(tabs->table->rowCount(), 0);
    history->undo();
    EXPECT_EQ(tabs->table->rowCount(), 4);
    EXPECT_EQ(tabs->actionId(1), codeOf("G"));
    EXPECT_TRUE(tabs->isValid(1));
    EXPECT_GE(tabs->actionRow(codeOf("G")), 0);
    EXPECT_EQ(snapshotOf(parts).filter("offered"), before.filter("offered"));
}

TEST_F(History, NamesItsSteps)
{
    paste(1, LC_COL_TITLE, "First");
    tabs->lc->slot_newClicked();
    EXPECT_EQ(history->undoNames(), (QStringList{"New load case", "Paste: Title"}));
    history->undo();
    EXPECT_EQ(history->redoNames(), QStringList{"New load case"});
}

TEST_F(History, ForgetsWhatWasUndoneWithTheNextCommand)
{
    paste(1, LC_COL_TITLE, "First");
    history->undo();
    paste(2, LC_COL_TITLE, "Second");
    EXPECT_EQ(history->redoCount(), 0);
    EXPECT_EQ(history->undoCount(), 1);
}

TEST_F(History, FindsItsRowsAfterTheTableWasSortedAnotherWay)
{
    paste(2, LC_COL_TITLE, "A first title");
    tabs->lc->slot_newClicked();
    const int added = tabs->numbers().back();
    tabs->table->sortByColumn(tabs->table->getColumnNumber(LC_COL_TITLE), Qt::DescendingOrder);
    history->undo();
    EXPECT_EQ(tabs->row(added), -1);
    history->undo();
    EXPECT_EQ(tabs->text(2, LC_COL_TITLE), "LC 2");
    EXPECT_EQ(tabs->numbers(), (std::vector<int>{4, 3, 2, 1})) << "as the table is sorted now";
}

TEST_F(History, DropsTheOldestStepsThatHoldTooMuch)
{
    history.reset();
    history.emplace(parts, nullptr, 4000U);
    for (int i = 0; i < 40; ++i) {
        paste(1 + i % 4, LC_COL_TITLE, QString("title %1").arg(i));
    }
    EXPECT_GT(history->droppedCount(), 0);
    EXPECT_GT(history->undoCount(), 0);
    EXPECT_EQ(history->droppedCount() + history->undoCount(), 40);
    while (history->undoCount() > 0) {
        history->undo();
    }
    EXPECT_NE(tabs->text(1, LC_COL_TITLE), "LC 1") << "what was dropped stays done";
}

TEST_F(History, EndsWhereRowsGoWithoutTheTablesCommands)
{
    paste(1, LC_COL_TITLE, "First");
    tabs->table->removeRow(0);
    EXPECT_EQ(history->undoCount(), 0);
    history->undo();
    EXPECT_EQ(tabs->table->rowCount(), 3);
}

TEST_F(History, KeepsChangesThatNoCommandMadeAsAStepOfTheirOwn)
{
    MRL_H_TwSimpleLineEditItem::fromItem(tabs->cell(1, LC_COL_TITLE))->setText("From outside");
    paste(2, LC_COL_TITLE, "Second");
    EXPECT_EQ(history->undoNames(), (QStringList{"Paste: Title", "Change"}));
    history->undo();
    history->undo();
    EXPECT_EQ(tabs->text(1, LC_COL_TITLE), "LC 1");
}

TEST_F(History, OfADialogWithOneTabWorksToo)
{
    Tabs alone(project, Tabs::LoadcasesAlone);
    const LCM_HistoryTabs one{nullptr, alone.lc, alone.window()->findChild<QTabWidget*>()};
    LCM_History own(one, nullptr);
    alone.lc->slot_newClicked();
    ASSERT_EQ(alone.table->rowCount(), 5);
    own.undo();
    EXPECT_EQ(alone.table->rowCount(), 4);
    own.redo();
    EXPECT_EQ(alone.table->rowCount(), 5);
}

} // namespace mrl::test
