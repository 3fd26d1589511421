// The editor of a factor that may follow the row's action. The headers of the host make plain cells, so the
// tests put such cells into the table themselves.

#include <gmock/gmock.h>

#include "host/mrl_widgets.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

constexpr int OWN = 1;  ///< a load case without an action
constexpr int LIVE = 2; ///< one of Q
constexpr int IMP = 3;  ///< an imperfection
const char* const TEXT = "Use from Action";

class LoadcaseDelegate : public testing::Test
{
  protected:
    LoadcaseDelegate()
    {
        project.putAction(permanent());
        project.putAction(variable());
        tagCDB_LC_CTRL own = standalone();
        own.psi0 = 0.4f;
        project.putLoadCase(OWN, own);
        project.putLoadCase(LIVE, following("Q"));
        project.putLoadCase(IMP, following(70));
        tabs = std::make_unique<Tabs>(project);
        StructLineEdit description;
        description.format = 0; // the editor of a row with an action sets its own
        description.precision = 2;
        header = std::make_unique<MRL_H_TwHeaderLineEditItem>(LC_COL_PSI0, description, "psi", QString(),
                                                              true, true, Qt::AlignLeft);
    }

    /// Puts an editable combo cell into a row.
    MRL_H_TwEditableComboBoxItem* putEditable(int number, int column)
    {
        auto* cell = new MRL_H_TwEditableComboBoxItem(*header); // the table owns its cells
        tabs->table->setItem(tabs->row(number), tabs->table->getColumnNumber(column), cell);
        cell->setVal(3.0f);
        return cell;
    }
    void goTo(int number, int column) { tabs->table->setCurrentItem(tabs->cell(number, column)); }
    /// The editor that the delegate makes for a cell, whatever the current one.
    QWidget* editorOf(int number, int column)
    {
        const QModelIndex index =
            tabs->table->model()->index(tabs->row(number), tabs->table->getColumnNumber(column));
        editor.reset(tabs->table->itemDelegate()->createEditor(tabs->table->viewport(), {}, index));
        return editor.get();
    }
    MRL_QT4_ComboBox* comboOf(int number, int column)
    {
        return qobject_cast<MRL_QT4_ComboBox*>(editorOf(number, column));
    }
    static StrLineEdit& lineOf(MRL_QT4_ComboBox* combo)
    {
        return qobject_cast<MRL_H_LineEdit*>(combo->lineEdit())->getStrLineEdit();
    }

    LoadCaseProject project;
    std::unique_ptr<MRL_H_TwHeaderLineEditItem> header;
    std::unique_ptr<Tabs> tabs;
    std::unique_ptr<QWidget> editor;
};

TEST_F(LoadcaseDelegate, FactorOfARowWithAnActionBecomesUseFromAction)
{
    for (const int number : {LIVE, IMP}) {
        auto* cell = putEditable(number, LC_COL_PSI0);
        ASSERT_EQ(cell->getCurrentId(), 0);
        goTo(number, LC_COL_PSI0);
        auto* combo = comboOf(number, LC_COL_PSI0);
        ASSERT_NE(combo, nullptr);
        EXPECT_EQ(combo->currentText(), TEXT);
        EXPECT_EQ(lineOf(combo).format, -3);
        EXPECT_EQ(lineOf(combo).text, TEXT);
        EXPECT_EQ(lineOf(combo).value, -99999.0);
        EXPECT_EQ(qobject_cast<MRL_H_LineEdit*>(combo->lineEdit())->getVal(), -99999.0);
        EXPECT_EQ(cell->getCurrentId(), -1) << "the cell has no value of its own any more";
        EXPECT_EQ(tabs->value(number, LC_COL_PSI0), LC_UNDEFINED);
    }
}

TEST_F(LoadcaseDelegate, FactorOfARowWithoutAnActionOffersNothingButTheNumber)
{
    auto* cell = putEditable(OWN, LC_COL_PSI0);
    goTo(OWN, LC_COL_PSI0);
    auto* combo = comboOf(OWN, LC_COL_PSI0);
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(lineOf(combo).thirdBound, 0.0);
    EXPECT_EQ(lineOf(combo).format, 0) << "the column's own";
    EXPECT_EQ(combo->count(), 0);
    EXPECT_NE(combo->currentText(), TEXT);
    EXPECT_EQ(cell->getCurrentId(), 0);
    EXPECT_EQ(tabs->value(OWN, LC_COL_PSI0), 3.0f);
}

