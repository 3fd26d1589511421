#include "table/fixture.h"

#include <QClipboard>
#include <QMimeData>

namespace tabletest {

class Commands : public Table
{
  protected:
    Commands()
    {
        addRows(4);
        fill(Title, {"dead", "wind", "snow", "ice"});
        fill(Factor, {"1.35", "1.5", "0.002", "0"});
        for (int row = 0; row < 4; ++row) {
            combo(row).setCurrentId(71);
        }
        show();
    }

    static QString clipboard() { return QApplication::clipboard()->text(); }
    static void setClipboard(const QString& text) { QApplication::clipboard()->setText(text); }
    void select(int top, int left, int bottom, int right)
    {
        table.clearSelection();
        table.setCurrentCell(top, left, QItemSelectionModel::NoUpdate);
        table.setRangeSelected({top, left, bottom, right}, true);
    }
    void key(Qt::Key k, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&table, k, modifiers); }
};

TEST_F(Commands, CopyPutsTheRectangleOnTheClipboardAsTabSeparatedText)
{
    select(0, Title, 1, Factor);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "dead\tPermanent\t1.35\nwind\tPermanent\t1.50\n");
}

TEST_F(Commands, CopyLeavesOutHiddenColumnsAndWhatIsNotSelected)
{
    table.setColumnHidden(Choice, true);
    select(0, Title, 0, Factor);
    table.setRangeSelected({2, Factor, 2, Factor}, true);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "dead\t1.35\n\t0.002\n");
}

TEST_F(Commands, CopyWithHeadersPutsTheCaptionsFirst)
{
    select(1, Title, 1, Choice);
    key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(clipboard(), "Title\tChoice\nwind\tPermanent\n");
}

TEST_F(Commands, CopyWithHeadersOffersAnHtmlTableWhereEnabled)
{
    line(1, Title).setText("wind < 3\n& more");
    select(1, Title, 1, Choice);
    key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasHtml());
    table.setHtmlCopyEnabled(true);
    key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(clipboard(), "Title\tChoice\n\"wind < 3\n& more\"\tPermanent\n");
    EXPECT_EQ(QApplication::clipboard()->mimeData()->html(),
              "<table border=\"1\">\n<tr><th>Title</th><th>Choice</th></tr>\n"
              "<tr><td>wind &lt; 3<br/>&amp; more</td><td>Permanent</td></tr>\n</table>\n");
}

TEST_F(Commands, CopyOffersAnHtmlTableWithoutHeadingsWhereEnabled)
{
    select(1, Choice, 1, Choice);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasHtml());
    table.setHtmlCopyEnabled(true);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "Permanent\n");
    EXPECT_EQ(QApplication::clipboard()->mimeData()->html(),
              "<table border=\"1\">\n<tr><td>Permanent</td></tr>\n</table>\n");
}

TEST_F(Commands, CopyOfNothingLeavesTheClipboard)
{
    setClipboard("kept");
    table.clearSelection();
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "kept");
}

TEST_F(Commands, DisabledCellsAreCopied)
{
    line(0, Name).setText("G   ");
    select(0, Name, 0, Title);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "G   \tdead\n");
}

TEST_F(Commands, PasteEntersARectangleCellByCell)
{
    Reports reports(table);
    setClipboard("a\tVariable\t0,7\r\nb\tNone\t1.5\r\n");
    select(0, Title, 0, Title);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(texts(Title), QStringList({"a", "b", "snow", "ice"}));
    EXPECT_EQ(texts(Choice), QStringList({"Variable", "None", "Permanent", "Permanent"}));
    EXPECT_EQ(texts(Factor), QStringList({"0.70", "1.50", "0.002", "0.00"}));
    // row 1 keeps its factor: 1.50 is what it had
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{
                                 {0, Title}, {0, Choice}, {0, Factor}, {1, Title}, {1, Choice}}));
    EXPECT_EQ(reports.judged, (std::vector<QSet<int>>{{0}, {0}, {0}, {1}, {0, 1}}));
    EXPECT_EQ(table.selectedItems().size(), 6);
}

TEST_F(Commands, PasteRefusesWhatTypingRefuses)
{
    cell(1, Bounded).setEnabled(false);
    Reports reports(table);
    setClipboard("10\n5\n-1\n");
    select(0, Bounded, 0, Bounded);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(texts(Bounded), QStringList({"0.00", "0.00", "0.00", "0.00"}));
    setClipboard("no such choice\n");
    select(0, Choice, 0, Choice);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(0, Choice), "Permanent");
    EXPECT_TRUE(reports.cells.empty());
}

TEST_F(Commands, PasteEndsAtTheEdgeOfTheTable)
{
    setClipboard("1\t2\t3\t4\n5\t6\t7\t8\n");
    select(3, Bounded, 3, Bounded);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(3, Bounded), "1.00");
    EXPECT_EQ(text(3, Whole), "2");
    EXPECT_EQ(table.rowCount(), 4);
}

TEST_F(Commands, PasteOfOneValueFillsTheSelection)
{
    setClipboard("3\n");
    select(0, Factor, 2, Bounded);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(texts(Factor), QStringList({"3.00", "3.00", "3.00", "0.00"}));
    EXPECT_EQ(texts(Bounded), QStringList({"3.00", "3.00", "3.00", "0.00"}));
}

