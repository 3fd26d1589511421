#include "table/fixture.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPixmap>
#include <QToolTip>

#include "host/mrl_cell_notes.h"

namespace tabletest {

/// Two rows of the same number; the note on the second one marks it.
class CellNotes : public Table
{
  protected:
    CellNotes()
    {
        addRows(2);
        fill(Factor, {"1.35", "1.35"});
        fill(Title, {"alike", "alike"});
        show();
    }
    ~CellNotes() override { QToolTip::hideText(); }

    void note()
    {
        mrl_h_set_cell_notes(table, [](int row, int column) {
            return column == Factor ? MRL_H_CellNote{QString("note %1").arg(row), row == 1}
                                    : MRL_H_CellNote();
        });
    }
    QString toolTip(int row, int column)
    {
        QToolTip::hideText(); // in its own time
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        const QPoint place = table.visualItemRect(table.item(row, column)).center();
        QHelpEvent event(QEvent::ToolTip, place, table.viewport()->mapToGlobal(place));
        QApplication::sendEvent(table.viewport(), &event);
        return QToolTip::text();
    }
    QImage imageOf(int row, int column)
    {
        return table.viewport()->grab(table.visualItemRect(table.item(row, column))).toImage();
    }
    QString descriptionOf(int row, int column)
    {
        QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&table);
        return view->tableInterface()->cellAt(row, column)->text(QAccessible::Description);
    }
};

TEST_F(CellNotes, AreShownWhereACellHasNoToolTipOfItsOwn)
{
    note();
    cell(0, Factor).setToolTip("its own");
    EXPECT_EQ(toolTip(0, Factor), "its own");
    EXPECT_EQ(toolTip(1, Factor), "note 1");
    EXPECT_EQ(toolTip(1, Title), "");
    EXPECT_EQ(table.item(1, Factor)->toolTip(), "") << "a note is no tool tip of the cell";
}

TEST_F(CellNotes, SlantMarkedCellsAndReadTheirNotesOut)
{
    table.clearSelection();
    table.setCurrentCell(-1, -1);
    EXPECT_EQ(imageOf(0, Factor), imageOf(1, Factor));
    note();
    EXPECT_NE(imageOf(0, Factor), imageOf(1, Factor));
    EXPECT_EQ(imageOf(0, Title), imageOf(1, Title));
    EXPECT_EQ(descriptionOf(0, Factor), "") << "what isn't marked needs no word";
    EXPECT_EQ(descriptionOf(1, Factor), "note 1");
}

TEST_F(CellNotes, OfAFindingGiveWayToItsReason)
{
    note();
    table.setFindingMarks(NameId, Qt::UserRole + 1);
    cell(1, Factor).setForeground(QBrush(Qt::red));
    cell(1, Factor).setToolTip("Too large!");
    EXPECT_EQ(descriptionOf(1, Factor), "Wrong: Too large!");
}

TEST_F(CellNotes, EndWithNull)
{
    note();
    mrl_h_set_cell_notes(table, nullptr);
    EXPECT_EQ(toolTip(1, Factor), "");
    EXPECT_EQ(descriptionOf(1, Factor), "");
}

} // namespace tabletest
