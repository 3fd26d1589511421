#include "table/fixture.h"

#include <QAccessible>
#include <QPixmap>

#include "hostlib/ui/table/finding_marks.h"

namespace tabletest {

using mrl::table::contrast;
using mrl::table::readableOn;

constexpr int VERDICT = 357;

/// Two rows; the factor of the second one is a finding.
class FindingMarks : public Table
{
  protected:
    FindingMarks()
    {
        addRows(2);
        fill(Factor, {"1.35", "1.36"});
        cell(0, Name).setData(VERDICT, true);
        cell(1, Name).setData(VERDICT, false);
        cell(1, Factor).setForeground(QBrush(Qt::red));
        cell(1, Factor).setToolTip("Too large!");
    }
    ~FindingMarks() override { QApplication::setPalette(QPalette()); }

    QImage imageOf(int row)
    {
        return table.viewport()->grab(table.visualItemRect(table.item(row, Factor))).toImage();
    }
    QImage imageOfRowHeader(int row)
    {
        QHeaderView* header = table.verticalHeader();
        return header->viewport()
            ->grab(QRect(0, header->sectionViewportPosition(row), header->width(), header->sectionSize(row)))
            .toImage();
    }
    QString descriptionOf(int row)
    {
        QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&table);
        QAccessibleInterface* item = view->tableInterface()->cellAt(row, Factor);
        return item->text(QAccessible::Description);
    }
    void setDarkPalette()
    {
        QPalette dark;
        dark.setColor(QPalette::Base, QColor(0x23, 0x26, 0x29));
        dark.setColor(QPalette::Button, QColor(0x31, 0x36, 0x3b));
        dark.setColor(QPalette::Text, Qt::white);
        QApplication::setPalette(dark);
        table.setPalette(dark);
    }
};

// Worked by hand from the definition: white has the luminance 1, black 0, so (1 + 0.05) / (0 + 0.05) = 21; red has
// 0.2126, so 1.05 / 0.2626 = 3.998.
TEST(Contrast, IsThatOfTheGuidelines)
{
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::black), 21.0);
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::black), 1.0);
    EXPECT_NEAR(contrast(Qt::red, Qt::white), 3.998, 0.001);
}

TEST(Contrast, ReadableColoursHaveEnoughOnAnyBackground)
{
    for (int red = 0; red < 256; red += 15) {
        for (int green = 0; green < 256; green += 15) {
            for (int blue = 0; blue < 256; blue += 15) {
                const QColor background(red, green, blue);
                EXPECT_GE(contrast(readableOn(background, Qt::red), background), 4.5)
                    << background.name().toStdString();
            }
        }
    }
    EXPECT_EQ(readableOn(Qt::black, Qt::red), QColor(Qt::red)); // 5.25 already
}

TEST_F(FindingMarks, AreOffByDefault)
{
    show();
    const QImage header = imageOfRowHeader(1);
    const QImage wrong = imageOf(1);
    EXPECT_EQ(descriptionOf(1), "");
    table.setFindingMarks(NameId, VERDICT);
    table.setFindingMarks(-1, VERDICT);
    EXPECT_EQ(imageOfRowHeader(1), header);
    EXPECT_EQ(imageOf(1), wrong);
    EXPECT_EQ(descriptionOf(1), "");
}

TEST_F(FindingMarks, StandInTheCellAndAtTheNumberOfItsRow)
{
    show();
    const QImage before = imageOf(1);
    table.setFindingMarks(NameId, VERDICT);
    EXPECT_EQ(imageOf(1).pixelColor(1, 1), readableOn(table.palette().color(QPalette::Base), Qt::red));
    EXPECT_NE(before.pixelColor(1, 1), imageOf(1).pixelColor(1, 1));
    const QColor button = table.verticalHeader()->palette().color(QPalette::Button);
    EXPECT_EQ(imageOfRowHeader(1).pixelColor(1, 1), readableOn(button, Qt::red));
    EXPECT_NE(imageOfRowHeader(0).pixelColor(1, 1), readableOn(button, Qt::red));
    EXPECT_NE(imageOf(0).pixelColor(1, 1), imageOf(1).pixelColor(1, 1));
}

TEST_F(FindingMarks, CanBeReadOnADarkDesktop)
{
    setDarkPalette();
    show();
    table.setFindingMarks(NameId, VERDICT);
    const QColor mark = imageOf(1).pixelColor(1, 1);
    EXPECT_GE(contrast(mark, QColor(0x23, 0x26, 0x29)), 4.5);
    const QColor atNumber = imageOfRowHeader(1).pixelColor(1, 1);
    EXPECT_GE(contrast(atNumber, QColor(0x31, 0x36, 0x3b)), 4.5);
}

TEST_F(FindingMarks, GoWhenTheRowIsValidAgain)
{
    show();
    table.setFindingMarks(NameId, VERDICT);
    const QImage marked = imageOf(1);
    cell(1, Factor).setForeground(QBrush(Qt::black));
    cell(1, Name).setData(VERDICT, true);
    EXPECT_NE(imageOf(1), marked);
    EXPECT_EQ(imageOfRowHeader(1).pixelColor(1, 1), imageOfRowHeader(0).pixelColor(1, 1));
}

TEST_F(FindingMarks, TellTheReasonToAssistiveTechnology)
{
    table.setFindingMarks(NameId, VERDICT);
    EXPECT_EQ(descriptionOf(0), "");
    EXPECT_EQ(descriptionOf(1), "Wrong: Too large!");
}

} // namespace tabletest
