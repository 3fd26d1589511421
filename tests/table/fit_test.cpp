#include "table/fixture.h"

namespace tabletest {

class Columns : public Table
{
  protected:
    int fitted(int column)
    {
        table.resizeColumnToContents(column);
        return table.columnWidth(column);
    }
    int laidOut(int row) { return table.fontMetrics().horizontalAdvance(table.item(row, Title)->text()); }
};

TEST_F(Columns, FittedColumnHoldsItsWidestTextInTheFontOfTheTable)
{
    addRows(700);
    for (int row = 0; row < 700; ++row) {
        table.item(row, Title)->setText(QStringLiteral("load case %1").arg(row % 350));
    }
    table.item(400, Title)->setText(QStringLiteral("a load case with a title much longer than its caption"));
    const auto widest = [this] {
        return table.fontMetrics().horizontalAdvance(table.item(400, Title)->text());
    };
    table.resizeColumnsToContents();
    const int narrow = table.columnWidth(Title);
    EXPECT_GE(narrow, widest());
    EXPECT_LE(narrow, widest() + 20);

    QFont large = table.font();
    large.setPixelSize(2 * table.fontMetrics().height());
    table.setFont(large);
    table.resizeColumnsToContents();
    EXPECT_GT(table.columnWidth(Title), narrow);
    EXPECT_GE(table.columnWidth(Title), widest());
    EXPECT_LE(table.columnWidth(Title), widest() + 20);
}

TEST_F(Columns, FitTextsOfAllScriptsAndKernedOnes)
{
    addRows(1);
    for (const char* title :
         {"AVAVAVATo. LTLTLTyYy,VoToVoTo",
          "Einwirkung \xCE\xB3\xCF\x88 \xE2\x80\x93 st\xC3\xA4ndig, Gr\xC3\xB6\xC3\x9F"
          "e 30 \xE2\x82\xAC",
          "\xE6\x81\x92\xE8\xBD\xBD \xD8\xB9\xD8\xB1\xD8\xA8\xD9\x8A \xF0\x9F\x8C\x89 bridge"}) {
        line(0, Title).setText(QString::fromUtf8(title));
        EXPECT_GE(fitted(Title), laidOut(0)) << title;
        EXPECT_LE(fitted(Title), laidOut(0) * 11 / 10 + 20) << title;
    }
}

TEST_F(Columns, FitNumbersAndChoices)
{
    addRows(3);
    line(1, Whole).setVal(999999.0f);
    EXPECT_GE(fitted(Whole), table.fontMetrics().horizontalAdvance("999999"));
    combo(2).setCurrentId(71);
    EXPECT_GE(fitted(Choice), table.fontMetrics().horizontalAdvance("Permanent"));
}

TEST_F(Columns, FitAThousandRowsFromTheFirstInSightOn)
{
    addRows(3000);
    line(2500, Title).setText(QString(60, 'W'));
    show();
    const int narrow = fitted(Title);
    EXPECT_LT(narrow, laidOut(2500));
    table.scrollToItem(table.item(2400, Title), QAbstractItemView::PositionAtTop);
    EXPECT_GE(fitted(Title), laidOut(2500));
    table.setRowHidden(2500, true);
    EXPECT_EQ(fitted(Title), narrow);
}

TEST_F(Columns, AreFittedWhenTheyAreShownForTheFirstTime)
{
    addRows(1);
    table.setColumnHidden(Title, true);
    line(0, Title).setText(QString(60, 'W'));
    table.resizeColumnsToContents();
    table.showColumnFitted(Title);
    EXPECT_FALSE(table.isColumnHidden(Title));
    EXPECT_GE(table.columnWidth(Title), laidOut(0));
    table.setColumnWidth(Title, 50);
    table.setColumnHidden(Title, true);
    table.showColumnFitted(Title);
    EXPECT_EQ(table.columnWidth(Title), 50); // as the user left it
}

TEST_F(Columns, FitCellsOfAnotherKindToo)
{
    addRows(2);
    auto plain = std::make_unique<QTableWidgetItem>(QString(40, 'W'));
    table.setItem(1, Title, plain.release()); // the table's
    EXPECT_GE(fitted(Title), laidOut(1));
}

} // namespace tabletest
