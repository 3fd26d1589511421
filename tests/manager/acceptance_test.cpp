// Accepting and rejecting the dialog: what is checked, what is written, what the caller gets back.
#include "actions/table_helpers.h"
#include "tests/manager/manager_fixture.h"

namespace mrl::test {

namespace {

LCM_LoadcaseCopy aCopy() { return {7, 8, 1.5}; }

bool operator==(const LCM_LoadcaseCopy& a, const LCM_LoadcaseCopy& b)
{
    return a.source == b.source && a.target == b.target && a.factor == b.factor; // NOLINT: handed on as it is
}

} // namespace

TEST_F(ManagerTest, RejectionWritesNothingAndGivesEverythingBackAsItWas)
{
    const auto before = project.fingerprint();
    MRL_LC_CtrlStruct control;
    control.version = 5;
    control.mode = 0;
    control.loadCases = {2};
    control.actions = {4711};
    control.copies = {aCopy()};
    const int result = run(control, [](QWidget* dialog) {
        selectRows(loadCaseTab(dialog)->tableWidget(), LC_COL_NUMBER, {"1", "3"});
        tabsOf(dialog)->setCurrentIndex(0);
        auto* table = actionsTab(dialog)->tableWidget();
        typeInto(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_GAMU, "1.4");
        pressCancel(dialog);
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_EQ(control.version, 5);
    EXPECT_EQ(control.mode, 0);
    EXPECT_EQ(control.loadCases, std::set<int>{2});
    EXPECT_EQ(control.actions, std::set<int>{4711});
    EXPECT_EQ(control.copies.size(), 1u);
}

TEST_F(ManagerTest, AcceptanceWritesBothTabsAndReportsTheSelections)
{
    MRL_LC_CtrlStruct control;
    const int result = run(control, [](QWidget* dialog) {
        auto* actions = actionsTab(dialog)->tableWidget();
        typeInto(actions, rowOf(actions, ACT_COL_ACTION, "Q"), ACT_COL_GAMU, "1.4");
        selectRows(actions, ACT_COL_ACTION, {"Q"});
        tabsOf(dialog)->setCurrentIndex(1);
        auto* loadcases = loadCaseTab(dialog)->tableWidget();
        typeInto(loadcases, rowOf(loadcases, LC_COL_NUMBER, "2"), LC_COL_TITLE, "Storage");
        selectRows(loadcases, LC_COL_NUMBER, {"1", "3"});
        pressOk(dialog);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(control.mode, 0) << "the load-case tab was in front";
    EXPECT_EQ(control.loadCases, (std::set<int>{1, 3}));
    EXPECT_EQ(control.actions, std::set<int>{codeOf("Q")});
    EXPECT_FLOAT_EQ(project.storedAction("Q").gamu, 1.4f);
    EXPECT_EQ(lcm_title_text(project.storedLoadCase(2).title), QStringLiteral("Storage"));
}

TEST_F(ManagerTest, AcceptanceReportsTheActionsTabAsCurrent)
{
    MRL_LC_CtrlStruct control;
    control.mode = 0;
    run(control, [](QWidget* dialog) {
        tabsOf(dialog)->setCurrentIndex(0);
        pressOk(dialog);
    });
    EXPECT_EQ(control.mode, 1);
}

TEST_F(ManagerTest, ActionsAloneLeaveLoadCasesAndCopiesOfTheCallerAlone)
{
    MRL_LC_CtrlStruct control;
    control.singleTab = true;
    control.loadCases = {5};
    control.copies = {aCopy()};
    EXPECT_EQ(run(control, [](QWidget* dialog) { pressOk(dialog); }), 1);
    EXPECT_EQ(control.loadCases, std::set<int>{5});
    ASSERT_EQ(control.copies.size(), 1u);
    EXPECT_TRUE(control.copies[0] == aCopy());
    EXPECT_EQ(control.mode, 1);
}

TEST_F(ManagerTest, LoadCasesAloneLeaveTheActionsOfTheCallerAlone)
{
    MRL_LC_CtrlStruct control;
    control.singleTab = true;
    control.mode = 0;
    control.actions = {4711};
    control.copies = {aCopy()};
    EXPECT_EQ(run(control, [](QWidget* dialog) { pressOk(dialog); }), 1);
    EXPECT_EQ(control.actions, std::set<int>{4711});
    EXPECT_TRUE(control.copies.empty()) << "replaced by those of this dialog";
}

TEST_F(ManagerTest, WithoutStoredActionsOkStoresTheDefaultOnes)
{
    mrl_cdb_del(db, LC_KWH_ACTIONS, codeOf("G"));
    mrl_cdb_del(db, LC_KWH_ACTIONS, codeOf("Q"));
    MRL_LC_CtrlStruct control;
    EXPECT_EQ(run(control, [](QWidget* dialog) { pressOk(dialog); }), 1);
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("G")));
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("Q")));
}

class ExactlyOne : public ManagerTest, public ::testing::WithParamInterface<QStringList>
{
};

TEST_P(ExactlyOne, SelectedLoadCaseIsAskedForAndTheDialogStaysOpen)
{
    const auto before = project.fingerprint();
    MRL_LC_CtrlStruct control;
    control.options = 1;
    control.loadCases = {2};
    const int result = run(control, [&](QWidget* dialog) {
        selectRows(actionsTab(dialog)->tableWidget(), ACT_COL_ACTION, {"G"});
        selectRows(loadCaseTab(dialog)->tableWidget(), LC_COL_NUMBER, GetParam());
        answers.click("OK");
        pressOk(dialog);
        EXPECT_TRUE(dialog->isVisible());
        pressCancel(dialog);
    });
    EXPECT_EQ(result, 0);
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(box(0).title, QStringLiteral("Error!"));
    EXPECT_EQ(box(0).text, QStringLiteral("Please select exactly one loadcase!"));
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_EQ(control.loadCases, std::set<int>{2}) << "stays as it was";
    EXPECT_EQ(control.actions, std::set<int>{codeOf("G")}) << "is taken even by a refused acceptance";
}

INSTANTIATE_TEST_SUITE_P(WrongNumbers, ExactlyOne,
                         ::testing::Values(QStringList{}, QStringList{"1", "3"}, QStringList{"1", "2", "3"}));

TEST_F(ManagerTest, ExactlyOneSelectedLoadCaseIsAccepted)
{
    MRL_LC_CtrlStruct control;
    control.options = 1;
    const int result = run(control, [](QWidget* dialog) {
        selectRows(loadCaseTab(dialog)->tableWidget(), LC_COL_NUMBER, {"3"});
        pressOk(dialog);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(control.loadCases, std::set<int>{3});
}

TEST_F(ManagerTest, OtherBitsOfTheOptionsAskForNothing)
{
    MRL_LC_CtrlStruct control;
    control.options = ~1;
    const int result = run(control, [](QWidget* dialog) {
        selectRows(loadCaseTab(dialog)->tableWidget(), LC_COL_NUMBER, {"1", "2"});
        pressOk(dialog);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(control.loadCases, (std::set<int>{1, 2}));
}

TEST_F(ManagerTest, InvalidActionKeepsTheDialogOpenOnItsTab)
{
    const auto before = project.fingerprint();
    MRL_LC_CtrlStruct control;
    control.mode = 0;
    const int result = run(control, [this](QWidget* dialog) {
        auto* table = actionsTab(dialog)->tableWidget();
        tabsOf(dialog)->setCurrentIndex(0);
        // Gamf above Gamu.
        typeInto(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_GAMF, "9");
        tabsOf(dialog)->setCurrentIndex(1);
        answers.click("OK");
        pressOk(dialog);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(tabsOf(dialog)->currentIndex(), 0);
        pressCancel(dialog);
    });
    EXPECT_EQ(result, 0);
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(box(0).title, QStringLiteral("Invalid input"));
    EXPECT_EQ(box(0).text, QStringLiteral("The input is invalid, please check your input!"));
    EXPECT_EQ(box(0).buttons, QStringList{QStringLiteral("OK")});
    EXPECT_EQ(project.fingerprint(), before);
}

TEST_F(ManagerTest, InvalidLoadCaseKeepsTheDialogOpenOnItsTab)
{
    // Its action is none of the project's.
    project.putLoadCase(4, bareLoadCase(QStringLiteral("XXXX")));
    MRL_LC_CtrlStruct control;
    const int result = run(control, [this](QWidget* dialog) {
        answers.click("OK");
        pressOk(dialog);
        EXPECT_EQ(tabsOf(dialog)->currentWidget(), loadCaseTab(dialog));
        pressCancel(dialog);
    });
    EXPECT_EQ(result, 0);
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(box(0).title, QStringLiteral("Invalid input"));
}

TEST_F(ManagerTest, InvalidRowFarDownIsSelectedAndInSight)
{
    for (int number = 11; number <= 300; ++number) {
        project.putLoadCase(number, bareLoadCase(QStringLiteral("G")));
    }
    project.putLoadCase(222, bareLoadCase(QStringLiteral("XXXX")));
    MRL_LC_CtrlStruct control;
    control.mode = 0;
    run(control, [this](QWidget* dialog) {
        auto* table = loadCaseTab(dialog)->tableWidget();
        const int row = rowOf(table, LC_COL_NUMBER, "222");
        EXPECT_FALSE(table->viewport()->rect().intersects(table->visualItemRect(table->item(row, 0))));
        answers.click("OK");
        pressOk(dialog);
        EXPECT_TRUE(table->viewport()->rect().contains(table->visualItemRect(table->item(row, 0)).center()));
        EXPECT_EQ(getSelectedRows(table), std::set<int>{row});
        pressCancel(dialog);
    });
}

TEST_F(ManagerTest, CorrectedInputIsAccepted)
{
    MRL_LC_CtrlStruct control;
    const int result = run(control, [this](QWidget* dialog) {
        auto* table = actionsTab(dialog)->tableWidget();
        typeInto(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_GAMF, "9");
        answers.click("OK");
        pressOk(dialog);
        typeInto(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_GAMF, "0.5");
        pressOk(dialog);
    });
    EXPECT_EQ(result, 1);
    EXPECT_FLOAT_EQ(project.storedAction("Q").gamf, 0.5f);
}

TEST_F(ManagerTest, FailedSaveGivesModeAndCopiesBackAndKeepsTheInput)
{
    project.put(LC_KWH_ACTIONS, 17,
                soundAction(QStringLiteral("SUP")).record()); // superposition data: a notice comes
    const auto before = project.fingerprint();
    std::unique_ptr<cdb::WriteLockPause> noWrites;
    MRL_LC_CtrlStruct control;
    control.copies = {aCopy()};
    const int result = run(control, [&](QWidget* dialog) {
        auto* table = actionsTab(dialog)->tableWidget();
        typeInto(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_GAMU, "1.4");
        tabsOf(dialog)->setCurrentIndex(1); // would be reported as mode 0
        // While the notice is up the database stops taking writes, so the rest of the save fails.
        answers.then([&](QWidget* notice) {
            noWrites = std::make_unique<cdb::WriteLockPause>();
            press(notice, QStringLiteral("OK"));
        });
        answers.then([&](QWidget* failure) {
            noWrites.reset();
            press(failure, QStringLiteral("OK"));
        });
        pressOk(dialog);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(table->itemOnColId(rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_GAMU)->text(),
                  QStringLiteral("1.40"));
        EXPECT_EQ(project.fingerprint(), before);
        pressCancel(dialog);
    });
    EXPECT_EQ(result, 0);
    ASSERT_EQ(answers.boxes().size(), 2u);
    EXPECT_EQ(box(0).title, QStringLiteral("Action modified"));
    EXPECT_EQ(box(1).title, QStringLiteral("Not saved"));
    EXPECT_EQ(control.mode, 1);
    ASSERT_EQ(control.copies.size(), 1u);
    EXPECT_TRUE(control.copies[0] == aCopy());
}

TEST_F(ManagerTest, DeletingUnusedLoadCasesEndsTheDialogWithoutCheckOrSave)
{
    const auto before = project.fingerprint();
    MRL_LC_CtrlStruct control;
    control.options = 1; // would refuse an acceptance: nothing is selected
    const int result = run(control, [](QWidget* dialog) {
        auto* table = actionsTab(dialog)->tableWidget();
        typeInto(table, rowOf(table, ACT_COL_ACTION, "Q"), ACT_COL_GAMF, "9");
        emit loadCaseTab(dialog)->signal_deleteUnusedLoadcases();
    });
    EXPECT_EQ(result, 40021);
    EXPECT_EQ(result, MRL_LC_DELETE_UNUSED);
    EXPECT_EQ(project.fingerprint(), before);
    EXPECT_EQ(control.mode, 1);
}

} // namespace mrl::test
