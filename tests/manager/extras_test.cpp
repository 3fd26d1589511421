// What the dialog offers beyond its plain form, where the host wants it.
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QToolButton>
#include <QToolTip>

#include "host/mrl_widgets.h"
#include "manager/extras.h"
#include "manager/title_excess.h"
#include "tests/manager/manager_fixture.h"
#include "tests/support/accessible_names.h"
#include "tests/support/contrast.h"

namespace mrl::test {

class Extras : public ManagerTest
{
  protected:
    Extras() { wantExtras(1); }
    ~Extras() override { wantExtras(0); }

    static void wantExtras(int wanted)
    {
        qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
            ->setAppSettings("LF_Manager", "extras", wanted);
    }
    static MRL_H_TableWidget* frontLoadCases(QWidget* dialog)
    {
        tabsOf(dialog)->setCurrentWidget(loadCaseTab(dialog));
        return loadCaseTab(dialog)->tableWidget();
    }
    static QString titleOf(QWidget* dialog, int number)
    {
        MRL_H_TableWidget* table = loadCaseTab(dialog)->tableWidget();
        return table->itemOnColId(rowOf(table, LC_COL_NUMBER, QString::number(number)), LC_COL_TITLE)->text();
    }
    static void typeTitle(QWidget* dialog, int number, const QString& title)
    {
        MRL_H_TableWidget* table = frontLoadCases(dialog);
        typeInto(table, rowOf(table, LC_COL_NUMBER, QString::number(number)), LC_COL_TITLE, title);
    }
    static void pressKey(QWidget* dialog, int key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* focus = dialog->focusWidget();
        QTest::keyClick(focus ? focus : dialog, static_cast<Qt::Key>(key), modifiers);
    }
    static QString message(QWidget* dialog) { return dialog->findChild<QLabel*>("label_message")->text(); }
    static void typeFilter(QWidget* dialog, const QString& text)
    {
        auto* field = dialog->findChild<QLineEdit*>("line_filter");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }
    static QStringList shownTitles(QWidget* dialog)
    {
        const MRL_H_TableWidget* table = loadCaseTab(dialog)->tableWidget();
        QStringList titles;
        for (int row = 0; row < table->rowCount(); ++row) {
            if (!table->isRowHidden(row)) {
                titles << table->itemOnColId(row, LC_COL_TITLE)->text();
            }
        }
        return titles;
    }
    /// An action whose favourable factor is too high, and a load case of it.
    void putWrongAction()
    {
        project.putAction(soundAction("A").partition(0x40).gamu(1.0f).gamf(1.5f));
        project.putLoadCase(4, bareLoadCase("A").title("LC 4"));
    }

