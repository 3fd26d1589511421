#include "tests/actions/actions_fixture.h"

#include <QLineEdit>
#include <QRadioButton>

#include <cstring>

using mrl::test::ActionBuilder;
using mrl::test::ActionsProject;
using mrl::test::ActionsTab;
using mrl::test::codeOf;
using mrl::test::FakeLoadcaseTab;
using mrl::test::ModalAnswers;
using mrl::test::soundAction;

namespace {

const char* const QUESTION =
    "One or more actions are in use. Do you want to delete the selected actions and all "
    "assigned loadcases?\n\nThe actions are:\n";

class Commands : public ::testing::Test
{
  protected:
    Commands()
    {
        project.putAction(soundAction("A").gamu(1.0f));
        project.putAction(soundAction("G").gamu(1.35f).title("Permanent"));
        project.putAction(soundAction("Q").gamu(1.5f));
        project.putAction(soundAction("U1").gamu(1.2f).title("Crane"));
    }

    const LCM_ActionEntry* entry(const ActionsTab& tab, const QString& name) const
    {
        for (const LCM_ActionEntry* parent : tab.widget.workingModel()->actions) {
            if (parent->code == codeOf(name)) {
                return parent;
            }
        }
        return nullptr;
    }

    ActionsProject project;
};

void clickRadio(QWidget* dialog, int way)
{
    QRadioButton* radio = dialog->findChildren<QRadioButton*>().at(way);
    QTest::mouseClick(radio, Qt::LeftButton, {}, QPoint(8, radio->height() / 2));
}

/// Types a name of the user's own into the new-action dialog and presses Enter.
void typeNewAction(QWidget* dialog, const QString& name, const QString& title)
{
    clickRadio(dialog, 1);
    QTest::keyClicks(dialog->findChild<QLineEdit*>("line_user_action"), name);
    auto* description = dialog->findChild<QLineEdit*>("line_user_desc");
    QTest::keyClicks(description, title);
    QTest::keyClick(description, Qt::Key_Return);
}

} // namespace

class AddedAction : public Commands
{
  protected:
    ~AddedAction() override { wantExtras(0); }
    static void wantExtras(int wanted)
    {
        qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
            ->setAppSettings("LF_Manager", "extras", wanted);
    }
    /// Adds an action that sorts behind a hundred others.
    void addLast(ActionsTab& tab)
    {
        tab.selectRows({"A"});
        tab.table.scrollToTop();
        ModalAnswers answers;
        answers.then([](QWidget* dialog) { typeNewAction(dialog, "z1", "Last"); });
        tab.press("button_new");
    }
    void storeHundred() const
    {
        for (int i = 100; i < 200; ++i) {
            project.putAction(soundAction("U" + QString::number(i)).gamu(1.0f));
        }
    }
    static bool isInSight(const ActionsTab& tab, const QString& name)
    {
        const QRect cell = tab.table.visualItemRect(tab.cell(name, ACT_COL_ACTION));
        return tab.table.viewport()->rect().contains(cell);
    }
};

TEST_F(AddedAction, IsScrolledIntoSightAndTheSelectionStays)
{
    storeHundred();
    ActionsTab tab(project);
    addLast(tab);
    ASSERT_EQ(tab.rowOf("Z1"), tab.table.rowCount() - 1);
    EXPECT_TRUE(isInSight(tab, "Z1"));
    std::set<int> selected;
    tab.widget.getSelectedActionCodes(selected);
    EXPECT_EQ(selected, std::set<int>{codeOf("A")}) << "it goes back to the caller of the dialog";
}

TEST_F(AddedAction, IsSelectedIfTheHostWantsIt)
{
    wantExtras(1);
    ActionsTab tab(project);
    addLast(tab);
    std::set<int> selected;
    tab.widget.getSelectedActionCodes(selected);
    EXPECT_EQ(selected, std::set<int>{codeOf("Z1")});
}

