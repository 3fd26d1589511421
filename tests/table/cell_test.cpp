#include "hostlib/ui/table/cell_pool.h"
#include "table/fixture.h"

namespace tabletest {

class Cells : public Table
{
  protected:
    Cells() { addRows(2); }
};

TEST_F(Cells, AreMadeByTheHeaderOfTheirColumn)
{
    EXPECT_NE(dynamic_cast<MRL_H_TwSimpleLineEditItem*>(table.itemOnColId(0, TitleId)), nullptr);
    EXPECT_NE(dynamic_cast<MRL_H_TwSimpleComboBoxItem*>(table.itemOnColId(0, ChoiceId)), nullptr);
    EXPECT_EQ(dynamic_cast<MRL_H_TwEditableComboBoxItem*>(table.itemOnColId(0, FactorId)), nullptr);
    EXPECT_EQ(table.itemOnColId(2, TitleId), nullptr);
    EXPECT_EQ(table.itemOnColId(0, 99), nullptr);
    EXPECT_EQ(table.itemOnColId(0, 106), nullptr);
}

TEST_F(Cells, AreFoundByTheIdOfTheirColumn)
{
    EXPECT_EQ(table.getColumnNumber(WholeId), Whole);
    EXPECT_EQ(table.getColumnNumber(-1), -1);
    EXPECT_EQ(table.getColumnId(Choice), ChoiceId);
    EXPECT_EQ(table.getColumnId(ColumnCount), -1);
    EXPECT_EQ(table.getColumnId(-1), -1);
    EXPECT_EQ(table.horizontalHeaderItemOnColId(TitleId), table.horizontalHeaderItem(Title));
    EXPECT_EQ(table.horizontalHeaderItemOnColId(7), nullptr);
}

TEST_F(Cells, KeepTrailingBlanksOfATextAndUnknownCharacters)
{
    line(0, Title).setText("G   ");
    EXPECT_EQ(text(0, Title), "G   ");
}

TEST_F(Cells, KeepNumbersAndFormatThemOnDemand)
{
    line(0, Factor).setVal(1.35f);
    EXPECT_EQ(text(0, Factor), "1.35");
    EXPECT_EQ(static_cast<float>(line(0, Factor).getVal(nullptr)), 1.35f);
    line(0, Factor).setVal(-99999.0f);
    EXPECT_EQ(text(0, Factor), "");
    EXPECT_EQ(line(0, Factor).getVal(nullptr), -99999.0);
}

TEST_F(Cells, OfOneColumnNameEachItsOwnNumber)
{
    addRows(500);
    for (int row = 0; row < 500; ++row) {
        line(row, Factor).setVal(static_cast<float>(row - 250) * 0.01f);
    }
    for (int round = 0; round < 2; ++round) {
        for (int row = 0; row < 500; ++row) {
            EXPECT_EQ(text(row, Factor), QString::number((row - 250) / 100.0, 'f', 2)) << row;
        }
    }
}

TEST_F(Cells, OfNumbersTakeTheNumberOfAText)
{
    QTableWidgetItem* item = table.item(0, Factor);
    item->setText("0,70"); // through Qt's class, as code that knows no more does
    EXPECT_EQ(static_cast<float>(line(0, Factor).getVal(nullptr)), 0.7f);
    line(0, Factor).setText("2.5");
    EXPECT_EQ(line(0, Factor).getVal(nullptr), 2.5);
    line(0, Factor).setText("");
    EXPECT_EQ(line(0, Factor).getVal(nullptr), -99999.0);
}

TEST_F(Cells, OfNumbersAreUnboundedForTheProgram)
{
    line(0, Bounded).setVal(123.0f);
    EXPECT_EQ(text(0, Bounded), "123.00");
}

TEST_F(Cells, OfWholeNumbersKeepTheirExactInt)
{
    table.item(0, Whole)->setData(Qt::DisplayRole, 2147483646);
    EXPECT_EQ(table.item(0, Whole)->data(Qt::DisplayRole).type(), QVariant::Int);
    EXPECT_EQ(table.item(0, Whole)->data(Qt::DisplayRole).toInt(), 2147483646);
    EXPECT_EQ(text(0, Whole), "2147483646");
}

TEST_F(Cells, OfTextsNameTheirNumber)
{
    bool ok = false;
    line(0, Title).setText("1,5");
    EXPECT_EQ(line(0, Title).getVal(&ok), 1.5);
    EXPECT_TRUE(ok);
    line(0, Title).setText("dead load");
    EXPECT_EQ(line(0, Title).getVal(&ok), 0.0);
    EXPECT_FALSE(ok);
}

TEST_F(Cells, OfChoicesKeepAnIdThatTheListDoesNotHave)
{
    EXPECT_TRUE(combo(0).setCurrentId(71));
    EXPECT_EQ(text(0, Choice), "Permanent");
    EXPECT_FALSE(combo(0).setCurrentId(4711));
    EXPECT_EQ(combo(0).getCurrentId(), 4711);
    EXPECT_EQ(text(0, Choice), "4711");
}

TEST_F(Cells, OfChoicesFollowANewListWithoutChangingTheirIds)
{
    combo(0).setCurrentId(4711);
    combo(1).setCurrentId(71);
    auto* header = static_cast<MRL_H_TwHeaderComboBoxItem*>(table.horizontalHeaderItem(Choice));
    Reports reports(table);
    std::list<ComboList> entries = header->getComboEntries(0);
    entries.push_back({"*** Action is missing ***", 4711, -99999});
    header->setComboEntries(entries);
    EXPECT_EQ(text(0, Choice), "*** Action is missing ***");
    EXPECT_EQ(text(1, Choice), "Permanent");
    EXPECT_EQ(combo(0).getCurrentId(), 4711);
    // only the cell whose text is another one
    EXPECT_EQ(reports.cells, (std::vector<std::pair<int, int>>{{0, Choice}}));
    header->setComboEntries(entries);
    EXPECT_EQ(reports.cells.size(), 1u);
    {
        const MRL_QT_SignalBlocker quiet(&table);
        header->setComboEntries(choices());
    }
    EXPECT_EQ(reports.cells.size(), 1u);
    EXPECT_EQ(text(0, Choice), "4711");
}

TEST_F(Cells, FirstEntryWithAnIdIsShown)
{
    auto* header = static_cast<MRL_H_TwHeaderComboBoxItem*>(table.horizontalHeaderItem(Choice));
    header->setComboEntries({{"None", 0, -99999}, {"None too", 0, -99999}});
    combo(0).setCurrentId(0);
    EXPECT_EQ(text(0, Choice), "None");
}

TEST_F(Cells, ThatMayHaveNoValueOfTheirOwnSaySo)
{
    auto* header = static_cast<MRL_H_TwHeaderLineEditItem*>(table.horizontalHeaderItem(Factor));
    auto* editable = new MRL_H_TwEditableComboBoxItem(*header);
    table.setItem(0, Factor, editable);
    EXPECT_EQ(MRL_H_TwSimpleLineEditItem::fromItem(table.item(0, Factor)), editable);
    editable->setVal(1.0f);
    EXPECT_EQ(editable->getCurrentId(), 0);
    editable->setCurrentId(-1);
    editable->setVal(1.35f); // what the cell shows meanwhile
    EXPECT_EQ(editable->getCurrentId(), -1);
    EXPECT_EQ(editable->text(), "1.35");
    editable->setVal(1.5f);
    EXPECT_EQ(editable->getCurrentId(), 0);
    EXPECT_EQ(editable->getVal(nullptr), 1.5);
}

TEST_F(Cells, ThatAreDisabledCanBeSelectedButNotEdited)
{
    cell(0, Factor).setEnabled(false);
    EXPECT_FALSE(cell(0, Factor).isEnabled());
    EXPECT_FALSE(table.item(0, Factor)->flags() & Qt::ItemIsEditable);
    EXPECT_TRUE(table.item(0, Factor)->flags() & Qt::ItemIsEnabled);
    EXPECT_TRUE(table.item(0, Factor)->flags() & Qt::ItemIsSelectable);
    EXPECT_TRUE(table.item(0, Factor)->data(Qt::BackgroundRole).isValid());
    cell(0, Factor).setEnabled(true);
    EXPECT_TRUE(table.item(0, Factor)->flags() & Qt::ItemIsEditable);
    EXPECT_FALSE(table.item(0, Factor)->data(Qt::BackgroundRole).isValid());
}

TEST_F(Cells, OfADisabledColumnStaySoWhateverTheyAreTold)
{
    EXPECT_FALSE(table.item(0, Name)->flags() & Qt::ItemIsEditable);
    cell(0, Name).setEnabled(true);
    EXPECT_FALSE(table.item(0, Name)->flags() & Qt::ItemIsEditable);
    EXPECT_FALSE(cell(0, Name).isEnabled());
    static_cast<MRL_H_TwHeaderItem*>(table.horizontalHeaderItem(Title))->setColumnEnabled(false);
    EXPECT_FALSE(table.item(1, Title)->flags() & Qt::ItemIsEditable);
    static_cast<MRL_H_TwHeaderItem*>(table.horizontalHeaderItem(Title))->setColumnEnabled(true);
    EXPECT_TRUE(table.item(1, Title)->flags() & Qt::ItemIsEditable);
}

TEST_F(Cells, KeepColoursToolTipsAndRoles)
{
    QTableWidgetItem* item = table.item(0, Factor);
    EXPECT_FALSE(item->data(357).isValid());
    item->setForeground(QBrush(Qt::red));
    item->setToolTip("too big");
    item->setData(356, 71);
    item->setData(357, true);
    item->setData(1234001, true);
    EXPECT_EQ(item->foreground().color(), QColor(Qt::red));
    EXPECT_EQ(item->toolTip(), "too big");
    EXPECT_EQ(item->data(356).toInt(), 71);
    EXPECT_TRUE(item->data(357).toBool());
    EXPECT_TRUE(item->data(1234001).toBool());
    item->setForeground(QBrush(Qt::black));
    item->setToolTip(QString());
    item->setData(357, false);
    EXPECT_EQ(item->foreground().color(), QColor(Qt::black));
    EXPECT_EQ(item->toolTip(), "");
    EXPECT_TRUE(item->data(357).isValid());
    EXPECT_FALSE(item->data(357).toBool());
    item->setForeground(QBrush(Qt::blue));
    EXPECT_EQ(item->foreground().color(), QColor(Qt::blue));
    EXPECT_EQ(item->data(356).toInt(), 71);
}

TEST_F(Cells, KeepUserRolesOfAnyNumberAndKind)
{
    addRows(2);
    QTableWidgetItem* item = table.item(0, Factor);
    for (int role = 400; role < 404; ++role) {
        item->setData(role, role % 2 == 0);
    }
    for (int role = 400; role < 404; ++role) {
        EXPECT_EQ(item->data(role), QVariant(role % 2 == 0)) << role;
        EXPECT_FALSE(table.item(1, Factor)->data(role).isValid()) << role;
    }
    item->setData(400, "a text");
    item->setData(403, 7);
    EXPECT_EQ(item->data(400), QVariant("a text"));
    EXPECT_EQ(item->data(401), QVariant(false));
    EXPECT_EQ(item->data(403), QVariant(7));
    item->setData(400, false);
    item->setData(401, QVariant());
    EXPECT_EQ(item->data(400), QVariant(false));
    EXPECT_FALSE(item->data(401).isValid());
}

TEST_F(Cells, OutliveTheirHeader)
{
    MRL_H_TwItem* kept = nullptr;
    {
        MRL_H_TwHeaderLineEditItem header(7, description(-3, 2), "", "", true, true, Qt::AlignLeft);
        kept = header.createEmptyItem();
    }
    kept->setData(Qt::DisplayRole, 1.5);
    EXPECT_EQ(kept->text(), "1.50");
    delete kept;
}

TEST_F(Cells, KnowTheirRowThroughTheTable)
{
    addRows(50);
    QTableWidgetItem* cell = table.item(40, Title);
    EXPECT_EQ(table.rowOf(cell), 40);
    std::set<int> first;
    for (int row = 0; row < 30; ++row) {
        first.insert(row);
    }
    table.removeRows(first);
    EXPECT_EQ(table.rowOf(cell), 10);
    EXPECT_EQ(table.rowOf(nullptr), -1);
    const MRL_H_TableWidget other;
    EXPECT_EQ(other.rowOf(cell), -1);
    auto* plain = new QTableWidgetItem("plain");
    EXPECT_EQ(table.rowOf(plain), -1);
    table.setItem(3, Name, plain);
    EXPECT_EQ(table.rowOf(plain), 3);
}

TEST(CellPool, GivesItsBlocksBackWithTheLastCell)
{
    mrl::table::CellPool pool(96);
    std::set<void*> cells;
    for (int i = 0; i < 3000; ++i) {
        cells.insert(pool.take());
    }
    EXPECT_EQ(cells.size(), 3000u);
    EXPECT_EQ(pool.blocks(), 3u);
    void* one = *cells.begin();
    pool.giveBack(one);
    EXPECT_EQ(pool.take(), one);
    for (void* cell : cells) {
        pool.giveBack(cell);
    }
    EXPECT_EQ(pool.blocks(), 0u);
    pool.giveBack(pool.take());
}

} // namespace tabletest
