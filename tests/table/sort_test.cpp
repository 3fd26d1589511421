#include "table/fixture.h"

#include <algorithm>
#include <random>

namespace tabletest {

class Sorting : public Table
{
};

TEST_F(Sorting, OrdersNumbersAsNumbersAndStably)
{
    addRows(5);
    fill(Factor, {"10", "9", "-1", "9", "0.5"});
    fill(Title, {"a", "b", "c", "d", "e"});
    table.sortByColumn(Factor, Qt::AscendingOrder);
    EXPECT_EQ(texts(Title), QStringList({"c", "e", "b", "d", "a"}));
    table.sortByColumn(Factor, Qt::DescendingOrder);
    EXPECT_EQ(texts(Title), QStringList({"a", "b", "d", "e", "c"}));
}

TEST_F(Sorting, OrdersTheNumberColumnByItsInts)
{
    addRows(3);
    for (int row = 0; row < 3; ++row) {
        table.item(row, Whole)->setData(Qt::DisplayRole, std::array<int, 3>{1000, 20, 300}[std::size_t(row)]);
    }
    table.sortByColumn(Whole, Qt::AscendingOrder);
    EXPECT_EQ(texts(Whole), QStringList({"20", "300", "1000"}));
}

TEST_F(Sorting, OrdersTextsByCodeUnitsInEveryLocale)
{
    const QLocale before;
    for (const char* name : {"C", "de_DE", "sv_SE"}) {
        QLocale::setDefault(QLocale(QString(name)));
        MRL_H_TableWidget other(0, ColumnCount);
        addColumns(other);
        other.appendNewRows(4, MRL_H_TableWidget::CreateCells);
        const QStringList titles{"b", QString::fromUtf8("ä"), "Z", "a"};
        for (int row = 0; row < 4; ++row) {
            other.item(row, Title)->setText(titles.at(row));
        }
        other.sortByColumn(Title, Qt::AscendingOrder);
        QStringList sorted;
        for (int row = 0; row < 4; ++row) {
            sorted.append(other.item(row, Title)->text());
        }
        EXPECT_EQ(sorted, QStringList({"Z", "a", "b", QString::fromUtf8("ä")})) << name;
    }
    QLocale::setDefault(before);
}

TEST_F(Sorting, KeepsSelectionAndCurrentCellOnTheirRows)
{
    addRows(4);
    fill(Title, {"d", "c", "b", "a"});
    table.selectRow(0);
    table.setCurrentCell(1, Factor, QItemSelectionModel::NoUpdate);
    table.sortByColumn(Title, Qt::AscendingOrder);
    EXPECT_TRUE(table.item(3, Title)->isSelected());
    EXPECT_FALSE(table.item(0, Title)->isSelected());
    EXPECT_EQ(table.currentRow(), 2);
    EXPECT_EQ(table.currentColumn(), Factor);
}

TEST_F(Sorting, PutsAnAppendedRowBehindItsEqualsWhenTheBlockEnds)
{
    addRows(4);
    fill(Factor, {"1", "2", "2", "3"});
    fill(Title, {"a", "b", "c", "d"});
    table.setSortingEnabled(true);
    table.sortByColumn(Factor, Qt::AscendingOrder);
    MRL_QT_SortingBlocker blocker(&table);
    addRows(1);
    line(4, Title).setText("new");
    line(4, Factor).setVal(2.0f);
    table.selectRow(4);
    EXPECT_EQ(texts(Title), QStringList({"a", "b", "c", "d", "new"}));
    blocker.unblock();
    EXPECT_EQ(texts(Title), QStringList({"a", "b", "c", "new", "d"}));
    EXPECT_TRUE(table.item(3, Title)->isSelected());
    EXPECT_FALSE(table.item(4, Title)->isSelected());
    EXPECT_EQ(table.currentRow(), 3);
}

TEST_F(Sorting, OfAFewChangedRowsEqualsAStableSortOfAll)
{
    std::mt19937 engine(7);
    const auto random = [&engine](int below) {
        return static_cast<int>(engine() % static_cast<unsigned>(below));
    };
    for (int round = 0; round < 300; ++round) {
        const auto order = round % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
        table.setRowCount(0);
        const int rows = 1 + random(12);
        addRows(rows);
        {
            MRL_QT_SignalBlocker quiet(&table);
            for (int row = 0; row < rows; ++row) {
                line(row, Factor).setVal(static_cast<float>(random(5)));
            }
        }
        table.setSortingEnabled(true);
        table.sortByColumn(Factor, order);
        std::vector<std::pair<float, QString>> expected;
        {
            MRL_QT_SortingBlocker blocker(&table);
            addRows(random(3));
            for (int change = random(5); change-- > 0;) {
                line(random(rows), Factor).setVal(static_cast<float>(random(5)));
            }
            for (int row = 0; row < table.rowCount(); ++row) {
                line(row, Title).setText(QString::number(row));
                expected.emplace_back(static_cast<float>(line(row, Factor).getVal(nullptr)),
                                      QString::number(row));
            }
            table.setCurrentCell(table.rowCount() - 1, Whole);
        }
        std::stable_sort(expected.begin(), expected.end(), [order](const auto& a, const auto& b) {
            return order == Qt::AscendingOrder ? a.first < b.first : b.first < a.first;
        });
        QStringList titles;
        for (const auto& entry : expected) {
            titles.append(entry.second);
        }
        ASSERT_EQ(texts(Title), titles) << "round " << round;
        ASSERT_EQ(text(table.currentRow(), Title), QString::number(table.rowCount() - 1));
        table.setSortingEnabled(false);
    }
}

TEST_F(Sorting, WaitsForTheEndOfTheOutermostReport)
{
    addRows(3);
    fill(Factor, {"1", "2", "3"});
    table.setSortingEnabled(true);
    table.sortByColumn(Factor, Qt::AscendingOrder);
    int depth = 0;
    QObject::connect(&table, &QTableWidget::cellChanged, [&](int row, int column) {
        EXPECT_EQ(row, 0);
        EXPECT_EQ(text(0, Factor), column == Factor ? "9.00" : "9.00");
        if (depth++ == 0) {
            {
                MRL_QT_SignalBlocker quiet(&table);
                line(0, Bounded).setVal(4.0f);
            }
            line(0, Title).setText("reported in the report");
        }
        EXPECT_EQ(texts(Factor), QStringList({"9.00", "2.00", "3.00"}));
    });
    line(0, Factor).setVal(9.0f);
    EXPECT_EQ(depth, 2);
    EXPECT_EQ(texts(Factor), QStringList({"2.00", "3.00", "9.00"}));
}

TEST_F(Sorting, DoesNotMoveRowsWhileABlockedFillRuns)
{
    addRows(3);
    table.setSortingEnabled(true);
    table.sortByColumn(Factor, Qt::AscendingOrder);
    {
        MRL_QT_SignalBlocker quiet(&table);
        for (int row = 0; row < 3; ++row) {
            line(row, Factor).setVal(static_cast<float>(3 - row)); // the sorted cell first
            line(row, Title).setText(QString::number(3 - row));
        }
    }
    EXPECT_EQ(texts(Factor), QStringList({"1.00", "2.00", "3.00"}));
    EXPECT_EQ(texts(Title), QStringList({"1", "2", "3"}));
}

TEST_F(Sorting, FollowsAClickOnAHeader)
{
    addRows(3);
    fill(Title, {"b", "c", "a"});
    table.setSortingEnabled(true);
    show();
    QHeaderView* header = table.horizontalHeader();
    const QPoint place(header->sectionViewportPosition(Title) + 10, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(texts(Title), QStringList({"a", "b", "c"}));
    EXPECT_TRUE(table.selectedItems().isEmpty());
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(texts(Title), QStringList({"c", "b", "a"}));
}

TEST_F(Sorting, ByChoicesGoesByTheShownText)
{
    addRows(3);
    for (int row = 0; row < 3; ++row) {
        combo(row).setCurrentId(std::array<int, 3>{81, 71, 0}[std::size_t(row)]);
    }
    table.sortByColumn(Choice, Qt::AscendingOrder);
    EXPECT_EQ(texts(Choice), QStringList({"None", "Permanent", "Variable"}));
}

TEST_F(Sorting, PutsRowsWithoutACellLast)
{
    table.setRowCount(3);
    table.setItem(1, Title, new QTableWidgetItem("b"));
    table.setItem(2, Title, new QTableWidgetItem("a"));
    table.sortByColumn(Title, Qt::AscendingOrder);
    EXPECT_EQ(text(0, Title), "a");
    EXPECT_EQ(text(1, Title), "b");
    EXPECT_EQ(table.item(2, Title), nullptr);
}

TEST_F(Sorting, SortsWhenACellOfTheSortedColumnIsReplaced)
{
    addRows(2);
    fill(Title, {"a", "b"});
    table.setSortingEnabled(true);
    table.sortByColumn(Title, Qt::AscendingOrder);
    {
        MRL_QT_SignalBlocker quiet(&table);
        MRL_H_TwItem* made =
            static_cast<MRL_H_TwHeaderItem*>(table.horizontalHeaderItem(Title))->createEmptyItem();
        made->setData(Qt::DisplayRole, "z");
        table.setItem(0, Title, made);
    }
    EXPECT_EQ(texts(Title), QStringList({"b", "z"}));
}

TEST_F(Sorting, RemovesManyRowsAndKeepsTheSelectionOfTheOthers)
{
    addRows(6);
    fill(Title, {"a", "b", "c", "d", "e", "f"});
    table.selectRow(4);
    table.removeRows({0, 2, 5, 77});
    EXPECT_EQ(texts(Title), QStringList({"b", "d", "e"}));
    EXPECT_TRUE(table.item(2, Title)->isSelected());
    EXPECT_FALSE(table.item(1, Title)->isSelected());
    table.removeRows({0, 1, 2});
    EXPECT_EQ(table.rowCount(), 0);
}

TEST_F(Sorting, RemovesSelectedRowsAndTellsTheSelectionOnce)
{
    addRows(6);
    fill(Title, {"a", "b", "c", "d", "e", "f"});
    show();
    QItemSelection every;
    for (int row = 0; row < 6; row += 2) {
        every.select(table.model()->index(row, 0), table.model()->index(row, ColumnCount - 1));
    }
    table.selectionModel()->select(every, QItemSelectionModel::ClearAndSelect);
    QSignalSpy changes(&table, &QTableWidget::itemSelectionChanged);
    table.removeRows({0, 2, 4});
    EXPECT_EQ(texts(Title), QStringList({"b", "d", "f"}));
    EXPECT_TRUE(table.selectedItems().isEmpty());
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(Sorting, HeadersEmphasiseSelectedRowsUnlessTheSelectionIsInThousandsOfPieces)
{
    addRows(2400);
    table.selectRow(3);
    EXPECT_TRUE(table.verticalHeader()->highlightSections());
    QItemSelection every;
    for (int row = 0; row < 2400; row += 2) {
        every.append(QItemSelectionRange(table.model()->index(row, 0)));
    }
    table.selectionModel()->select(every, QItemSelectionModel::ClearAndSelect);
    EXPECT_FALSE(table.verticalHeader()->highlightSections());
    table.selectRow(3);
    EXPECT_TRUE(table.verticalHeader()->highlightSections());
}

} // namespace tabletest