TEST_F(AddedAction, NamedLikeAFreeOneOfTheDesignCodeShowsTheSameAfterReopening)
{
    mrl_cdb_del(project.db(), LC_KWH_ACTIONS, codeOf("A"));
    tagCDB_LC_ACT saved{};
    {
        ActionsTab tab(project);
        ModalAnswers answers;
        answers.then([](QWidget* dialog) { typeNewAction(dialog, "a", "My own"); });
        tab.press("button_new");
        tab.enter("A", ACT_COL_GAMU, "1.2");
        ASSERT_TRUE(tab.isRowValid("A"));
        saved = tab.record("A");
        tab.widget.save(true);
    }
    ActionsTab reopened(project);
    const tagCDB_LC_ACT shown = reopened.record("A");
    EXPECT_EQ(std::memcmp(&shown, &saved, sizeof shown), 0);
    EXPECT_EQ(reopened.text("A", ACT_COL_DESCRIPTION), "My own");
    EXPECT_TRUE(reopened.isRowValid("A"));
}

TEST_F(AddedAction, NamedLikeAFreeOneOfTheDesignCodeIsGoneWhenItIsDeletedBeforeOk)
{
    mrl_cdb_del(project.db(), LC_KWH_ACTIONS, codeOf("A"));
    ActionsTab tab(project);
    ModalAnswers answers;
    answers.then([](QWidget* dialog) { typeNewAction(dialog, "a", "My own"); });
    tab.press("button_new");
    tab.selectRows({"A"});
    tab.press("button_delete");
    tab.widget.save(true);
    EXPECT_EQ(project.storedActions().count("A   "), 0u);
}

TEST_F(Commands, NewOwnActionGetsARowThatIsRedAtOnce)
{
    ActionsTab tab(project);
    QSignalSpy added(&tab.widget, SIGNAL(signal_newAction()));
    QSignalSpy count(&tab.widget, SIGNAL(signal_actionCountChanged()));
    ModalAnswers answers;
    answers.then([](QWidget* dialog) { typeNewAction(dialog, "c1", "Lift"); });
    tab.press("button_new");
    EXPECT_EQ(tab.names(), QStringList({"A", "C1", "G", "Q", "U1"}));
    EXPECT_EQ(tab.text("C1", ACT_COL_DESCRIPTION), QStringLiteral("Lift"));
    EXPECT_EQ(tab.text("C1", ACT_COL_SUPERPOSITION), QStringLiteral("EXCL exclusive within category"));
    EXPECT_TRUE(tab.isRed("C1", ACT_COL_GAMU));
    EXPECT_FALSE(tab.widget.isValid());
    EXPECT_EQ(added.count(), 1);
    EXPECT_EQ(count.count(), 1);
    ASSERT_NE(entry(tab, "C1"), nullptr);
    EXPECT_TRUE(entry(tab, "C1")->userDefined);
    EXPECT_TRUE(tab.widget.isModified());
}

TEST_F(Commands, NewPredefinedActionComesWithTheFactorsOfTheCode)
{
    ActionsTab tab(project);
    ModalAnswers answers;
    answers.key(Qt::Key_Return); // the first offered: the placeholder W has two categories, Q_1 comes under Q
    tab.press("button_new");
    ASSERT_GE(tab.rowOf("Q_1"), 0);
    EXPECT_EQ(tab.text("Q_1", ACT_COL_DESCRIPTION), QStringLiteral("Offices"));
    EXPECT_EQ(tab.record("Q_1").psi1s, 0.6f);
    EXPECT_TRUE(tab.isRowValid("Q_1"));
    EXPECT_EQ(entry(tab, "Q")->subActions[0]->state, LCM_STATE_ACTIVE);
}