    MRL_LC_CtrlStruct control;
};

TEST_F(Extras, KeysTakeStepsOfBothTabsBackAndDoThemAgain)
{
    run(control, [this](QWidget* dialog) {
        typeTitle(dialog, 2, "Wind");
        tabsOf(dialog)->setCurrentWidget(actionsTab(dialog));
        MRL_H_TableWidget* actions = actionsTab(dialog)->tableWidget();
        typeInto(actions, rowOf(actions, ACT_COL_ACTION, "Q"), ACT_COL_GAMU, "1.4");
        pressKey(dialog, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(actions->itemOnColId(rowOf(actions, ACT_COL_ACTION, "Q"), ACT_COL_GAMU)->text(), "1.35");
        pressKey(dialog, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(titleOf(dialog, 2), "LC 2");
        EXPECT_EQ(tabsOf(dialog)->currentWidget(), loadCaseTab(dialog)) << "where the step was made";
        pressKey(dialog, Qt::Key_Y, Qt::ControlModifier);
        EXPECT_EQ(titleOf(dialog, 2), "Wind");
        pressKey(dialog, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(actions->itemOnColId(rowOf(actions, ACT_COL_ACTION, "Q"), ACT_COL_GAMU)->text(), "1.40");
        answers.click("Discard");
        pressCancel(dialog);
    });
}

TEST_F(Extras, AnOpenEditorKeepsItsOwnUndo)
{
    run(control, [this](QWidget* dialog) {
        typeTitle(dialog, 1, "Kept");
        MRL_H_TableWidget* table = frontLoadCases(dialog);
        table->setCurrentCell(1, table->getColumnNumber(LC_COL_TITLE));
        QTest::keyClick(table, Qt::Key_F2);
        QLineEdit* editor = openEditor(table);
        ASSERT_NE(editor, nullptr);
        QTest::keyClicks(editor, "xyz");
        QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_FALSE(editor->text().contains("xyz"));
        QTest::keyClick(editor, Qt::Key_Escape);
        EXPECT_EQ(titleOf(dialog, 1), "Kept");
        answers.click("Discard");
        pressCancel(dialog);
    });
}

TEST_F(Extras, TheButtonListsTheStepsAndTakesSeveralBack)
{
    run(control, [](QWidget* dialog) {
        typeTitle(dialog, 1, "A");
        typeTitle(dialog, 2, "B");
        auto* button = dialog->findChild<QToolButton*>("button_undo");
        QTest::qWait(0);
        ASSERT_TRUE(button->isEnabled());
        emit button->menu()->aboutToShow();
        ASSERT_EQ(button->menu()->actions().size(), 2);
        EXPECT_EQ(button->menu()->actions().at(0)->text(), "Input: Title");
        button->menu()->actions().at(1)->trigger();
        EXPECT_EQ(titleOf(dialog, 1), "LC 1");
        EXPECT_EQ(titleOf(dialog, 2), "LC 2");
        EXPECT_FALSE(button->isEnabled());
        EXPECT_TRUE(dialog->findChild<QToolButton*>("button_redo")->isEnabled());
        pressCancel(dialog); // nothing is lost: no question
    });
}

TEST_F(Extras, EveryWayOutAsksOnceBeforeStepsAreLost)
{
    const int result = run(control, [this](QWidget* dialog) {
        typeTitle(dialog, 1, "A");
        answers.click("Keep editing");
        pressCancel(dialog);
        EXPECT_TRUE(dialog->isVisible());
        answers.click("Keep editing");
        dialog->close();
        EXPECT_TRUE(dialog->isVisible());
        answers.key(Qt::Key_Escape); // the question's own Esc keeps editing
        QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(titleOf(dialog, 1), "A");
        answers.click("Discard");
        dialog->close();
    });
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_EQ(box(0).text, "One step has not been saved and would be lost.");
    EXPECT_EQ(box(0).defaultButton, "Keep editing");
    EXPECT_EQ(answers.boxes().size(), 4U);
}

TEST_F(Extras, RejectingByACallStaysUnconditional)
{
    EXPECT_EQ(run(control,
                  [](QWidget* dialog) {
                      typeTitle(dialog, 1, "A");
                      qobject_cast<QDialog*>(dialog)->reject();
                  }),
              QDialog::Rejected);
}

TEST_F(Extras, DeletingUnusedLoadCasesAsksTheSameQuestion)
{
    const int result = run(control, [this](QWidget* dialog) {
        typeTitle(dialog, 1, "A");
        answers.click("Keep editing");
        emit loadCaseTab(dialog)->signal_deleteUnusedLoadcases();
        EXPECT_TRUE(dialog->isVisible());
        answers.click("Discard");
        emit loadCaseTab(dialog)->signal_deleteUnusedLoadcases();
    });
    EXPECT_EQ(result, MRL_LC_DELETE_UNUSED);
}

TEST_F(Extras, ADeletionTellsTheNumbers)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = frontLoadCases(dialog);
        selectRows(table, LC_COL_NUMBER, {"1", "2"});
        answers.click("No");
        press(loadCaseTab(dialog), "Delete");
        pressCancel(dialog);
    });
    EXPECT_EQ(box(0).text,
              "Should 2 selected loadcases (including all loads) really be deleted?\n\n2 load cases: 1-2");
}

TEST_F(Extras, FindsAsOneTypesAndF3GoesOn)
{
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = frontLoadCases(dialog);
        table->setFocus();
        pressKey(dialog, Qt::Key_F, Qt::ControlModifier);
        auto* field = dialog->findChild<QLineEdit*>("line_find");
        ASSERT_TRUE(field->hasFocus());
        QTest::keyClicks(field, "lc 2");
        EXPECT_EQ(table->currentItem()->text(), "LC 2");
        QTest::keyClick(field, Qt::Key_Backspace);
        QTest::keyClick(dialog, Qt::Key_F3);
        EXPECT_EQ(table->currentItem()->text(), "LC 3");
        QTest::keyClick(dialog, Qt::Key_F3);
        EXPECT_EQ(table->currentItem()->text(), "LC 1") << "from the start again";
        QTest::keyClick(dialog, Qt::Key_F3, Qt::ShiftModifier);
        EXPECT_EQ(table->currentItem()->text(), "LC 3");
        QTest::keyClicks(field, "nothing");
        EXPECT_EQ(message(dialog), "Not found");
        QTest::keyClick(field, Qt::Key_Escape);
        EXPECT_TRUE(table->hasFocus());
        EXPECT_TRUE(dialog->isVisible()) << "Esc leaves the field and not the dialog";
        pressCancel(dialog);
    });
}

