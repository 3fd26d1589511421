#include "table/fixture.h"

namespace tabletest {

TEST(TableHeader, GrowsWithALongerCaptionAndALargerFont)
{
    MRL_H_TableWidget table(0, ColumnCount);
    addColumns(table);
    const int before = table.horizontalHeader()->sizeHint().height();
    table.horizontalHeaderItem(Title)->setText("a caption\nof two lines");
    const int twoLines = table.horizontalHeader()->sizeHint().height();
    EXPECT_GT(twoLines, before);
    table.setColumnHidden(Title, true);
    EXPECT_EQ(table.horizontalHeader()->sizeHint().height(), before);
    table.setColumnHidden(Title, false);
    EXPECT_EQ(table.horizontalHeader()->sizeHint().height(), twoLines);
    QFont font = table.horizontalHeader()->font();
    font.setPointSizeF(2 * font.pointSizeF());
    table.horizontalHeader()->setFont(font);
    EXPECT_GT(table.horizontalHeader()->sizeHint().height(), twoLines);
}

} // namespace tabletest