TEST_F(Commands, NewStandsLastUntilTheReceiversAreDone)
{
    ActionsTab tab(project);
    QString last;
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_actionCountChanged, &tab.widget,
                     [&] { last = tab.names().last(); });
    ModalAnswers answers;
    answers.then([](QWidget* dialog) { typeNewAction(dialog, "B", QString()); });
    tab.press("button_new");
    EXPECT_EQ(last, QStringLiteral("B"));
    EXPECT_EQ(tab.rowOf("B"), 1);
}

TEST_F(Commands, NewActionIsToldRightBeforeTheCount)
{
    ActionsTab tab(project);
    QStringList told;
    const auto note = [&told](const char* signal) { return [&told, signal] { told << signal; }; };
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_newAction, &tab.widget, note("new"));
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_actionCountChanged, &tab.widget, note("count"));
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_actionValuesChanged, &tab.widget,
                     note("values"));
    ModalAnswers answers;
    answers.then([](QWidget* dialog) { typeNewAction(dialog, "B", QString()); });
    tab.press("button_new");
    EXPECT_EQ(told, QStringList({"new", "count"}));
    tab.widget.slot_addAllClicked();
    EXPECT_EQ(told, QStringList({"new", "count", "new", "count"}));
    tab.widget.slot_reInitAllActions(); // cells that the program writes are no edits
    EXPECT_EQ(told.size(), 4);
}

TEST_F(Commands, RefusedNewStillCountsAsAModification)
{
    ActionsTab tab(project);
    QSignalSpy count(&tab.widget, SIGNAL(signal_actionCountChanged()));
    ModalAnswers answers;
    answers.key(Qt::Key_Escape);
    tab.press("button_new");
    EXPECT_EQ(tab.table.rowCount(), 4);
    EXPECT_EQ(count.count(), 0);
    EXPECT_TRUE(tab.widget.isModified());
    EXPECT_TRUE(tab.table.isSortingEnabled());
}

