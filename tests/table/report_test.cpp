#include "table/fixture.h"

namespace tabletest {

class ChangeReports : public Table
{
  protected:
    ChangeReports() { addRows(4); }
};

TEST_F(ChangeReports, ComeOnceForAChangeOfAValue)
{
    Reports reports(table);
    line(2, Factor).setVal(1.5f);
    line(2, Factor).setVal(1.5f);
    line(1, Title).setText("wind");
    combo(3).setCurrentId(81);
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{2, Factor}, {1, Title}, {3, Choice}}));
}

TEST_F(ChangeReports, DoNotComeForColoursFlagsToolTipsAndRoles)
{
    Reports reports(table);
    QSignalSpy items(&table, &QTableWidget::itemChanged);
    cell(0, Factor).setForeground(QBrush(Qt::red));
    cell(0, Factor).QTableWidgetItem::setForeground(QBrush(Qt::blue));
    cell(0, Factor).setToolTip("why");
    cell(0, Factor).setEnabled(false);
    cell(0, Name).setData(356, 1);
    cell(0, Name).setData(357, true);
    cell(0, Factor).setData(1234001, true);
    EXPECT_TRUE(reports.cells.empty());
    EXPECT_EQ(items.count(), 0);
}

TEST_F(ChangeReports, DoNotComeForRowsAppendedRemovedOrCompacted)
{
    Reports reports(table);
    addRows(3);
    table.removeRows({1, 4});
    for (int column = 0; column < ColumnCount; ++column) {
        table.setItem(0, column, table.takeItem(2, column)); // what a compacting walk does
    }
    table.setRowCount(2);
    EXPECT_TRUE(reports.cells.empty());
}

TEST_F(ChangeReports, NameTheRowAfterRowsHaveMoved)
{
    fill(Title, {"d", "c", "b", "a"});
    MRL_H_TwSimpleLineEditItem& last = line(0, Factor);
    table.sortByColumn(Title, Qt::AscendingOrder);
    Reports reports(table);
    last.setVal(2.0f);
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{3, Factor}}));
    table.removeRows({0, 1});
    last.setVal(3.0f);
    EXPECT_EQ(reports.cells.back(), std::make_pair(1, int(Factor)));
}

TEST_F(ChangeReports, NameTheRowFarFromWhereTheCellWas)
{
    addRows(196);
    MRL_H_TwSimpleLineEditItem& moved = line(0, Factor);
    fill(Title, [] {
        QStringList titles;
        for (int row = 0; row < 200; ++row) {
            titles.append(QString("%1").arg(row == 0 ? 999 : row, 3, 10, QLatin1Char('0')));
        }
        return titles;
    }());
    table.sortByColumn(Title, Qt::AscendingOrder);
    table.insertRow(0);
    Reports reports(table);
    moved.setVal(2.0f);
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{200, Factor}}));
}

TEST_F(ChangeReports, ReachObserversOfTheModel)
{
    QSignalSpy model(table.model(), &QAbstractItemModel::dataChanged);
    line(2, Factor).setVal(1.5f);
    ASSERT_EQ(model.count(), 1);
    EXPECT_EQ(model.first().first().toModelIndex().row(), 2);
}

TEST_F(ChangeReports, ComeForAPlainItemAsInAnyTable)
{
    table.setItem(0, Title, new QTableWidgetItem("plain"));
    Reports reports(table);
    table.item(0, Title)->setText("other");
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{0, Title}}));
}

TEST_F(ChangeReports, SurviveAReceiverThatDeletesTheTable)
{
    auto* mortal = new MRL_H_TableWidget(1, 0, nullptr, "mortal");
    mortal->setColumnCount(ColumnCount);
    addColumns(*mortal);
    mortal->appendNewRows(1, MRL_H_TableWidget::CreateCells);
    QObject::connect(mortal, &QTableWidget::cellChanged, [mortal] { delete mortal; });
    MRL_H_TwSimpleLineEditItem::fromItem(mortal->item(1, Factor))->setVal(1.0f);
}

} // namespace tabletest
