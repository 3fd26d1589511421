#include "table/fixture.h"

#include <QDialog>
#include <QPushButton>
#include <QShortcut>
#include <QToolTip>
#include <QVBoxLayout>

namespace tabletest {

/// A table in a dialog with a default button and a Delete command, as on the pages of the managers.
class Editing : public Table
{
  protected:
    Editing()
    {
        addRows(4);
        table.setSortingEnabled(false);
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(&table);
        button = new MRL_QT_PushButton("Apply", &dialog, "apply");
        button->setDefault(true);
        layout->addWidget(button);
        QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
        auto* command = new QAction(&dialog);
        command->setShortcut(Qt::Key_Delete);
        dialog.addAction(command);
        QObject::connect(command, &QAction::triggered, [this] { ++deletes; });
        dialog.resize(700, 400);
        dialog.show();
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        table.setFocus();
    }
    ~Editing() override { table.setParent(nullptr); }

    /// The open editor; closed ones live until the next turn of the event loop.
    QWidget* editor()
    {
        for (QWidget* widget :
             table.viewport()->findChildren<QWidget*>("cell editor", Qt::FindDirectChildrenOnly)) {
            if (widget->isVisible()) {
                return widget;
            }
        }
        return nullptr;
    }
    MRL_H_LineEdit* lineEditor() { return qobject_cast<MRL_H_LineEdit*>(editor()); }
    MRL_QT4_ComboBox* comboEditor() { return qobject_cast<MRL_QT4_ComboBox*>(editor()); }
    QPoint centre(int row, int column) { return table.visualItemRect(table.item(row, column)).center(); }
    void click(int row, int column, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, centre(row, column));
    }
    void doubleClick(int row, int column)
    {
        click(row, column);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, centre(row, column));
    }
    /// Types over the current cell.
    void type(const QString& text)
    {
        for (const QChar& c : text) {
            QTest::keyClick(editor() != nullptr ? editor() : &table, c.toLatin1());
        }
    }
    void key(Qt::Key k, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(editor() != nullptr ? editor() : static_cast<QWidget*>(&table), k, modifiers);
    }
    void enter(int row, int column, const QString& text)
    {
        table.setCurrentCell(row, column);
        type(text);
        key(Qt::Key_Return);
    }

    QDialog dialog;
    MRL_QT_PushButton* button = nullptr; ///< child of the dialog
    int clicks = 0;
    int deletes = 0;
};

TEST_F(Editing, RefusedValueSaysWhyBesideItsCellWhereFindingsAreMarked)
{
    line(0, Bounded).setVal(2.0f);
    enter(0, Bounded, "9.5");
    EXPECT_EQ(QToolTip::text(), "");
    table.setFindingMarks(table.getColumnId(0), 357);
    enter(0, Factor, "1.2");
    EXPECT_EQ(QToolTip::text(), "") << "what is taken needs no word";
    enter(0, Bounded, "9.5");
    EXPECT_TRUE(QToolTip::text().contains("9.5 is not between 0.00 and 9.00."));
    enter(0, Factor, "1.2.3");
    EXPECT_TRUE(QToolTip::text().contains("1.2.3"));
    EXPECT_TRUE(QToolTip::text().contains("is no number."));
}

TEST_F(Editing, TypingOverReplacesTheValueAndReportsOnce)
{
    line(1, Factor).setVal(1.35f);
    Reports reports(table);
    enter(1, Factor, "1.5");
    EXPECT_EQ(text(1, Factor), "1.50");
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{1, Factor}}));
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(Editing, TakesEitherDecimalSign)
{
    enter(0, Factor, "0,7");
    EXPECT_EQ(static_cast<float>(line(0, Factor).getVal(nullptr)), 0.7f);
    enter(0, Factor, "0.8");
    EXPECT_EQ(static_cast<float>(line(0, Factor).getVal(nullptr)), 0.8f);
}

