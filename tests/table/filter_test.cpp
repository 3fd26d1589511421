#include "table/fixture.h"

#include <QClipboard>

namespace tabletest {

/// Rows a to f, of which c and d are filtered out.
class Filter : public Table
{
  protected:
    Filter()
    {
        addRows(6);
        fill(Title, {"a", "b", "c", "d", "e", "f"});
        fill(Factor, {"6", "5", "4", "3", "2", "1"});
        show();
        hideMiddle();
    }

    void hideMiddle()
    {
        table.setRowFilter([this](int row) { return text(row, Title) != "c" && text(row, Title) != "d"; });
    }
    void key(Qt::Key k, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&table, k, modifiers);
    }
    QStringList selectedTitles()
    {
        QStringList titles;
        for (const QTableWidgetItem* item : table.selectedItems()) {
            if (item->column() == Title) {
                titles.append(item->text());
            }
        }
        titles.sort();
        return titles;
    }
    static void setClipboard(const QString& text) { QApplication::clipboard()->setText(text); }
};

TEST_F(Filter, HidesWhatIsNotAcceptedAndCountsIt)
{
    EXPECT_TRUE(table.isRowHidden(2));
    EXPECT_TRUE(table.isRowHidden(3));
    EXPECT_EQ(table.hiddenRowCount(), 2);
    table.setRowFilter(nullptr);
    EXPECT_FALSE(table.isRowHidden(2));
    EXPECT_EQ(table.hiddenRowCount(), 0);
}

TEST_F(Filter, SelectAllLeavesOutHiddenRows)
{
    table.setCurrentCell(0, Title);
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedTitles(), QStringList({"a", "b", "e", "f"}));
}

TEST_F(Filter, ShiftAndArrowsPassOverHiddenRows)
{
    table.setCurrentCell(1, Title);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(table.currentRow(), 4);
    EXPECT_EQ(selectedTitles(), QStringList({"b", "e"}));
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedTitles(), QStringList({"b", "e", "f"}));
}

TEST_F(Filter, ShiftAndClickLeaveOutHiddenRows)
{
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
        const QPoint place = table.visualItemRect(table.item(row, Title)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, place);
    };
    click(0, Qt::NoModifier);
    click(5, Qt::ShiftModifier);
    EXPECT_EQ(selectedTitles(), QStringList({"a", "b", "e", "f"}));
    click(4, Qt::ControlModifier);
    EXPECT_EQ(selectedTitles(), QStringList({"a", "b", "f"}));
}

TEST_F(Filter, AClickOnAHeaderSelectsTheShownPartOfTheColumn)
{
    QHeaderView* header = table.horizontalHeader();
    const QPoint place(header->sectionViewportPosition(Title) + 5, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(selectedTitles(), QStringList({"a", "b", "e", "f"}));
}

TEST_F(Filter, DeselectsWhatItHides)
{
    table.setRowFilter(nullptr);
    table.selectAll();
    hideMiddle();
    EXPECT_EQ(selectedTitles(), QStringList({"a", "b", "e", "f"}));
}

TEST_F(Filter, PasteGoesOnBehindHiddenRows)
{
    setClipboard("A\nB\nE\n");
    table.setCurrentCell(0, Title);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(texts(Title), QStringList({"A", "B", "c", "d", "E", "f"}));
    EXPECT_EQ(selectedTitles(), QStringList({"A", "B", "E"}));
}

TEST_F(Filter, PasteOfOneValueFillsTheShownPartOfTheSelection)
{
    setClipboard("7\n");
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(texts(Factor), QStringList({"7.00", "7.00", "4.00", "3.00", "7.00", "7.00"}));
}

TEST_F(Filter, FillDownPassesOverHiddenRows)
{
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(texts(Title), QStringList({"a", "a", "c", "d", "a", "a"}));
}

TEST_F(Filter, AnEntryIntoManyRowsPassesOverHiddenRows)
{
    table.setMultiEditingEnabled(true);
    table.setCurrentCell(0, Factor);
    key(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&table, "8");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(texts(Factor), QStringList({"8.00", "8.00", "4.00", "3.00", "8.00", "8.00"}));
}

TEST_F(Filter, DeletingTheSelectionKeepsHiddenRows)
{
    key(Qt::Key_A, Qt::ControlModifier);
    table.getContextMenu()->findChild<QAction*>("table delete rows")->trigger();
    EXPECT_EQ(texts(Title), QStringList({"c", "d"}));
}

TEST_F(Filter, HiddenRowsStayHiddenWhenRowsMoveAndGo)
{
    table.setSortingEnabled(true);
    table.sortByColumn(Factor, Qt::AscendingOrder);
    ASSERT_EQ(texts(Title), QStringList({"f", "e", "d", "c", "b", "a"}));
    table.removeRows({0});
    line(0, Factor).setVal(9.0f);
    ASSERT_EQ(texts(Title), QStringList({"d", "c", "b", "a", "e"}));
    for (int row = 0; row < table.rowCount(); ++row) {
        EXPECT_EQ(table.isRowHidden(row), row < 2) << row;
    }
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedTitles(), QStringList({"a", "b", "e"}));
}

TEST_F(Filter, ChangedAndAddedRowsStayInSight)
{
    line(0, Title).setText("c");
    addRows(1);
    EXPECT_FALSE(table.isRowHidden(0));
    EXPECT_FALSE(table.isRowHidden(6));
}

/// The same rows; c and d are filtered out too.
class Find : public Filter
{
  protected:
    Find()
    {
        fill(Title, {"Wind x", "wind y", "wind z", "Snow", "Wind x 2", "Snow 2"});
        table.setRowFilter([](int row) { return row != 2 && row != 3; });
    }
    using Search = MRL_H_TableWidget::Search;
    QString found(const QString& wanted, int fromRow, Search search = Search::Forward)
    {
        const QModelIndex from = fromRow < 0 ? QModelIndex() : table.model()->index(fromRow, Title);
        const QModelIndex index = table.findText(wanted, from, search);
        return index.isValid() ? text(index.row(), index.column()) : QString("none");
    }
};

TEST_F(Find, GoesToTheNextCellInSightWithoutRegardToCase)
{
    EXPECT_EQ(found("wind", -1), "Wind x");
    EXPECT_EQ(found("WIND", 0), "wind y");
    EXPECT_EQ(found("wind", 1), "Wind x 2");
    EXPECT_EQ(found("wind", 4), "Wind x");
}

TEST_F(Find, GoesBackwardToo)
{
    EXPECT_EQ(found("wind", -1, Search::Backward), "Wind x 2");
    EXPECT_EQ(found("wind", 4, Search::Backward), "wind y");
    EXPECT_EQ(found("wind", 0, Search::Backward), "Wind x 2");
}

TEST_F(Find, LooksIntoAllColumnsInSight)
{
    EXPECT_EQ(found("2.00", 0), "2.00");
    table.setColumnHidden(Factor, true);
    EXPECT_EQ(found("2.00", 0), "none");
}

TEST_F(Find, FindsTheCellItselfLastAndNothingForNothing)
{
    EXPECT_EQ(found("wind y", 1), "wind y");
    EXPECT_EQ(found("Snow 2", -1), "Snow 2");
    EXPECT_EQ(found("wind z", -1), "none");
    EXPECT_EQ(found("", 0), "none");
    EXPECT_EQ(found("rain", 0), "none");
}

} // namespace tabletest
