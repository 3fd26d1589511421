#include "table/fixture.h"

namespace tabletest {

class Blockers : public Table
{
  protected:
    Blockers() { addRows(3); }
};

TEST_F(Blockers, OfSignalsNestAndGiveBackWhatTheyFound)
{
    Reports reports(table);
    {
        MRL_QT_SignalBlocker outer(&table);
        {
            MRL_QT_SignalBlocker inner(&table);
            line(0, Factor).setVal(1.0f);
            inner.unblock();
            EXPECT_TRUE(table.signalsBlocked());
        }
        EXPECT_TRUE(table.signalsBlocked());
        line(0, Factor).setVal(2.0f);
    }
    EXPECT_FALSE(table.signalsBlocked());
    EXPECT_TRUE(reports.cells.empty());
    line(0, Factor).setVal(3.0f);
    EXPECT_EQ(reports.cells.size(), 1u);
}

TEST_F(Blockers, OfSignalsLeaveABlockThatStoodBefore)
{
    table.blockSignals(true);
    {
        MRL_QT_SignalBlocker blocker(&table);
    }
    EXPECT_TRUE(table.signalsBlocked());
    table.blockSignals(false);
}

TEST_F(Blockers, OfSignalsWorkOnAnyObject)
{
    QObject object;
    {
        MRL_QT_SignalBlocker blocker(&object);
        EXPECT_TRUE(object.signalsBlocked());
    }
    EXPECT_FALSE(object.signalsBlocked());
    MRL_QT_SignalBlocker none(nullptr);
}

TEST_F(Blockers, OfSignalsTellTheModelOnceWhenTheLastEnds)
{
    QSignalSpy model(table.model(), &QAbstractItemModel::dataChanged);
    {
        MRL_QT_SignalBlocker outer(&table);
        for (int row = 0; row < 3; ++row) {
            MRL_QT_SignalBlocker inner(&table);
            line(row, Factor).setVal(1.0f + static_cast<float>(row));
            cell(row, Factor).setForeground(QBrush(Qt::red));
        }
        EXPECT_EQ(model.count(), 0);
    }
    EXPECT_EQ(model.count(), 1);
}

TEST_F(Blockers, OfUpdatesNest)
{
    MRL_QT_UpdateBlocker outer(&table);
    {
        MRL_QT_UpdateBlocker inner(&table);
        EXPECT_FALSE(table.updatesEnabled());
    }
    EXPECT_FALSE(table.updatesEnabled());
    outer.unblock();
    EXPECT_TRUE(table.updatesEnabled());
    outer.unblock();
    EXPECT_TRUE(table.updatesEnabled());
}

TEST_F(Blockers, OfSortingNestAndSortWhenTheLastEnds)
{
    table.setSortingEnabled(true);
    table.sortByColumn(Title, Qt::AscendingOrder);
    fill(Title, {"a", "b", "c"});
    {
        MRL_QT_SortingBlocker outer(&table);
        EXPECT_FALSE(table.isSortingEnabled());
        {
            MRL_QT_SortingBlocker inner(&table);
            line(0, Title).setText("z");
        }
        EXPECT_FALSE(table.isSortingEnabled());
        EXPECT_EQ(texts(Title), QStringList({"z", "b", "c"}));
    }
    EXPECT_TRUE(table.isSortingEnabled());
    EXPECT_EQ(texts(Title), QStringList({"b", "c", "z"}));
}

TEST_F(Blockers, OfSortingLeaveATableUnsortedThatWasSo)
{
    {
        MRL_QT_SortingBlocker blocker(&table);
        fill(Title, {"c", "b", "a"});
    }
    EXPECT_FALSE(table.isSortingEnabled());
    EXPECT_EQ(texts(Title), QStringList({"c", "b", "a"}));
}

TEST_F(Blockers, OfSortingWorkOnQtsOwnTables)
{
    QTableWidget plain(3, 1);
    plain.setSortingEnabled(true);
    {
        MRL_QT_SortingBlocker blocker(&plain);
        EXPECT_FALSE(plain.isSortingEnabled());
    }
    EXPECT_TRUE(plain.isSortingEnabled());
}

TEST_F(Blockers, OfQtCatchUpAtTheNextTurnOfTheEventLoop)
{
    table.setSortingEnabled(true);
    table.sortByColumn(Title, Qt::AscendingOrder);
    {
        const QSignalBlocker quiet(&table);
        line(0, Title).setText("b");
        line(1, Title).setText("a");
        line(2, Title).setText("c");
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(texts(Title), QStringList({"a", "b", "c"}));
}

} // namespace tabletest