TEST_F(LoadcaseDelegate, CurrentRowSaysWhichActionCounts)
{
    auto* cell = putEditable(LIVE, LC_COL_PSI0);
    goTo(OWN, LC_COL_PSI0);
    EXPECT_EQ(lineOf(comboOf(LIVE, LC_COL_PSI0)).thirdBound, 0.0);
    EXPECT_EQ(cell->getCurrentId(), 0);

    putEditable(OWN, LC_COL_PSI0);
    goTo(LIVE, LC_COL_PSI0);
    EXPECT_EQ(comboOf(OWN, LC_COL_PSI0)->currentText(), TEXT);
    EXPECT_EQ(cell->getCurrentId(), -1);
    EXPECT_EQ(tabs->value(OWN, LC_COL_PSI0), 3.0f) << "only the current cell takes the text";
}

TEST_F(LoadcaseDelegate, RowWithoutAnActionCellCountsAsOneWithAnAction)
{
    putEditable(OWN, LC_COL_PSI0);
    goTo(OWN, LC_COL_PSI0);
    delete tabs->table->takeItem(tabs->row(OWN), tabs->table->getColumnNumber(LC_COL_ACTION));
    EXPECT_EQ(comboOf(OWN, LC_COL_PSI0)->currentText(), TEXT);
}

TEST_F(LoadcaseDelegate, PlainCellsAndOtherColumnsKeepTheirEditors)
{
    goTo(LIVE, LC_COL_PSI0);
    EXPECT_NE(qobject_cast<MRL_H_LineEdit*>(editorOf(LIVE, LC_COL_PSI0)), nullptr);
    EXPECT_EQ(tabs->value(LIVE, LC_COL_PSI0), 0.7f);

    for (const int column : {LC_COL_DEADFACTOR, LC_COL_DLX}) {
        auto* cell = putEditable(LIVE, column);
        goTo(LIVE, column);
        EXPECT_NE(comboOf(LIVE, column)->currentText(), TEXT) << column;
        EXPECT_EQ(cell->getCurrentId(), 0) << column;
    }
}

TEST_F(LoadcaseDelegate, EveryFactorColumnOffersIt)
{
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        putEditable(LIVE, column);
        goTo(LIVE, column);
        EXPECT_EQ(comboOf(LIVE, column)->currentText(), TEXT) << column;
    }
}

TEST_F(LoadcaseDelegate, UndefinedOwnFactorIsFilledInAsFollowingAndShowsNothing)
{
    auto* cell = putEditable(OWN, LC_COL_PSI0);
    LCM_LoadcaseEntry entry;
    entry.number = OWN;
    entry.record = standalone();
    entry.record.psi0 = LC_UNDEFINED;
    tabs->lc->fillRow(tabs->row(OWN), entry);
    EXPECT_EQ(cell->getCurrentId(), -1);
    EXPECT_EQ(cell->text(), "") << "there is no action whose factor it could show";
    EXPECT_EQ(bits(tabs->read(OWN).record.psi0), bits(LC_UNDEFINED));
}

TEST_F(LoadcaseDelegate, OpeningTheEditorWithAKeyGivesUpTheOwnValueAndReturnKeepsIt)
{
    putEditable(LIVE, LC_COL_PSI0);
    tabs->show();
    goTo(LIVE, LC_COL_PSI0);
    QTest::keyClick(tabs->table, Qt::Key_F2);
    auto* combo = tabs->table->viewport()->findChild<MRL_QT4_ComboBox*>();
    ASSERT_NE(combo, nullptr);
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(tabs->value(LIVE, LC_COL_PSI0), LC_UNDEFINED);
    EXPECT_EQ(tabs->read(LIVE).record.action, codeOf("Q"));
}

TEST_F(LoadcaseDelegate, NumberTypedOverAFactorWithoutAnActionIsItsOwn)
{
    putEditable(OWN, LC_COL_PSI0);
    tabs->show();
    goTo(OWN, LC_COL_PSI0);
    QTest::keyClick(tabs->table, Qt::Key_F2);
    auto* combo = tabs->table->viewport()->findChild<MRL_QT4_ComboBox*>();
    ASSERT_NE(combo, nullptr);
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), "2");
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(tabs->value(OWN, LC_COL_PSI0), 2.0f);
}

} // namespace