TEST_F(Extras, FiltersByTextWordAndFactorAndTellsWhatIsHidden)
{
    project.putLoadCase(4, bareLoadCase("Q").title("Wind"));
    run(control, [](QWidget* dialog) {
        frontLoadCases(dialog);
        typeFilter(dialog, "wind");
        EXPECT_EQ(shownTitles(dialog), QStringList{"Wind"});
        EXPECT_EQ(message(dialog), "Hidden rows: 3");
        typeFilter(dialog, "=Q");
        EXPECT_EQ(shownTitles(dialog), QStringList{"Wind"});
        typeFilter(dialog, ">2");
        EXPECT_EQ(shownTitles(dialog), QStringList()) << "the numbers of load cases are no factors";
        typeFilter(dialog, ">1.0");
        EXPECT_EQ(shownTitles(dialog).size(), 4);
        typeFilter(dialog, "<=0.4");
        EXPECT_EQ(shownTitles(dialog).size(), 4) << "the dead weight";
        dialog->findChild<QLineEdit*>("line_filter")->clear();
        QTest::qWait(300);
        EXPECT_EQ(shownTitles(dialog).size(), 4);
        EXPECT_EQ(message(dialog), QString());
        pressCancel(dialog);
    });
}

TEST_F(Extras, TheDownKeyGoesFromAFieldToTheRowsThatAreLeft)
{
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = frontLoadCases(dialog);
        auto* field = dialog->findChild<QLineEdit*>("line_filter");
        field->setFocus();
        QTest::keyClicks(field, "LC 2");
        QTest::keyClick(field, Qt::Key_Down);
        EXPECT_EQ(QApplication::focusWidget(), table);
        EXPECT_EQ(shownTitles(dialog), QStringList{"LC 2"}) << "without a pause after typing";
        EXPECT_EQ(field->text(), "LC 2");
        pressCancel(dialog);
    });
}

TEST_F(Extras, ShowsFindingsOnlyAndChangedOnly)
{
    putWrongAction();
    run(control, [this](QWidget* dialog) {
        frontLoadCases(dialog);
        auto* kind = dialog->findChild<QComboBox*>("combo_rows");
        kind->setCurrentIndex(1);
        emit kind->activated(1);
        EXPECT_EQ(shownTitles(dialog), QStringList{"LC 4"});
        kind->setCurrentIndex(0);
        emit kind->activated(0);
        typeTitle(dialog, 2, "Changed");
        kind->setCurrentIndex(2);
        emit kind->activated(2);
        EXPECT_EQ(shownTitles(dialog), QStringList{"Changed"});
        answers.click("Discard");
        pressCancel(dialog);
    });
}

TEST_F(Extras, HiddenRowsCountForOk)
{
    putWrongAction();
    const int result = run(control, [this](QWidget* dialog) {
        frontLoadCases(dialog);
        typeFilter(dialog, "LC 1");
        answers.click("OK");
        pressOk(dialog);
        EXPECT_TRUE(dialog->isVisible());
        pressCancel(dialog);
    });
    EXPECT_EQ(result, QDialog::Rejected);
}

