#include "table/fixture.h"

#include <QHelpEvent>
#include <QToolTip>

namespace tabletest {

class ToolTips : public Table
{
  protected:
    ToolTips()
    {
        addRows(1);
        show();
    }
    ~ToolTips() override { QToolTip::hideText(); }

    static QString shownAt(QWidget* widget, const QPoint& place)
    {
        QHelpEvent event(QEvent::ToolTip, place, widget->mapToGlobal(place));
        QApplication::sendEvent(widget, &event);
        return QToolTip::text();
    }
    QString ofCell(int column)
    {
        return shownAt(table.viewport(), table.visualItemRect(table.item(0, column)).center());
    }
    QString ofHeader(int column)
    {
        QHeaderView* header = table.horizontalHeader();
        return shownAt(header->viewport(),
                       QPoint(header->sectionViewportPosition(column) + 5, header->height() / 2));
    }
};

TEST_F(ToolTips, ShowPlainTextsAsTheyAre)
{
    cell(0, Title).setToolTip("has to be < 3\nand > 1");
    EXPECT_EQ(ofCell(Title), "has to be < 3\nand > 1");
    EXPECT_EQ(ofHeader(Factor), "Factor");
}

TEST_F(ToolTips, OfNamesThatLookLikeMarkupShowThemAsTheyStand)
{
    cell(0, Title).setToolTip("<img src=\"/tmp/x.png\"><b>dead</b>");
    EXPECT_THAT(ofCell(Title).toStdString(), testing::HasSubstr("&lt;img src="));
    QToolTip::hideText();
    table.horizontalHeaderItem(Factor)->setToolTip("<b>psi</b>");
    EXPECT_THAT(ofHeader(Factor).toStdString(), testing::HasSubstr("&lt;b&gt;psi&lt;/b&gt;"));
}

} // namespace tabletest
