// Copying into a spreadsheet and pasting from one, where the host wants more than the plain form.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QTableWidget>
#include <QToolButton>

#include "host/mrl_widgets.h"
#include "lcdata/actions.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "tests/manager/manager_fixture.h"

namespace mrl::test {

namespace {

/// The list of what was not taken, row by row.
QStringList untakenOf(QWidget* window)
{
    QStringList lines;
    auto* list = window->findChild<QTableWidget*>("untaken_values");
    for (int row = 0; list != nullptr && row < list->rowCount(); ++row) {
        lines << list->item(row, 0)->text() + " | " + list->item(row, 1)->text() + " | " +
                     list->item(row, 2)->text();
    }
    return lines;
}

class Paste : public ManagerTest
{
  protected:
    Paste() { wantExtras(1); }
    ~Paste() override { wantExtras(0); }

    static void wantExtras(int wanted)
    {
        qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
            ->setAppSettings("LF_Manager", "extras", wanted);
    }
    static MRL_H_TableWidget* loadCases(QWidget* dialog)
    {
        tabsOf(dialog)->setCurrentWidget(loadCaseTab(dialog));
        return loadCaseTab(dialog)->tableWidget();
    }
    static MRL_H_TableWidget* actions(QWidget* dialog)
    {
        tabsOf(dialog)->setCurrentWidget(actionsTab(dialog));
        return actionsTab(dialog)->tableWidget();
    }
    static QString actionText(MRL_H_TableWidget* table, const char* action, int column)
    {
        const int row = rowOf(table, ACT_COL_ACTION, QString::fromLatin1(action));
        return row < 0 ? QStringLiteral("(none)") : table->itemOnColId(row, column)->text();
    }
    /// Pastes from the name of the last row on.
    static void pasteActions(MRL_H_TableWidget* table, const QString& text)
    {
        paste(table, table->rowCount() - 1, ACT_COL_ACTION, text);
    }
    static QString text(QWidget* dialog, int number, int column)
    {
        MRL_H_TableWidget* table = loadCaseTab(dialog)->tableWidget();
        return table->itemOnColId(rowOf(table, LC_COL_NUMBER, QString::number(number)), column)->text();
    }
    /// Pastes by keys from a cell on.
    static void paste(MRL_H_TableWidget* table, int row, int column, const QString& text)
    {
        table->setFocus();
        table->clearSelection();
        table->setCurrentCell(row, table->getColumnNumber(column));
        QApplication::clipboard()->setText(text);
        QTest::keyClick(table, Qt::Key_V, Qt::ControlModifier);
    }
    /// Closes the list of what was not taken and keeps what it showed.
    void expectList()
    {
        answers.then([this](QWidget* window) {
            untaken = untakenOf(window);
            summary = window->findChild<QLabel*>()->text();
            press(window, QStringLiteral("Close"));
        });
    }
    /// Leaves the dialog, and the steps that were not saved.
    void leave(QWidget* dialog)
    {
        auto* undo = dialog->findChild<QToolButton*>("button_undo");
        if (undo != nullptr && undo->isEnabled()) {
            answers.click("Discard");
        }
        pressCancel(dialog);
    }
    static int steps(QWidget* dialog)
    {
        int count = 0;
        for (auto* undo = dialog->findChild<QToolButton*>("button_undo"); undo->isEnabled(); ++count) {
            undo->click();
        }
        return count;
    }

    MRL_LC_CtrlStruct control;
    QStringList untaken;
    QString summary;
};

} // namespace

TEST_F(Paste, TakesAnActionByItsNameItsLabelAndItsTitle)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCases(dialog);
        paste(table, 0, LC_COL_ACTION, "q\nVARIABLE\n\n");
        EXPECT_TRUE(text(dialog, 1, LC_COL_ACTION).startsWith("Q"));
        EXPECT_EQ(text(dialog, 2, LC_COL_ACTION), text(dialog, 1, LC_COL_ACTION));
        const QString label = text(dialog, 1, LC_COL_ACTION);
        paste(table, 2, LC_COL_ACTION, label);
        EXPECT_EQ(text(dialog, 3, LC_COL_ACTION), label);
        leave(dialog);
    });
}