TEST_F(Extras, KeysGoFromFindingToFinding)
{
    putWrongAction();
    run(control, [](QWidget* dialog) {
        QTest::qWait(0);
        QTest::keyClick(dialog, Qt::Key_F8);
        EXPECT_EQ(tabsOf(dialog)->currentWidget(), actionsTab(dialog));
        const MRL_H_TableWidget* actions = actionsTab(dialog)->tableWidget();
        EXPECT_EQ(actions->getColumnId(actions->currentColumn()), ACT_COL_GAMF);
        EXPECT_EQ(message(dialog), "Action A, gF: GAMF has to be between 0.0 and 1!");
        QTest::keyClick(dialog, Qt::Key_F8);
        EXPECT_EQ(tabsOf(dialog)->currentWidget(), loadCaseTab(dialog));
        const MRL_H_TableWidget* cases = loadCaseTab(dialog)->tableWidget();
        EXPECT_EQ(cases->itemOnColId(cases->currentRow(), LC_COL_NUMBER)->text(), "4");
        QTest::keyClick(dialog, Qt::Key_F8, Qt::ShiftModifier);
        EXPECT_EQ(tabsOf(dialog)->currentWidget(), actionsTab(dialog));
        const auto* list = dialog->findChild<QListView*>("list_findings");
        EXPECT_EQ(list->model()->rowCount(), 2);
        EXPECT_FALSE(list->isVisible());
        dialog->findChild<QToolButton*>("button_findings")->click();
        EXPECT_TRUE(list->isVisible());
        pressCancel(dialog);
    });
}

TEST_F(Extras, TellsALoadCaseWhoseActionIsMissing)
{
    project.putLoadCase(5, bareLoadCase("ZZ").title("Lost"));
    run(control, [](QWidget* dialog) {
        QTest::qWait(0);
        QTest::keyClick(dialog, Qt::Key_F8);
        EXPECT_EQ(message(dialog), "Load case 5, Action: The action of this load case is missing.");
        pressCancel(dialog);
    });
}

TEST_F(Extras, AWrongFactorIsNamedWhoseColumnIsNotShown)
{
    // The code shows no column for it and limits it all the same.
    QString code = QString::fromStdString(smallCode());
    useCode(code.replace("TXT_GAMU = gU", "TXT_GAMU = none").toStdString());
    run(control, [](QWidget* dialog) {
        QTest::qWait(0);
        QTest::keyClick(dialog, Qt::Key_F8);
        EXPECT_TRUE(message(dialog).contains("(not shown): GAMU")) << message(dialog).toStdString();
        pressCancel(dialog);
    });
}

TEST_F(Extras, AFindingIsShownEvenIfItsRowWasFilteredOut)
{
    putWrongAction();
    run(control, [](QWidget* dialog) {
        frontLoadCases(dialog);
        typeFilter(dialog, "LC 1");
        QTest::keyClick(dialog, Qt::Key_F8);
        QTest::keyClick(dialog, Qt::Key_F8);
        const MRL_H_TableWidget* cases = loadCaseTab(dialog)->tableWidget();
        EXPECT_FALSE(cases->isRowHidden(cases->currentRow()));
        pressCancel(dialog);
    });
}

TEST_F(Extras, AnEntryReachesManyRowsInBothTabs)
{
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = frontLoadCases(dialog);
        const int column = table->getColumnNumber(LC_COL_DEADFACTOR);
        table->clearSelection();
        table->setCurrentCell(0, column);
        table->setRangeSelected(QTableWidgetSelectionRange(0, column, 2, column), true);
        QTest::keyClicks(table, "1");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(table->item(row, column)->text(), "1.00");
        }
        pressKey(dialog, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_NE(table->item(2, column)->text(), "1.00") << "one step";
        pressCancel(dialog);
    });
}

TEST_F(Extras, EveryControlHasAnAccessibleName)
{
    putWrongAction();
    run(control, [this](QWidget* dialog) {
        for (int tab = 0; tab < 2; ++tab) {
            tabsOf(dialog)->setCurrentIndex(tab);
            EXPECT_EQ(namelessIn(dialog), "");
        }
        const auto looked = [](QWidget* window) {
            EXPECT_EQ(namelessIn(window), "") << window->windowTitle().toStdString();
            qobject_cast<QDialog*>(window)->reject();
        };
        tabsOf(dialog)->setCurrentWidget(actionsTab(dialog));
        answers.then(looked);
        press(actionsTab(dialog), "New");
        frontLoadCases(dialog);
        selectRows(loadCaseTab(dialog)->tableWidget(), LC_COL_NUMBER, {"1"});
        answers.then(looked);
        press(loadCaseTab(dialog), "Copy");
        pressCancel(dialog);
    });
}

