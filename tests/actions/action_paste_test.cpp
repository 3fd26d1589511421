// Lines of a spreadsheet that become actions. The dialog around it is tested in tests/manager.
#include <QApplication>
#include <QClipboard>

#include "actions/action_paste.h"
#include "tests/actions/actions_fixture.h"

namespace mrl::test {

namespace {

/// The tab with somebody who takes part in its pastes, and what he told last.
class PastedActions : public ::testing::Test
{
  protected:
    /// Pastes from the name of the last row on.
    void paste(ActionsTab& tab, const QString& text)
    {
        LCM_ActionPaste help(tab.widget, [this](int, const std::vector<LCM_UntakenValue>& values) {
            reasons.clear();
            for (const LCM_UntakenValue& value : values) {
                reasons << value.text + ": " + value.reason;
            }
        });
        tab.table.setFocus();
        tab.table.clearSelection();
        tab.table.setCurrentCell(tab.table.rowCount() - 1, tab.table.getColumnNumber(ACT_COL_ACTION));
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&tab.table, Qt::Key_V, Qt::ControlModifier);
    }

    ActionsProject project;
    QStringList reasons;
};

} // namespace

TEST_F(PastedActions, TakeFreeActionsOfTheDesignCodeWithCategoriesToo)
{
    ActionsTab tab(project);
    const QString last = tab.names().last();
    paste(tab, last + "\nq_2\nW_1\nU1\n");
    EXPECT_TRUE(tab.names().contains("Q_2"));
    EXPECT_TRUE(tab.names().contains("W_1"));
    EXPECT_TRUE(tab.names().contains("U1"));
    EXPECT_EQ(reasons, QStringList());
    paste(tab, tab.names().last() + "\nQ_2\n");
    EXPECT_EQ(reasons, QStringList("Q_2: Name already used!"));
}

TEST_F(PastedActions, AreThoseOfTheDesignCodeAloneWhereNoOthersAreOffered)
{
    constexpr int WITHOUT_USER_DEFINED = 1;
    ActionsTab tab(project, nullptr, WITHOUT_USER_DEFINED);
    paste(tab, tab.names().last() + "\nU1\nQ_2\n");
    EXPECT_TRUE(tab.names().contains("Q_2"));
    EXPECT_FALSE(tab.names().contains("U1"));
    EXPECT_EQ(reasons, QStringList("U1: The design code has no action U1."));
}

TEST_F(PastedActions, NeedNamesThatAnActionMayBear)
{
    ActionsTab tab(project);
    const int rows = tab.table.rowCount();
    paste(tab, tab.names().last() + "\nABC_D\nY1\n1A\nA B\nQ_12\n_1\n");
    EXPECT_EQ(tab.table.rowCount(), rows);
    EXPECT_EQ(reasons,
              QStringList({"ABC_D: Max. 4 characters!", "Y1: Action beginning with 'Y' is not allowed!",
                           "1A: No digit at beginning!", "A B: Spaces are not allowed!",
                           "Q_12: Max. 1 character for category!", "_1: The line names no action."}));
}

} // namespace mrl::test