TEST_F(Commands, PasteIntoASortedTableMovesNoRowUnderIt)
{
    table.setSortingEnabled(true);
    table.sortByColumn(Factor, Qt::AscendingOrder);
    EXPECT_EQ(texts(Title), QStringList({"ice", "snow", "dead", "wind"}));
    setClipboard("A\tNone\t9\nB\tNone\t8\nC\tNone\t7\nD\tNone\t6\n");
    select(0, Title, 0, Title);
    QStringList atReports;
    QObject::connect(&table, &QTableWidget::cellChanged, [&] { atReports = texts(Factor); });
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(atReports, QStringList({"9.00", "8.00", "7.00", "6.00"}));
    EXPECT_EQ(texts(Title), QStringList({"D", "C", "B", "A"}));
    EXPECT_EQ(texts(Factor), QStringList({"6.00", "7.00", "8.00", "9.00"}));
}

TEST_F(Commands, PasteAndCopyAreEachOthersReverse)
{
    line(0, Title).setText("with\ttab and \"quotes\"");
    line(1, Title).setText("\"quoted\"  ");
    line(2, Title).setText("two\nlines");
    select(0, Title, 3, Bounded);
    key(Qt::Key_C, Qt::ControlModifier);
    MRL_H_TableWidget other(0, ColumnCount);
    addColumns(other);
    other.appendNewRows(4, MRL_H_TableWidget::CreateCells);
    other.setCurrentCell(0, Title);
    other.pasteClipboard();
    for (int row = 0; row < 4; ++row) {
        for (int column = Title; column <= Bounded; ++column) {
            EXPECT_EQ(other.item(row, column)->text(), text(row, column)) << row << " " << column;
        }
    }
}

TEST_F(Commands, FillDownRepeatsTheFirstSelectedRow)
{
    line(0, Factor).setVal(0.1234567f);
    combo(0).setCurrentId(4711); // an id that the list doesn't have is handed on too
    Reports reports(table);
    select(0, Choice, 2, Factor);
    key(Qt::Key_D, Qt::ControlModifier);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(combo(row).getCurrentId(), 4711);
        EXPECT_EQ(static_cast<float>(line(row, Factor).getVal(nullptr)), 0.1234567f);
    }
    EXPECT_EQ(combo(3).getCurrentId(), 71);
    EXPECT_EQ(reports.cells.size(), 4u);
    EXPECT_EQ(reports.judgedRows, 3 + 3); // three alone, and the last with the whole range
    EXPECT_EQ(table.selectedItems().size(), 6);
}

TEST_F(Commands, SelectAllSelectsEveryCell)
{
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table.selectedItems().size(), 4 * ColumnCount);
}

TEST_F(Commands, ContextMenuListsTheCommandsInOrderWithNewAndDeleteWhereEnabled)
{
    select(0, Title, 1, Title);
    table.setContextmenueEnabled_new_del(false);
    QStringList names;
    for (const QAction* action : table.getContextMenu()->actions()) {
        names.append(action->text());
    }
    EXPECT_EQ(names,
              QStringList({"Copy", "Copy with headers", "Paste", "Fill down", "Select all", "Fit columns"}));
    table.setContextmenueEnabled_new_del(true);
    table.setResetContextMenuOnCreation(true);
    EXPECT_EQ(table.getContextMenu()->actions().size(), 9); // with a separator, new and delete
}

TEST_F(Commands, EntriesOfTheContextMenuActOnTheSelection)
{
    table.setResetContextMenuOnCreation(true);
    select(0, Factor, 2, Factor);
    MRL_QT_Menu* menu = table.getContextMenu();
    const auto trigger = [](MRL_QT_Menu* from, const char* name) {
        from->findChild<QAction*>(name)->trigger();
    };
    trigger(menu, "table fill down");
    EXPECT_EQ(texts(Factor), QStringList({"1.35", "1.35", "1.35", "0.00"}));
    trigger(menu, "table copy");
    EXPECT_EQ(clipboard(), "1.35\n1.35\n1.35\n");
    trigger(menu, "table new row");
    EXPECT_EQ(table.rowCount(), 5);
    trigger(menu, "table delete rows");
    EXPECT_EQ(texts(Title), QStringList({"ice", ""}));
}

TEST_F(Commands, WithoutASelectionCopyAndFillDownAreGrey)
{
    table.setResetContextMenuOnCreation(true);
    table.clearSelection();
    EXPECT_FALSE(table.getContextMenu()->findChild<QAction*>("table copy")->isEnabled());
    EXPECT_FALSE(table.getContextMenu()->findChild<QAction*>("table fill down")->isEnabled());
}

TEST_F(Commands, MenuIsBuiltAnewOnlyWhenAsked)
{
    MRL_QT_Menu* menu = table.getContextMenu();
    menu->addAction("mine");
    EXPECT_EQ(table.getContextMenu(), menu);
    table.setResetContextMenuOnCreation(true);
    MRL_QT_Menu* fresh = table.getContextMenu();
    EXPECT_NE(fresh, menu);
    for (const QAction* action : fresh->actions()) {
        EXPECT_NE(action->text(), "mine");
    }
}

} // namespace tabletest