TEST_F(Extras, KeysCloseTheDialogAfterItsQuestion)
{
    for (const Qt::Key key : {Qt::Key_W, Qt::Key_Q}) {
        QWidget window;
        window.show();
        run(control, [&](QWidget* dialog) {
            typeTitle(dialog, 1, "A");
            answers.click("Keep editing");
            pressKey(dialog, key, Qt::ControlModifier);
            EXPECT_TRUE(dialog->isVisible());
            dialog->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
            answers.click("Discard");
            pressKey(dialog, key, Qt::ControlModifier);
            EXPECT_FALSE(dialog->isVisible());
        });
        QCoreApplication::processEvents();
        EXPECT_EQ(window.isVisible(), key == Qt::Key_W) << "Ctrl+Q closes what stands behind it too";
    }
}

TEST_F(Extras, ATitleTellsItsExcessWhileItIsTyped)
{
    EXPECT_EQ(LCM_TitleExcess::excessOf(QString(33, 'x')), "");
    EXPECT_EQ(LCM_TitleExcess::excessOf(QString(33, 'x') + "yz"), "yz");
    run(control, [](QWidget* dialog) {
        MRL_H_TableWidget* table = frontLoadCases(dialog);
        table->setFocus();
        table->setCurrentCell(0, table->getColumnNumber(LC_COL_TITLE));
        QTest::keyClick(table, Qt::Key_F2);
        QLineEdit* editor = openEditor(table);
        ASSERT_NE(editor, nullptr);
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, QString(33, 'x'));
        EXPECT_EQ(editor->accessibleDescription(), "");
        QTest::keyClicks(editor, "<y");
        EXPECT_EQ(editor->accessibleDescription(), "Too long by 2 characters, which are not kept: <y");
        EXPECT_TRUE(QToolTip::text().contains("not kept: &lt;y"));
        QTest::keyClick(editor, Qt::Key_Backspace);
        QTest::keyClick(editor, Qt::Key_Backspace);
        EXPECT_EQ(editor->accessibleDescription(), "");
        QTest::keyClick(editor, Qt::Key_Escape);
        pressCancel(dialog);
    });
}

TEST_F(Extras, HintsInTheFieldsCanBeReadInLightAndDark)
{
    inLightAndDark([this] {
        run(control, [](QWidget* dialog) {
            for (const char* name : {"line_find", "line_filter"}) {
                const QPalette shown = dialog->findChild<QLineEdit*>(name)->palette();
                EXPECT_GE(contrastOf(shown.color(QPalette::PlaceholderText), shown.color(QPalette::Base)),
                          4.5)
                    << name;
            }
            pressCancel(dialog);
        });
    });
}

TEST_F(Extras, TheToolTipOfOkSaysWhatItDoes)
{
    run(control, [](QWidget* dialog) {
        EXPECT_EQ(ModalAnswers::buttonOf(dialog, "OK")->toolTip(), "Saves and closes (Ctrl+Enter)");
        pressCancel(dialog);
    });
}

TEST_F(Extras, DontWidenTheDialog)
{
    int plain = 0;
    wantExtras(0);
    run(control, [&](QWidget* dialog) {
        plain = dialog->minimumSizeHint().width();
        pressCancel(dialog);
    });
    wantExtras(1);
    run(control, [&](QWidget* dialog) {
        EXPECT_LE(dialog->minimumSizeHint().width(), plain);
        EXPECT_LE(dialog->minimumSizeHint().height(), 600);
        pressCancel(dialog);
    });
}

TEST_F(Extras, WorkInADialogOfOneTab)
{
    control.mode = 1;
    control.singleTab = true;
    run(control, [this](QWidget* dialog) {
        MRL_H_TableWidget* table = actionsTab(dialog)->tableWidget();
        typeInto(table, 0, ACT_COL_DESCRIPTION, "Other");
        pressKey(dialog, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(table->itemOnColId(0, ACT_COL_DESCRIPTION)->text(), "Permanent");
        QTest::keyClick(dialog, Qt::Key_F5);
        QTest::keyClick(dialog, Qt::Key_F8);
        EXPECT_EQ(message(dialog), "No findings");
        pressCancel(dialog);
    });
}

} // namespace mrl::test