TEST_F(Commands, NamesOfTheRowsAreTaken)
{
    ActionsTab tab(project);
    ModalAnswers answers;
    answers.then([](QWidget* dialog) {
        typeNewAction(dialog, "U1", QString());
        EXPECT_TRUE(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    tab.press("button_new");
    EXPECT_EQ(tab.table.rowCount(), 4);
}

TEST_F(Commands, NameCanBeEmptiedBesideARowWithoutAName)
{
    ActionsTab tab(project);
    ModalAnswers answers;
    const auto emptied = [](QWidget* dialog) {
        clickRadio(dialog, 1);
        auto* name = dialog->findChild<QLineEdit*>("line_user_action");
        QTest::keyClicks(name, "Z");
        QTest::keyClick(name, Qt::Key_Backspace);
        QTest::keyClick(name, Qt::Key_Return);
    };
    answers.then(emptied);
    tab.press("button_new");
    ASSERT_EQ(tab.names(), QStringList({"", "A", "G", "Q", "U1"}));
    answers.then(emptied);
    tab.press("button_new");
    EXPECT_EQ(tab.names(), QStringList({"", "", "A", "G", "Q", "U1"}));
}

TEST_F(Commands, EmptyAndReservedNamesCanComeAboutOnTheirPaths)
{
    ActionsTab tab(project);
    ModalAnswers answers;
    answers.then([](QWidget* dialog) { // emptied again, OK stays enabled
        clickRadio(dialog, 1);
        auto* name = dialog->findChild<QLineEdit*>("line_user_action");
        QTest::keyClicks(name, "Z");
        QTest::keyClick(name, Qt::Key_Backspace);
        QTest::keyClick(name, Qt::Key_Return);
    });
    tab.press("button_new");
    answers.then([](QWidget* dialog) { // refused, then the two ways clicked in turn
        clickRadio(dialog, 1);
        auto* name = dialog->findChild<QLineEdit*>("line_user_action");
        QTest::keyClicks(name, "Y1");
        clickRadio(dialog, 0);
        clickRadio(dialog, 1);
        QTest::keyClick(name, Qt::Key_Return);
    });
    tab.press("button_new");
    EXPECT_EQ(tab.names(), QStringList({"", "A", "G", "Q", "U1", "Y1"}));
    tab.widget.save(true);
    EXPECT_EQ(project.storedActions().count("    "), 1u);
    EXPECT_EQ(project.storedActions().count("Y1  "), 1u);
    ActionsTab again(project);
    EXPECT_EQ(again.names(), QStringList({"A", "G", "Q", "U1"})); // neither key is ever loaded again
}

TEST_F(Commands, AddAllActivatesWhatIsFreeAndSparesPlaceholders)
{
    ActionsTab tab(project);
    QSignalSpy added(&tab.widget, SIGNAL(signal_newAction()));
    QSignalSpy count(&tab.widget, SIGNAL(signal_actionCountChanged()));
    tab.widget.slot_addAllClicked();
    EXPECT_EQ(tab.names(), QStringList({"A", "G", "Q", "Q_1", "Q_2", "U1", "W_1", "W_2"}));
    EXPECT_EQ(entry(tab, "W")->state, LCM_STATE_PLACEHOLDER);
    EXPECT_FALSE(tab.widget.isModified());
    EXPECT_EQ(added.count(), 1);
    EXPECT_EQ(count.count(), 1);
    tab.widget.slot_addAllClicked();
    EXPECT_EQ(tab.table.rowCount(), 8);
    EXPECT_EQ(added.count(), 2);
    EXPECT_EQ(count.count(), 2);
}

TEST_F(Commands, DeleteKeyDeletesTheSelectedActions)
{
    ActionsTab tab(project);
    QSignalSpy count(&tab.widget, SIGNAL(signal_actionCountChanged()));
    QSignalSpy deleted(&tab.widget, SIGNAL(signal_deleteAction()));
    tab.clickCell("G", ACT_COL_GAMU);
    tab.clickCell("Q", ACT_COL_GAMU, Qt::ControlModifier);
    QTest::keyClick(&tab.table, Qt::Key_Delete);
    EXPECT_EQ(tab.names(), QStringList({"A", "U1"}));
    EXPECT_EQ(entry(tab, "G")->state, LCM_STATE_FREE);
    EXPECT_EQ(entry(tab, "G")->record.gamu, 1.35f);
    EXPECT_EQ(lcm_title_text(entry(tab, "G")->record.title), QStringLiteral("Permanent load"));
    EXPECT_EQ(getSelectedRows(&tab.table), (std::set<int>{1}));
    EXPECT_EQ(count.count(), 1);
    EXPECT_EQ(deleted.count(), 0);
}

TEST_F(Commands, DeletedOwnActionLeavesTheTree)
{
    ActionsTab tab(project);
    tab.selectRows({"U1"});
    tab.press("button_delete");
    EXPECT_EQ(entry(tab, "U1"), nullptr);
    EXPECT_EQ(tab.names(), QStringList({"A", "G", "Q"}));
    tab.widget.save(true);
    EXPECT_EQ(project.storedActions().count("U1  "), 0u);
}

TEST_F(Commands, DeletedOwnActionIsTypedAnew)
{
    ActionsTab tab(project);
    tab.clickCell("U1", ACT_COL_ACTION); // the name can't be edited, but its row can be deleted from there
    QTest::keyClick(&tab.table, Qt::Key_Delete);
    ASSERT_EQ(tab.rowOf("U1"), -1);
    ModalAnswers answers;
    answers.then([](QWidget* dialog) { typeNewAction(dialog, "U1", "Second"); });
    tab.press("button_new");
    EXPECT_EQ(tab.names(), QStringList({"A", "G", "Q", "U1"}));
    EXPECT_EQ(tab.text("U1", ACT_COL_DESCRIPTION), QStringLiteral("Second"));
    EXPECT_EQ(tab.record("U1").gamu, 0.0f);
}

TEST_F(Commands, DeletingTheLastRowSelectsTheOneAbove)
{
    ActionsTab tab(project);
    tab.selectRows({"U1"});
    tab.press("button_delete");
    EXPECT_EQ(getSelectedRows(&tab.table), (std::set<int>{2}));
}

TEST_F(Commands, DeletingEveryRowLeavesAnEmptyValidTable)
{
    ActionsTab tab(project);
    tab.table.selectAll();
    tab.press("button_delete");
    EXPECT_EQ(tab.table.rowCount(), 0);
    EXPECT_TRUE(getSelectedRows(&tab.table).empty());
    EXPECT_TRUE(tab.widget.isValid());
    tab.press("button_delete");
    EXPECT_EQ(tab.table.rowCount(), 0);
}

TEST_F(Commands, DeletingTheOnlyRowLeavesNothingSelected)
{
    ActionsProject other;
    other.putAction(soundAction("A"));
    ActionsTab tab(other);
    tab.selectRows({"A"});
    tab.press("button_delete");
    EXPECT_EQ(tab.table.rowCount(), 0);
    EXPECT_TRUE(getSelectedRows(&tab.table).empty());
}

TEST_F(Commands, DeleteWithoutASelectionSelectsTheFirstRow)
{
    ActionsTab tab(project);
    tab.table.clearSelection();
    QSignalSpy count(&tab.widget, SIGNAL(signal_actionCountChanged()));
    tab.press("button_delete");
    EXPECT_EQ(tab.table.rowCount(), 4);
    EXPECT_EQ(getSelectedRows(&tab.table), (std::set<int>{0}));
    EXPECT_EQ(count.count(), 1);
    EXPECT_TRUE(tab.widget.isModified());
}

TEST_F(Commands, TwoSelectedCellsOfARowDeleteItOnce)
{
    for (const bool withLoadcases : {false, true}) {
        FakeLoadcaseTab loadcases(project.db());
        ActionsTab tab(project, withLoadcases ? &loadcases : nullptr);
        tab.clickCell("G", ACT_COL_GAMU);
        tab.clickCell("G", ACT_COL_PSI0, Qt::ControlModifier);
        tab.press("button_delete");
        EXPECT_EQ(tab.names(), QStringList({"A", "Q", "U1"})) << withLoadcases;
        EXPECT_LE(loadcases.asked.size(), 1u);
    }
}

TEST_F(Commands, UsedActionGoesWithItsLoadCasesWhenTheUserAgrees)
{
    FakeLoadcaseTab loadcases(project.db());
    loadcases.used = {codeOf("G")};
    ActionsTab tab(project, &loadcases);
    tab.selectRows({"G"});
    ModalAnswers answers;
    answers.click("Delete");
    tab.press("button_delete");
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].title, QStringLiteral("Action used!"));
    EXPECT_EQ(answers.boxes()[0].text, QLatin1String(QUESTION) + "G    Permanent\n");
    EXPECT_EQ(answers.boxes()[0].buttons, QStringList({"Delete", "Cancel"}));
    EXPECT_EQ(answers.boxes()[0].defaultButton, QStringLiteral("Delete"));
    EXPECT_EQ(loadcases.removed, (std::vector<int>{codeOf("G")}));
    EXPECT_EQ(tab.names(), QStringList({"A", "Q", "U1"}));
}

TEST_F(Commands, CancelSparesTheUsedActionsOnly)
{
    FakeLoadcaseTab loadcases(project.db());
    loadcases.used = {codeOf("G")};
    ActionsTab tab(project, &loadcases);
    tab.selectRows({"G", "Q"});
    ModalAnswers answers;
    answers.click("Cancel");
    tab.press("button_delete");
    EXPECT_TRUE(loadcases.removed.empty());
    EXPECT_EQ(tab.names(), QStringList({"A", "G", "U1"}));
    EXPECT_EQ(entry(tab, "G")->state, LCM_STATE_ACTIVE);
    EXPECT_EQ(entry(tab, "Q")->state, LCM_STATE_FREE);
    EXPECT_TRUE(tab.widget.isModified());
}

TEST_F(Commands, QuestionNamesEachUsedActionOnce)
{
    FakeLoadcaseTab loadcases(project.db());
    loadcases.used = {codeOf("G"), codeOf("U1")};
    ActionsTab tab(project, &loadcases);
    tab.selectRows({"A", "G", "U1"});
    ModalAnswers answers;
    answers.click("Delete");
    tab.press("button_delete");
    EXPECT_EQ(answers.boxes().at(0).text, QLatin1String(QUESTION) + "G    Permanent\nU1   Crane\n");
    EXPECT_EQ(loadcases.removed, (std::vector<int>{codeOf("G"), codeOf("U1")}));
    EXPECT_EQ(tab.names(), QStringList({"Q"}));
}

TEST_F(Commands, EscapeDoesNotLeaveTheQuestion)
{
    FakeLoadcaseTab loadcases(project.db());
    loadcases.used = {codeOf("G")};
    ActionsTab tab(project, &loadcases);
    tab.selectRows({"G"});
    ModalAnswers answers;
    answers.then([](QWidget* box) {
        QTest::keyClick(box, Qt::Key_Escape);
        EXPECT_TRUE(box->isVisible());
        QTest::mouseClick(ModalAnswers::buttonOf(box, "Cancel"), Qt::LeftButton);
    });
    tab.press("button_delete");
    EXPECT_EQ(tab.table.rowCount(), 4);
}

TEST_F(Commands, WithoutALoadcaseTabNothingIsAsked)
{
    ActionsTab tab(project);
    tab.selectRows({"G", "Q"});
    const ModalAnswers nothing;
    tab.press("button_delete");
    EXPECT_EQ(tab.names(), QStringList({"A", "U1"}));
}

TEST_F(Commands, ActionsOfOneCodeAreDeletedOneRowAtATimeBesideLoadCases)
{
    ActionsProject other;
    other.putAction(codeOf("G_12"), ActionBuilder("G_123").gamu(1.1f));
    FakeLoadcaseTab loadcases(other.db());
    // A second entry of the same code, as a foreign tree may hold it.
    LCM_DataClass& model = *loadcases.workingModel();
    model.actions.push_back(model.newEntry(ActionBuilder("G_124").gamu(1.2f), LCM_STATE_ACTIVE, true));
    ActionsTab tab(other, &loadcases);
    ASSERT_EQ(tab.names().count("G_12"), 2);
    tab.table.selectAll();
    tab.press("button_delete");
    EXPECT_EQ(tab.names(), QStringList({"G_12"}));
}

TEST_F(Commands, ReinitAllPutsEveryKnownRowBack)
{
    project.putAction(soundAction("G").gamu(9.0f).title("changed").partition(0x55));
    ActionsTab tab(project);
    std::set<int> rows;
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_reinitActions, &tab.widget,
                     [&rows](const std::set<int>& positions) { rows = positions; });
    const tagCDB_LC_ACT own = tab.record("U1");
    tab.widget.slot_reInitAllActions();
    EXPECT_EQ(tab.record("G").gamu, 1.35f);
    EXPECT_EQ(tab.text("G", ACT_COL_DESCRIPTION), QStringLiteral("Permanent load"));
    EXPECT_EQ(tab.text("G", ACT_COL_PARTITION), QStringLiteral("G (Permanent)"));
    const tagCDB_LC_ACT ownNow = tab.record("U1");
    EXPECT_EQ(std::memcmp(&own, &ownNow, sizeof own), 0);
    EXPECT_EQ(rows, (std::set<int>{0, 1, 2})); // A, G, Q; U1 is the user's own
    EXPECT_FALSE(tab.widget.isModified());
}