TEST_F(Editing, RefusesValuesOutOfBoundsAndKeepsTheFormerOne)
{
    line(0, Bounded).setVal(2.0f);
    Reports reports(table);
    enter(0, Bounded, "9.5");
    EXPECT_EQ(text(0, Bounded), "2.00");
    enter(0, Bounded, "-1");
    EXPECT_EQ(text(0, Bounded), "2.00");
    EXPECT_TRUE(reports.cells.empty());
    enter(0, Bounded, "9");
    EXPECT_EQ(text(0, Bounded), "9.00");
    enter(0, Bounded, "0");
    EXPECT_EQ(text(0, Bounded), "0.00");
    EXPECT_EQ(reports.cells.size(), 2u);
}

TEST_F(Editing, RefusesWhatIsNoNumber)
{
    line(0, Factor).setVal(2.0f);
    line(0, Whole).setText("5");
    Reports reports(table);
    enter(0, Factor, "abc");
    enter(0, Whole, "7.5");
    EXPECT_EQ(text(0, Factor), "2.00");
    EXPECT_EQ(text(0, Whole), "5");
    EXPECT_TRUE(reports.cells.empty());
}

TEST_F(Editing, AnEmptiedNumberGetsItsFormerValueBack)
{
    line(0, Factor).setVal(1.35f);
    Reports reports(table);
    table.setCurrentCell(0, Factor);
    key(Qt::Key_F2);
    ASSERT_NE(lineEditor(), nullptr);
    lineEditor()->clear();
    key(Qt::Key_Return);
    EXPECT_EQ(text(0, Factor), "1.35");
    EXPECT_TRUE(reports.cells.empty());
}

TEST_F(Editing, ThatLeavesTheTextAsItWasWritesNothing)
{
    line(0, Factor).setVal(1.35f);
    line(1, Factor).setVal(7.0f);
    table.setMultiEditingEnabled(true);
    table.setCurrentCell(0, Factor);
    table.setRangeSelected({0, Factor, 1, Factor}, true);
    Reports reports(table);
    key(Qt::Key_F2);
    EXPECT_EQ(lineEditor()->text(), "1.35");
    key(Qt::Key_Return);
    EXPECT_TRUE(reports.cells.empty());
    EXPECT_EQ(text(1, Factor), "7.00");
    enter(0, Factor, "1,35"); // the same number in other words
    EXPECT_TRUE(reports.cells.empty());
}

TEST_F(Editing, KeepsTrailingBlanksOfATypedText)
{
    enter(0, Title, "G  ");
    EXPECT_EQ(text(0, Title), "G  ");
}

TEST_F(Editing, F2OpensTheEditorWithTheValue)
{
    line(0, Title).setText("wind");
    table.setCurrentCell(0, Title);
    key(Qt::Key_F2);
    ASSERT_NE(lineEditor(), nullptr);
    EXPECT_EQ(lineEditor()->text(), "wind");
    EXPECT_TRUE(lineEditor()->hasFocus());
}

