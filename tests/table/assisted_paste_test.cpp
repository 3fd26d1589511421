// Pasting with somebody who knows what the rows mean.
#include <QApplication>
#include <QClipboard>

#include "host/mrl_table_paste.h"
#include "tests/table/fixture.h"

namespace tabletest {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QStringList shown(const std::vector<MRL_H_RefusedValue>& refused)
{
    QStringList texts;
    for (const MRL_H_RefusedValue& value : refused) {
        texts << QString("%1/%2 \"%3\": %4").arg(value.row).arg(value.column).arg(value.text, value.reason);
    }
    return texts;
}

class Helper : public MRL_H_PasteHelper
{
  public:
    explicit Helper(MRL_H_TableWidget& table) : m_table(table) {}

    void begin() override { ++begun; }
    std::vector<MRL_H_NewRow> makeRows(const std::vector<QStringList>& lines,
                                       const std::vector<int>& columns) override
    {
        asked = columns;
        std::vector<MRL_H_NewRow> rows;
        for (const QStringList& line : lines) {
            if (line.first() == "no") {
                rows.push_back({-1, "not wanted"});
                continue;
            }
            m_table.appendNewRows(1, MRL_H_TableWidget::CreateCells);
            rows.push_back({m_table.rowCount() - 1, QString()});
        }
        return rows;
    }
    QString understand(int column, QString& text) const override
    {
        if (column == ChoiceId && text == "V") {
            text = "Variable";
        }
        return column == ChoiceId && text == "?" ? "unknown" : QString();
    }
    void end(int count, const std::vector<MRL_H_RefusedValue>& untaken) override
    {
        ++ended;
        values = count;
        refused = shown(untaken);
    }

    int begun = 0;
    int ended = 0;
    int values = 0;
    QStringList refused;
    std::vector<int> asked;

  private:
    MRL_H_TableWidget& m_table;
};

class AssistedPaste : public ::testing::Test
{
  protected:
    AssistedPaste() : table(0, ColumnCount), helper(table)
    {
        addColumns(table);
        table.appendNewRows(2, MRL_H_TableWidget::CreateCells);
        mrl_h_set_paste_helper(table, &helper);
    }
    ~AssistedPaste() override { mrl_h_set_paste_helper(table, nullptr); }

    void paste(int row, int column, const QString& text)
    {
        table.clearSelection();
        table.setCurrentCell(row, column);
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    }
    QString text(int row, int column) const { return table.item(row, column)->text(); }

    MRL_H_TableWidget table;
    Helper helper;
};

} // namespace

TEST_F(AssistedPaste, CountsTheValuesAndTellsNoneWhereAllAreTaken)
{
    paste(0, Title, "wind\tV\t1,5\nsnow\tPermanent\t2\n");
    EXPECT_EQ(text(0, Choice), "Variable");
    EXPECT_EQ(text(0, Factor), "1.50");
    EXPECT_EQ(text(1, Title), "snow");
    EXPECT_EQ(helper.values, 6);
    EXPECT_THAT(helper.refused, IsEmpty());
    EXPECT_EQ(helper.begun, 1);
    EXPECT_EQ(helper.ended, 1);
}

TEST_F(AssistedPaste, TellsEachValueThatIsNotTakenWithItsCellAndReason)
{
    paste(0, Name, "n\twind\t?\tx\t10\t1.5\n");
    EXPECT_EQ(helper.values, 6);
    EXPECT_THAT(helper.refused, ElementsAre("0/102 \"?\": unknown", "0/100 \"n\": The cell can't be changed.",
                                            "0/103 \"x\": \"x\" is no number.",
                                            "0/104 \"10\": 10 is not between 0.00 and 9.00.",
                                            "0/105 \"1.5\": 1.5 is no whole number."));
}

TEST_F(AssistedPaste, AValueThatStandsThereAlreadyIsTaken)
{
    paste(0, Title, "wind\tNone\t1.5\n");
    paste(0, Name, "\twind\tnone\t1.500\n");
    EXPECT_THAT(helper.refused, IsEmpty());
}

TEST_F(AssistedPaste, LinesBeyondTheLastRowBecomeRows)
{
    paste(1, Title, "a\tV\nb\tV\nno\tV\nc\tPermanent\n\t\n");
    ASSERT_EQ(table.rowCount(), 4);
    EXPECT_EQ(text(2, Title), "b");
    EXPECT_EQ(text(3, Title), "c");
    EXPECT_EQ(text(3, Choice), "Permanent");
    EXPECT_THAT(helper.asked, ElementsAre(TitleId, ChoiceId));
    EXPECT_EQ(helper.values, 8);
    EXPECT_THAT(helper.refused, ElementsAre("-1/101 \"no\": not wanted", "-1/102 \"V\": not wanted"));
}

TEST_F(AssistedPaste, FillsAnEmptyTable)
{
    table.setRowCount(0);
    paste(-1, -1, "n\ta\n");
    ASSERT_EQ(table.rowCount(), 1);
    EXPECT_EQ(text(0, Title), "a");
}

TEST_F(AssistedPaste, FieldsBeyondTheLastColumnAreTold)
{
    paste(0, Whole, "5\t6\n");
    EXPECT_EQ(text(0, Whole), "5");
    EXPECT_THAT(helper.refused, ElementsAre("0/-1 \"6\": There is no column for it."));
}

TEST_F(AssistedPaste, AnEmptyTextMeansNothingInAColumnOfNumbers)
{
    paste(0, Factor, "1.5\n");
    paste(0, Choice, "Variable\t\n");
    EXPECT_EQ(text(0, Factor), "1.50");
    EXPECT_EQ(helper.values, 1);
}

TEST_F(AssistedPaste, WithoutAHelperWhatDoesNotFitIsPassedOver)
{
    mrl_h_set_paste_helper(table, nullptr);
    paste(1, Title, "a\nb\n");
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(helper.ended, 0);
}

} // namespace tabletest