TEST_F(Commands, ReinitHealsARedRow)
{
    ActionsTab tab(project);
    tab.enter("G", ACT_COL_GAMF, "7");
    ASSERT_FALSE(tab.widget.isValid());
    tab.selectRows({"G"});
    tab.widget.slot_reInitSelectedActions();
    EXPECT_FALSE(tab.isRed("G", ACT_COL_GAMF));
    EXPECT_TRUE(tab.widget.isValid());
}

TEST_F(Commands, ReinitSelectedReportsUnknownActionsToo)
{
    project.putAction(soundAction("Q").gamu(9.0f));
    ActionsTab tab(project);
    std::set<int> rows;
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_reinitActions, &tab.widget,
                     [&rows](const std::set<int>& positions) { rows = positions; });
    tab.selectRows({"G", "U1"});
    tab.widget.slot_reInitSelectedActions();
    EXPECT_EQ(rows, (std::set<int>{1, 3}));
    EXPECT_EQ(tab.record("Q").gamu, 9.0f);
    tab.table.clearSelection();
    rows = {7};
    tab.widget.slot_reInitSelectedActions();
    EXPECT_TRUE(rows.empty());
}

TEST_F(Commands, RowsKeepTheirOwnValuesWhenASortedFactorIsReinitialised)
{
    // Sorted by Gamu, every known row moves when it gets the code's value back.
    project.putAction(soundAction("A").gamu(9.0f).psi0(0.1f));
    project.putAction(soundAction("G").gamu(8.0f).psi0(0.2f));
    project.putAction(soundAction("Q").gamu(0.1f).psi0(0.3f));
    project.putAction(soundAction("Q_1").gamu(5.0f).psi0(0.4f));
    ActionsTab tab(project);
    tab.table.sortByColumn(tab.table.getColumnNumber(ACT_COL_GAMU), Qt::AscendingOrder);
    ASSERT_EQ(tab.names(), QStringList({"Q", "U1", "Q_1", "G", "A"}));
    std::map<QString, tagCDB_LC_ACT> expected;
    expected["U1"] = tab.record("U1");
    for (const char* name : {"A", "G", "Q", "Q_1"}) {
        tagCDB_LC_ACT& record = expected[name];
        ASSERT_EQ(tab.widget.workingModel()->findAction(codeOf(name), record, true), 1);
    }
    QStringList reported;
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_reinitActions, &tab.widget,
                     [&](const std::set<int>& positions) {
                         for (const int row : positions) {
                             reported << tab.text(row, ACT_COL_ACTION).trimmed();
                         }
                     });
    tab.widget.slot_reInitAllActions();
    for (const auto& [name, record] : expected) {
        const tagCDB_LC_ACT now = tab.record(name);
        EXPECT_EQ(std::memcmp(&now, &record, sizeof now), 0) << name.toStdString();
    }
    reported.sort();
    EXPECT_EQ(reported, QStringList({"A", "G", "Q", "Q_1"}));
    EXPECT_EQ(tab.names(), QStringList({"A", "U1", "G", "Q", "Q_1"})); // 1.0, 1.2, 1.35, 1.5, 1.5
}

TEST_F(Commands, ReinitSelectedReportsWhereTheRowsHaveMoved)
{
    project.putAction(soundAction("A").gamu(9.0f));
    ActionsTab tab(project);
    tab.table.sortByColumn(tab.table.getColumnNumber(ACT_COL_GAMU), Qt::AscendingOrder);
    ASSERT_EQ(tab.rowOf("A"), 3);
    tab.selectRows({"A"});
    std::set<int> rows;
    QObject::connect(&tab.widget, &LCM_ActionsWidget::signal_reinitActions, &tab.widget,
                     [&rows](const std::set<int>& positions) { rows = positions; });
    tab.widget.slot_reInitSelectedActions();
    EXPECT_EQ(tab.rowOf("A"), 0);
    EXPECT_EQ(rows, (std::set<int>{0}));
}