TEST_F(Paste, LinesBeyondTheLastRowBecomeLoadCasesWithTheirNumbers)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCases(dialog);
        expectList();
        paste(table, 2, LC_COL_NUMBER,
              "3\tSnow\tQ\n20\tWind\tQ\n7\tEast\tVariable\n20\tTwice\tQ\n0\tZero\tQ\n");
        EXPECT_EQ(table->rowCount(), 5);
        EXPECT_EQ(text(dialog, 3, LC_COL_TITLE), "Snow");
        EXPECT_EQ(text(dialog, 7, LC_COL_TITLE), "East");
        EXPECT_TRUE(text(dialog, 20, LC_COL_ACTION).startsWith("Q"));
        EXPECT_EQ(rowOf(table, LC_COL_NUMBER, "7"), 3) << "the rows are sorted again";
        EXPECT_EQ(summary, "6 of 15 values not taken");
        EXPECT_EQ(untaken.value(0), "Nr | 20 | Load case 20 exists already.");
        EXPECT_EQ(untaken.value(3), "Nr | 0 | \"0\" is no number from 1 to 999999.");
        EXPECT_EQ(dialog->findChild<QLabel*>("label_message")->text(), summary);
        pressOk(dialog);
    });
    tagCDB_LC_CTRL stored{};
    ASSERT_TRUE(mrl_lc_get(db, 7, stored));
    EXPECT_EQ(lcm_title_text(stored.title), "East");
}

TEST_F(Paste, WithoutNumbersTheNextFreeOnesAreTaken)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCases(dialog);
        paste(table, 2, LC_COL_TITLE, "a\nb\nc\n");
        EXPECT_EQ(text(dialog, 3, LC_COL_TITLE), "a");
        EXPECT_EQ(text(dialog, 4, LC_COL_TITLE), "b");
        EXPECT_EQ(text(dialog, 5, LC_COL_TITLE), "c");
        leave(dialog);
    });
}

TEST_F(Paste, IsOneStepThatUndoTakesBack)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCases(dialog);
        paste(table, 1, LC_COL_TITLE, "a\tQ\nb\tQ\nc\tQ\nd\tQ\n");
        ASSERT_EQ(table->rowCount(), 5);
        EXPECT_EQ(steps(dialog), 1);
        EXPECT_EQ(table->rowCount(), 3);
        EXPECT_EQ(text(dialog, 2, LC_COL_TITLE), "LC 2");
        EXPECT_TRUE(text(dialog, 2, LC_COL_ACTION).startsWith("G"));
        dialog->findChild<QToolButton*>("button_redo")->click();
        EXPECT_EQ(text(dialog, 5, LC_COL_TITLE), "d");
        dialog->findChild<QToolButton*>("button_undo")->click();
        leave(dialog);
    });
}

TEST_F(Paste, LinesBeyondTheLastActionBecomeActionsByTheirNames)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = actions(dialog);
        ASSERT_EQ(table->rowCount(), 2);
        expectList();
        pasteActions(table,
                     "Q\tVariable\nu1\tCrane\nW\tGale\nG\tAgain\nu1\tTwice\nimp\t\nABCDE\t\n\tNameless\n");
        ASSERT_EQ(table->rowCount(), 4);
        EXPECT_EQ(actionText(table, "U1", ACT_COL_DESCRIPTION), "Crane");
        EXPECT_EQ(actionText(table, "W", ACT_COL_DESCRIPTION), "Gale");
        EXPECT_NE(actionText(table, "W", ACT_COL_GAMU).toDouble(), 0.0)
            << "comes with the values of its code";
        EXPECT_EQ(actionText(table, "U1", ACT_COL_GAMU).toDouble(), 0.0);
        EXPECT_EQ(summary, "10 of 16 values not taken");
        EXPECT_EQ(untaken.value(0), "Action | G | Name already used!");
        EXPECT_EQ(untaken.value(2), "Action | u1 | Name already used!");
        EXPECT_EQ(untaken.value(4), "Action | imp | Action 'IMP' is not allowed!");
        EXPECT_EQ(untaken.value(8), "Action |  | The line names no action.");
        leave(dialog);
    });
}

TEST_F(Paste, PastedActionsAreOfferedToLoadCasesAndStored)
{
    run(control, [this](QWidget* dialog) {
        pasteActions(actions(dialog), "Q\nU1\nW\n");
        paste(loadCases(dialog), 0, LC_COL_ACTION, "U1\nW\n");
        EXPECT_TRUE(text(dialog, 1, LC_COL_ACTION).startsWith("U1"));
        actions(dialog);
        for (const char* factor : {"1.5", "1.0"}) {
            MRL_H_TableWidget* table = actionsTab(dialog)->tableWidget();
            typeInto(table, rowOf(table, ACT_COL_ACTION, "U1"),
                     factor == QString("1.5") ? ACT_COL_GAMU : ACT_COL_GAMF, factor);
        }
        pressOk(dialog);
    });
    tagCDB_LC_ACT stored{};
    EXPECT_TRUE(mrl_lc_getAction(db, lcm_pack_word("U1"), stored, false));
    EXPECT_EQ(stored.gamu, 1.5f);
    EXPECT_TRUE(mrl_lc_getAction(db, lcm_pack_word("W"), stored, false));
}