TEST_F(Editing, EscapeGivesUpTheEditAndNotTheDialog)
{
    line(0, Title).setText("wind");
    table.setCurrentCell(0, Title);
    type("snow");
    key(Qt::Key_Escape);
    EXPECT_EQ(text(0, Title), "wind");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_TRUE(dialog.isVisible());
    key(Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(table.hasFocus());
}

TEST_F(Editing, EnterMovesDownAndTabMovesRight)
{
    enter(0, Title, "a");
    EXPECT_EQ(table.currentRow(), 1);
    EXPECT_EQ(table.currentColumn(), Title);
    type("b");
    key(Qt::Key_Tab);
    EXPECT_EQ(table.currentRow(), 1);
    EXPECT_EQ(table.currentColumn(), Choice);
    table.setCurrentCell(1, Factor);
    type("2");
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(text(1, Factor), "2.00");
    EXPECT_EQ(table.currentColumn(), Choice);
    key(Qt::Key_Return);
    EXPECT_EQ(table.currentRow(), 2);
    key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(table.currentRow(), 1);
    enter(3, Title, "last");
    EXPECT_EQ(table.currentRow(), 3);
}

TEST_F(Editing, TabSkipsHiddenColumns)
{
    table.setColumnHidden(Choice, true);
    table.setCurrentCell(1, Title);
    type("b");
    key(Qt::Key_Tab);
    EXPECT_EQ(table.currentColumn(), Factor);
}

TEST_F(Editing, ReturnNeverPressesTheDefaultButton)
{
    table.setCurrentCell(0, Title);
    key(Qt::Key_Return);
    key(Qt::Key_Enter);
    enter(0, Title, "a");
    table.setCurrentCell(3, Title);
    key(Qt::Key_Return);
    table.setCurrentCell(0, Choice);
    key(Qt::Key_F2);
    key(Qt::Key_Return);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Editing, EnterGoesOnWithTheCellThatStoodBelowInASortedTable)
{
    fill(Factor, {"1", "2", "3", "4"});
    fill(Title, {"a", "b", "c", "d"});
    table.setSortingEnabled(true);
    table.sortByColumn(Factor, Qt::AscendingOrder);
    enter(0, Factor, "9");
    EXPECT_EQ(texts(Title), QStringList({"b", "c", "d", "a"}));
    EXPECT_EQ(text(table.currentRow(), Title), "b");
}

TEST_F(Editing, DeleteKeyStaysInAnOpenEditor)
{
    line(0, Title).setText("wind");
    table.setCurrentCell(0, Title);
    key(Qt::Key_F2);
    lineEditor()->setCursorPosition(0);
    key(Qt::Key_Delete);
    EXPECT_EQ(lineEditor()->text(), "ind");
    key(Qt::Key_Escape);
    table.setCurrentCell(0, Choice);
    key(Qt::Key_F2);
    ASSERT_NE(comboEditor(), nullptr);
    key(Qt::Key_Delete);
    comboEditor()->showPopup();
    QTest::keyClick(comboEditor()->view(), Qt::Key_Delete);
    comboEditor()->hidePopup();
    EXPECT_EQ(deletes, 0);
    key(Qt::Key_Escape);
    key(Qt::Key_Delete);
    EXPECT_EQ(deletes, 1);
}

TEST_F(Editing, ButtonCommitsAnOpenEditor)
{
    table.setCurrentCell(0, Title);
    type("snow");
    button->setFocusPolicy(Qt::TabFocus); // as the buttons beside the tables
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(text(0, Title), "snow");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Editing, DisabledCellsOpenNoEditor)
{
    cell(0, Factor).setEnabled(false);
    line(0, Factor).setVal(1.0f);
    table.setCurrentCell(0, Factor);
    key(Qt::Key_F2);
    EXPECT_EQ(editor(), nullptr);
    type("5");
    EXPECT_EQ(editor(), nullptr);
    doubleClick(0, Factor);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_TRUE(table.item(0, Factor)->isSelected());
    EXPECT_EQ(text(0, Factor), "1.00");
}

TEST_F(Editing, ChoiceIsPickedFromTheList)
{
    combo(0).setCurrentId(0);
    Reports reports(table);
    doubleClick(0, Choice);
    MRL_QT4_ComboBox* list = comboEditor();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->count(), 3);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, centre(0, Choice));
    ASSERT_TRUE(list->view()->isVisible());
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    EXPECT_EQ(combo(0).getCurrentId(), 71);
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{0, Choice}}));
    QTRY_COMPARE(editor(), static_cast<QWidget*>(nullptr));
}

TEST_F(Editing, ChoiceIsTypedByItsFirstLetters)
{
    combo(0).setCurrentId(0);
    table.setCurrentCell(0, Choice);
    type("V");
    ASSERT_NE(comboEditor(), nullptr);
    EXPECT_EQ(comboEditor()->currentText(), "Variable");
    EXPECT_EQ(combo(0).getCurrentId(), 0);
    key(Qt::Key_Return);
    EXPECT_EQ(combo(0).getCurrentId(), 81);
    EXPECT_EQ(table.currentRow(), 1);
}

TEST_F(Editing, ChoiceThatTheListDoesNotHaveIsKeptByALookIntoIt)
{
    combo(0).setCurrentId(4711);
    Reports reports(table);
    table.setCurrentCell(0, Choice);
    key(Qt::Key_F2);
    EXPECT_EQ(comboEditor()->currentIndex(), -1);
    key(Qt::Key_Return);
    EXPECT_EQ(combo(0).getCurrentId(), 4711);
    EXPECT_TRUE(reports.cells.empty());
}

