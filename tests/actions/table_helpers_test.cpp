#include "actions/table_helpers.h"

#include <gtest/gtest.h>

#include <set>

#include "host/mrl_table.h"

namespace {

TEST(RemoveRows, SelectsWhatStandsWhereTheLowestStood)
{
    MRL_QT_TableWidget table(5, 1);
    for (int row = 0; row < 5; ++row) {
        table.setItem(row, 0, new QTableWidgetItem(QString::number(row)));
    }
    removeRows(&table, {1, 3});
    ASSERT_EQ(table.rowCount(), 3);
    EXPECT_EQ(table.item(1, 0)->text(), QStringLiteral("2"));
    EXPECT_EQ(table.item(2, 0)->text(), QStringLiteral("4"));
    EXPECT_EQ(getSelectedRows(&table), (std::set<int>{1}));
    removeRows(&table, {2});
    EXPECT_EQ(getSelectedRows(&table), (std::set<int>{1}));
    removeRows(&table, {});
    EXPECT_EQ(getSelectedRows(&table), (std::set<int>{0}));
    removeRows(&table, {-1, 1});
    EXPECT_EQ(table.rowCount(), 1);
}

TEST(SelectedRows, AreEachCountedOnceAndInOrder)
{
    MRL_QT_TableWidget table(6, 2);
    EXPECT_TRUE(getSelectedRows(&table).empty());
    table.setRangeSelected({4, 0, 5, 0}, true);
    table.setRangeSelected({1, 1, 1, 1}, true);
    table.setRangeSelected({4, 1, 4, 1}, true);
    EXPECT_EQ(getSelectedRows(&table), (std::set<int>{1, 4, 5}));
}

} // namespace