TEST_F(Paste, PastedActionsAreOneStepThatUndoTakesBack)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = actions(dialog);
        pasteActions(table, "Q\tRoof\nU1\tCrane\nW\tGale\n");
        ASSERT_EQ(table->rowCount(), 4);
        EXPECT_EQ(steps(dialog), 1);
        EXPECT_EQ(table->rowCount(), 2);
        EXPECT_EQ(actionText(table, "Q", ACT_COL_DESCRIPTION), "Variable");
        dialog->findChild<QToolButton*>("button_redo")->click();
        EXPECT_EQ(actionText(table, "U1", ACT_COL_DESCRIPTION), "Crane");
        dialog->findChild<QToolButton*>("button_undo")->click();
        // The names are free again, those of the design code too.
        pasteActions(table, "Q\tRoof\nU1\tCrane\nW\tGale\n");
        EXPECT_EQ(table->rowCount(), 4);
        leave(dialog);
    });
}

TEST_F(Paste, ThePastedRowsThatCameAreJudged)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = actions(dialog);
        const QString text = QStringLiteral("Q\tVariable\t%1\t%2\t1.5\t0\nW\tGale\t%1\t%2\t1.5\t2\n")
                                 .arg(actionText(table, "Q", ACT_COL_PARTITION),
                                      actionText(table, "Q", ACT_COL_SUPERPOSITION));
        pasteActions(table, text);
        const int row = rowOf(table, ACT_COL_ACTION, "W");
        ASSERT_GE(row, 0);
        EXPECT_EQ(actionText(table, "W", ACT_COL_GAMF).toDouble(), 2.0);
        EXPECT_FALSE(actionsTab(dialog)->isRowValid(row)) << "GAMF is above GAMU";
        leave(dialog);
    });
}

TEST_F(Paste, WithoutNamesNoActionsAreMade)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = actions(dialog);
        const int rows = table->rowCount();
        expectList();
        paste(table, rows - 1, ACT_COL_GAMU, "x\n1.5\n");
        EXPECT_EQ(table->rowCount(), rows);
        ASSERT_EQ(untaken.size(), 2);
        EXPECT_TRUE(untaken[0].endsWith("| x | \"x\" is no number.")) << untaken[0].toStdString();
        EXPECT_TRUE(untaken[1].endsWith("| 1.5 | A new action needs a name: paste from the first column on."))
            << untaken[1].toStdString();
        leave(dialog);
    });
}

TEST_F(Paste, AnAmbiguousTitleIsRefused)
{
    project.putAction(soundAction(QStringLiteral("W")).partition(0x32).title(QStringLiteral("Variable")));
    run(control, [this](QWidget* dialog) {
        expectList();
        paste(loadCases(dialog), 0, LC_COL_ACTION, "Variable\n");
        EXPECT_EQ(untaken,
                  QStringList("1, Action | Variable | Several actions have the title \"Variable\"."));
        leave(dialog);
    });
}

TEST_F(Paste, AllThatIsSeenIsCopiedAsTextAndAsATable)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCases(dialog);
        table->setFocus();
        QTest::keyClick(table, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        const QStringList lines = QApplication::clipboard()->text().split('\n');
        EXPECT_EQ(lines.size(), 4) << "three rows, and what follows the last line feed";
        EXPECT_TRUE(lines[1].startsWith("2\tLC 2\tG")) << lines[1].toStdString();
        EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().startsWith("<table"));
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Nr\tTitle\tAction"));
        leave(dialog);
    });
}

TEST_F(Paste, WhatWasCopiedIsTakenBackWhole)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCases(dialog);
        table->setFocus();
        QTest::keyClick(table, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        table->clearSelection();
        table->setCurrentCell(0, 0);
        QTest::keyClick(table, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(steps(dialog), 0) << "no value has changed, and none was told as not taken";
        leave(dialog);
    });
}

TEST_F(Paste, InThePlainFormLinesBeyondTheLastRowArePassedOver)
{
    wantExtras(0);
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = loadCases(dialog);
        paste(table, 2, LC_COL_TITLE, "a\nb\n");
        EXPECT_EQ(table->rowCount(), 3);
        leave(dialog);
    });
}

} // namespace mrl::test