/// The room that a combo box has for its text beside the arrow.
int roomForText(const QComboBox& combo)
{
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.frame = combo.hasFrame();
    return combo.style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo)
        .width();
}

TEST_F(Editing, AChoiceShowsItsEntriesInFullBesideTheArrow)
{
    table.setColumnWidth(Choice, table.fontMetrics().horizontalAdvance("Permanent") + 8);
    combo(0).setCurrentId(71);
    table.setCurrentCell(0, Choice);
    key(Qt::Key_F2);
    ASSERT_NE(comboEditor(), nullptr);
    EXPECT_GT(roomForText(*comboEditor()), comboEditor()->fontMetrics().horizontalAdvance("Permanent"));
    EXPECT_EQ(comboEditor()->x(), table.visualItemRect(table.item(0, Choice)).x());
}

TEST_F(Editing, AChoiceAtTheEdgeOfTheTableGrowsToTheLeft)
{
    table.setColumnWidth(Title, table.viewport()->width() - table.columnWidth(Name) - 40);
    table.setColumnWidth(Choice, 40);
    combo(0).setCurrentId(71);
    table.setCurrentCell(0, Choice);
    key(Qt::Key_F2);
    ASSERT_NE(comboEditor(), nullptr);
    EXPECT_GT(roomForText(*comboEditor()), comboEditor()->fontMetrics().horizontalAdvance("Permanent"));
    EXPECT_LE(comboEditor()->geometry().right(), table.viewport()->width() - 1);
}

TEST_F(Editing, AnEditableChoiceOpensALineEditInACombo)
{
    auto* header = static_cast<MRL_H_TwHeaderLineEditItem*>(table.horizontalHeaderItem(Factor));
    auto* editable = new MRL_H_TwEditableComboBoxItem(*header);
    table.setItem(0, Factor, editable);
    editable->setVal(1.35f);
    table.setCurrentCell(0, Factor);
    key(Qt::Key_F2);
    ASSERT_NE(comboEditor(), nullptr);
    auto* edit = qobject_cast<MRL_H_LineEdit*>(comboEditor()->lineEdit());
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), "1.35");
    edit->setText("1,5");
    key(Qt::Key_Return);
    EXPECT_EQ(editable->getVal(nullptr), 1.5);
    EXPECT_EQ(editable->getCurrentId(), 0);
    key(Qt::Key_Up);
    key(Qt::Key_F2);
    comboEditor()->lineEdit()->setText("Use from Action");
    key(Qt::Key_Return);
    EXPECT_EQ(editable->getCurrentId(), -1);
}

TEST_F(Editing, ARepaintDoesNotTakeAwayWhatIsBeingTyped)
{
    table.setCurrentCell(0, Title);
    type("sno");
    {
        MRL_QT_SignalBlocker quiet(&table);
        line(2, Factor).setVal(5.0f);
    }
    EXPECT_EQ(lineEditor()->text(), "sno");
}

TEST_F(Editing, DoubleClickOnASelectedCellKeepsTheSelection)
{
    table.setMultiEditingEnabled(true);
    click(0, Factor);
    click(2, Factor, Qt::ShiftModifier);
    doubleClick(1, Factor);
    ASSERT_NE(lineEditor(), nullptr);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, centre(1, Factor));
    EXPECT_EQ(table.selectedItems().size(), 3);
    lineEditor()->setText("4");
    key(Qt::Key_Return);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(text(row, Factor), "4.00");
    }
}

TEST_F(Editing, ASingleClickOnASelectedCellStillReducesTheSelection)
{
    click(0, Factor);
    click(2, Factor, Qt::ShiftModifier);
    click(1, Factor);
    EXPECT_EQ(table.selectedItems().size(), 1);
}

TEST_F(Editing, GoesToAllSelectedRowsAndJudgesEachAboutOnce)
{
    table.setMultiEditingEnabled(true);
    cell(1, Factor).setEnabled(false);
    table.selectColumn(Title);
    table.setRangeSelected({0, Factor, 3, Factor}, true);
    table.selectionModel()->setCurrentIndex(table.model()->index(2, Factor), QItemSelectionModel::NoUpdate);
    Reports reports(table);
    QSignalSpy selection(&table, &QTableWidget::itemSelectionChanged);
    type("3");
    key(Qt::Key_Return);
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{0, Factor}, {2, Factor}, {3, Factor}}));
    EXPECT_EQ(reports.judged, (std::vector<QSet<int>>{{0}, {2}, {0, 1, 2, 3}}));
    EXPECT_EQ(text(1, Factor), "0.00");
    EXPECT_EQ(table.selectedItems().size(), 8);
    EXPECT_EQ(selection.count(), 0);
}

TEST_F(Editing, OfOneCellLeavesTheOthersWithoutMultiEditing)
{
    table.setRangeSelected({0, Factor, 3, Factor}, true);
    table.selectionModel()->setCurrentIndex(table.model()->index(2, Factor), QItemSelectionModel::NoUpdate);
    Reports reports(table);
    type("3");
    key(Qt::Key_Return);
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{2, Factor}}));
    EXPECT_EQ(reports.judged, (std::vector<QSet<int>>{{0, 1, 2, 3}}));
}

TEST_F(Editing, OfManyRowsMovesNoneOfThemBeforeTheLastReport)
{
    fill(Title, {"a", "b", "c", "d"});
    fill(Factor, {"1", "2", "3", "4"});
    table.setSortingEnabled(true);
    table.sortByColumn(Factor, Qt::DescendingOrder);
    table.setMultiEditingEnabled(true);
    table.selectRow(0);
    table.setRangeSelected({0, 0, 2, ColumnCount - 1}, true);
    table.selectionModel()->setCurrentIndex(table.model()->index(0, Factor), QItemSelectionModel::NoUpdate);
    Reports reports(table);
    type("0");
    key(Qt::Key_Return);
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{0, Factor}, {1, Factor}, {2, Factor}}));
    EXPECT_EQ(texts(Title), QStringList({"a", "d", "c", "b"}));
}

TEST_F(Editing, TypingOnRowsSelectedByTheirHeaderStartsInTheFirstEditableColumn)
{
    table.setMultiEditingEnabled(true);
    QHeaderView* header = table.verticalHeader();
    const auto place = [header](int row) { return QPoint(5, header->sectionViewportPosition(row) + 5); };
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place(1));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::ShiftModifier, place(2));
    type("ice");
    key(Qt::Key_Return);
    EXPECT_EQ(texts(Title), QStringList({"", "ice", "ice", ""}));
    EXPECT_EQ(table.selectedRanges().size(), 1);
}

TEST_F(Editing, TypingOnADisabledCellAloneDoesNothing)
{
    table.setCurrentCell(1, Name);
    type("ice");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(table.currentColumn(), Name);
}

TEST_F(Editing, ArrowKeysInATextEditorEnterAndMove)
{
    table.setCurrentCell(1, Factor);
    type("3");
    key(Qt::Key_Up);
    EXPECT_EQ(text(1, Factor), "3.00");
    EXPECT_EQ(table.currentRow(), 0);
}

TEST_F(Editing, MovingTheCurrentCellIsToldAsInAnyTable)
{
    QSignalSpy cells(&table, &QTableWidget::currentCellChanged);
    QSignalSpy items(&table, &QTableWidget::currentItemChanged);
    QSignalSpy selections(&table, &QTableWidget::itemSelectionChanged);
    table.setCurrentCell(0, Factor);
    EXPECT_EQ(cells.count(), 1);
    EXPECT_EQ(items.count(), 1);
    EXPECT_EQ(selections.count(), 1);
}

TEST_F(Editing, SearchByTypingCanBeSwitchedOff)
{
    static_cast<MRL_H_TwHeaderItem*>(table.horizontalHeaderItem(Title))->setColumnEnabled(false);
    fill(Title, {"snow", "wind", "ice", "rain"});
    table.setCurrentCell(0, Title);
    table.activateSearchEnabled(false);
    type("i");
    EXPECT_EQ(table.currentRow(), 0);
    table.activateSearchEnabled(true);
    type("i");
    EXPECT_EQ(table.currentRow(), 2);
}

} // namespace tabletest
