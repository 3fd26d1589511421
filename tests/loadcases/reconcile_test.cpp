#include <gmock/gmock.h>

#include <QSignalSpy>

#include "host/mrl_widgets.h"
#include "tests/loadcases/load_cases_fixture.h"
#include "tests/support/modal_answers.h"

namespace {

using namespace mrl::test;

std::vector<QString> offered(const Tabs& tabs)
{
    auto* header =
        static_cast<MRL_H_TwHeaderComboBoxItem*>(tabs.table->horizontalHeaderItemOnColId(LC_COL_ACTION));
    std::vector<QString> texts;
    for (const ComboList& entry : header->getComboEntries(0)) {
        texts.push_back(entry.text);
    }
    return texts;
}

class LoadcaseReconcile : public testing::Test
{
  protected:
    LoadcaseReconcile()
    {
        project.putAction(permanent());
        project.putAction(variable());
        project.putLoadCase(1, following("G"));
        project.putLoadCase(2, following("Q"));
        project.putLoadCase(3, standalone());
    }
    /// Takes an action away behind the load cases' back, as no command does.
    static void dropAction(const Tabs& tabs, int actionCode)
    {
        tabs.actions->workingModel()->removeAction(actionCode);
        const int row = tabs.actionRow(actionCode);
        tabs.actions->tableWidget()->removeRow(row);
        // An edit makes the tab read its rows anew.
        emit tabs.actions->tableWidget()->cellChanged(0, 0);
        emit tabs.actions->signal_actionCountChanged();
    }
    static void setTitle(const Tabs& tabs, int actionCode, const QString& title)
    {
        tabs.actions->tableWidget()
            ->itemOnColId(tabs.actionRow(actionCode), ACT_COL_DESCRIPTION)
            ->setText(title);
    }
    LoadCaseProject project;
};

TEST_F(LoadcaseReconcile, OffersTheRowsOfTheActionsTab)
{
    const Tabs tabs(project);
    EXPECT_THAT(offered(tabs),
                testing::ElementsAre("None", "IMP  Imperfection", "G    Permanent", "Q    Variable"));
    const Tabs alone(project, Tabs::LoadcasesAlone);
    EXPECT_EQ(offered(alone), offered(tabs));
}

TEST_F(LoadcaseReconcile, WithoutActionsOnlyTheFixedEntriesAreOffered)
{
    const Tabs tabs(project);
    dropAction(tabs, codeOf("G"));
    dropAction(tabs, codeOf("Q"));
    const auto texts = offered(tabs);
    EXPECT_THAT(texts, testing::ElementsAre("None", "IMP  Imperfection", "*** Action G    is missing ***",
                                            "*** Action Q    is missing ***"));
}

TEST_F(LoadcaseReconcile, ChangedFactorShowsInItsLoadCasesAndNowhereElse)
{
    tagCDB_LC_CTRL record = following("G");
    record.dlx = 0.5f; // hidden
    project.putLoadCase(4, record);
    const Tabs tabs(project);
    tabs.enterAction(codeOf("Q"), ACT_COL_PSI1S, 0.95f);
    EXPECT_EQ(tabs.value(2, LC_COL_PSI1S), 0.95f);
    EXPECT_EQ(tabs.value(1, LC_COL_PSI1S), 1.0f);
    EXPECT_EQ(tabs.value(3, LC_COL_PSI1S), 0.0f);
    EXPECT_EQ(bits(tabs.read(2).record.psi1), bits(LC_UNDEFINED));
    EXPECT_EQ(tabs.value(4, LC_COL_DLX), 0.5f) << "another action's row isn't even read again";
    EXPECT_FALSE(tabs.lc->isModified()) << "the load case's record stays what it was";
}

TEST_F(LoadcaseReconcile, TitleOfAnActionRefreshesLabelsAndAllVerdicts)
{
    const Tabs tabs(project);
    tabs.enterAction(codeOf("G"), ACT_COL_GAMF, 5.0f);
    EXPECT_TRUE(tabs.isValid(1));
    setTitle(tabs, codeOf("Q"), "Traffic");
    EXPECT_EQ(tabs.text(2, LC_COL_ACTION), "Q    Traffic");
    EXPECT_FALSE(tabs.isValid(1));
    EXPECT_TRUE(tabs.lc->isModified());
    EXPECT_EQ(tabs.value(2, LC_COL_GAMU), 1.5f);
    EXPECT_TRUE(tabs.lc->isItemFromAction(tabs.row(2), LC_COL_ACTION)) << "the label reports like an edit";
}

TEST_F(LoadcaseReconcile, NoneAndImperfectionsStayWhatTheyAreInARebuild)
{
    tagCDB_LC_CTRL record = standalone();
    record.gamf = 0.75f;
    project.putLoadCase(3, record);
    project.putLoadCase(4, following(70));
    const Tabs tabs(project);
    setTitle(tabs, codeOf("G"), "any change");
    EXPECT_EQ(tabs.text(3, LC_COL_ACTION), "None");
    EXPECT_EQ(tabs.value(3, LC_COL_GAMF), 0.75f);
    EXPECT_EQ(tabs.text(4, LC_COL_ACTION), "IMP  Imperfection");
    EXPECT_EQ(tabs.read(4).record.action, 70);
    EXPECT_TRUE(tabs.lc->isValid());
}

TEST_F(LoadcaseReconcile, LinkingTheActionsTabOffersItsRows)
{
    LCM_LoadcaseWidget loadcases(project.db(), nullptr, "loadcasewidget");
    LCM_ActionsWidget actions(&loadcases, project.db(), 0, nullptr, "actionswidget");
    actions.fillTable();
    actions.tableWidget()->itemOnColId(0, ACT_COL_DESCRIPTION)->setText("Own title");
    loadcases.setActionsWidget(&actions);
    auto* header = static_cast<MRL_H_TwHeaderComboBoxItem*>(
        static_cast<MRL_H_TableWidget*>(loadcases.tableWidget())->horizontalHeaderItemOnColId(LC_COL_ACTION));
    EXPECT_EQ(std::next(header->getComboEntries(0).begin(), 2)->text, "G    Own title");
}

TEST_F(LoadcaseReconcile, ListFollowsTheRowsOfTheActionsTab)
{
    const Tabs tabs(project);
    auto* actions = static_cast<MRL_H_TableWidget*>(tabs.actions->tableWidget());
    actions->sortByColumn(actions->getColumnNumber(ACT_COL_ACTION), Qt::DescendingOrder);
    setTitle(tabs, codeOf("G"), "Dead");
    EXPECT_THAT(offered(tabs),
                testing::ElementsAre("None", "IMP  Imperfection", "Q    Variable", "G    Dead"));
}

TEST_F(LoadcaseReconcile, LoadCasesAloneHearOfNoAction)
{
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    tabs.lc->slot_actionValuesChanged(0, 0);
    tabs.lc->slot_reinitActions({0, 1});
    EXPECT_EQ(tabs.value(2, LC_COL_GAMU), 1.5f);
    EXPECT_FALSE(tabs.lc->isModified());
}

TEST_F(LoadcaseReconcile, ChangedActionsUseIsToldAtOnce)
{
    const Tabs tabs(project);
    EXPECT_TRUE(tabs.lc->isActionUsed(variable()));
    dropAction(tabs, codeOf("Q"));
    EXPECT_FALSE(tabs.lc->isActionUsed(variable())) << "its load case shows the marker";
}

TEST_F(LoadcaseReconcile, MissingMixedCaseActionKeepsItsWordThroughRebuilds)
{
    project.putLoadCase(5, following("Ab"));
    const Tabs tabs(project);
    EXPECT_EQ(tabs.text(5, LC_COL_ACTION), "*** Action Ab   is missing ***");
    for (const char* title : {"one", "two"}) {
        setTitle(tabs, codeOf("G"), title);
        EXPECT_EQ(tabs.text(5, LC_COL_ACTION), "*** Action AB   is missing ***");
        EXPECT_EQ(tabs.read(5).record.action, codeOf("Ab"));
        EXPECT_FALSE(tabs.isValid(5));
    }
}

TEST_F(LoadcaseReconcile, LostActionLeavesTheMarkerAndItHeals)
{
    const Tabs tabs(project);
    dropAction(tabs, codeOf("Q"));
    EXPECT_EQ(tabs.text(2, LC_COL_ACTION), "*** Action Q    is missing ***");
    EXPECT_FALSE(tabs.isValid(2));
    EXPECT_EQ(tabs.value(2, LC_COL_GAMU), 0.0f);
    EXPECT_EQ(tabs.read(2).record.action, codeOf("Q"));
    EXPECT_TRUE(tabs.lc->isModified());

    tabs.actions->slot_addAllClicked(); // brings Q and W
    EXPECT_EQ(tabs.actionId(2), codeOf("Q"));
    EXPECT_EQ(tabs.value(2, LC_COL_GAMU), 1.5f);
    EXPECT_TRUE(tabs.isValid(2));
    EXPECT_THAT(offered(tabs), testing::Each(testing::Not(testing::ResultOf(
                                   [](const QString& text) { return text.startsWith("***"); }, true))));
}

TEST_F(LoadcaseReconcile, OneMarkerHoweverManyRowsMissTheAction)
{
    for (int number = 10; number < 20; ++number) {
        project.putLoadCase(number, following(codeOf(number % 2 ? "Q" : "G")));
    }
    const Tabs tabs(project);
    dropAction(tabs, codeOf("Q"));
    EXPECT_EQ(offered(tabs).size(), 4u);
    EXPECT_EQ(tabs.text(19, LC_COL_ACTION), "*** Action Q    is missing ***");
    setTitle(tabs, codeOf("G"), "again");
    EXPECT_EQ(offered(tabs).size(), 4u);
    EXPECT_EQ(tabs.text(19, LC_COL_ACTION), "*** Action Q    is missing ***");
    EXPECT_EQ(tabs.read(19).record.action, codeOf("Q"));
}

TEST_F(LoadcaseReconcile, LowerCaseNamesOfOldRecordsFindTheirActionAfterARebuild)
{
    project.putLoadCase(5, following("q"));
    const Tabs tabs(project);
    EXPECT_EQ(tabs.text(5, LC_COL_ACTION), "*** Action q    is missing ***");
    setTitle(tabs, codeOf("G"), "any change");
    EXPECT_EQ(tabs.actionId(5), codeOf("Q"));
    EXPECT_EQ(tabs.value(5, LC_COL_GAMU), 1.5f);
    EXPECT_TRUE(tabs.isValid(5));
    tabs.save();
    EXPECT_EQ(project.storedLoadCase(5).action, codeOf("Q"));
}

TEST_F(LoadcaseReconcile, LowerCaseActionKeepsItsRowsInARebuild)
{
    project.putAction(bareAction("w").title("small").factors(1.0f).partition(0x31));
    project.putLoadCase(5, following("w"));
    const Tabs tabs(project);
    setTitle(tabs, codeOf("G"), "any change");
    EXPECT_EQ(tabs.actionId(5), codeOf("w"));
    EXPECT_TRUE(tabs.isValid(5));
}

TEST_F(LoadcaseReconcile, MixedCaseNameIsMissedAfterARebuildAndKeepsItsWord)
{
    project.putAction(bareAction("Ab").title("mixed").factors(1.0f).partition(0x31));
    project.putLoadCase(5, following("Ab"));
    const Tabs tabs(project);
    EXPECT_EQ(tabs.actionId(5), codeOf("Ab"));
    EXPECT_TRUE(tabs.isValid(5));
    setTitle(tabs, codeOf("G"), "any change");
    EXPECT_EQ(tabs.actionId(5), codeOf("ab"));
    EXPECT_EQ(tabs.text(5, LC_COL_ACTION), "*** Action AB   is missing ***");
    EXPECT_FALSE(tabs.isValid(5));
    EXPECT_EQ(tabs.read(5).record.action, codeOf("Ab"));
    tabs.chooseAction(5, codeOf("Ab"));
    EXPECT_EQ(tabs.value(5, LC_COL_GAMU), 1.0f);
    EXPECT_EQ(tabs.read(5).record.action, codeOf("Ab"));
}

TEST_F(LoadcaseReconcile, ActionLabelledImperfectionMeansNone)
{
    project.putAction(bareAction("IMP").title("Imperfection").factors(1.0f).partition(0x31));
    const Tabs tabs(project);
    auto* header =
        static_cast<MRL_H_TwHeaderComboBoxItem*>(tabs.table->horizontalHeaderItemOnColId(LC_COL_ACTION));
    const auto entries = header->getComboEntries(0);
    const auto entry = std::find_if(std::next(entries.begin(), 2), entries.end(),
                                    [](const ComboList& e) { return e.text == "IMP  Imperfection"; });
    ASSERT_NE(entry, entries.end());
    EXPECT_EQ(entry->id, 0);
}

TEST_F(LoadcaseReconcile, ReinitialisedActionShowsItsDefaultsInItsLoadCases)
{
    const Tabs tabs(project);
    tabs.enterAction(codeOf("Q"), ACT_COL_GAMU, 9.0f);
    EXPECT_EQ(tabs.value(2, LC_COL_GAMU), 9.0f);
    tabs.selectAction(codeOf("Q"));
    tabs.actions->slot_reInitSelectedActions();
    EXPECT_EQ(tabs.value(2, LC_COL_GAMU), 1.5f);
    EXPECT_EQ(tabs.value(1, LC_COL_GAMU), 1.35f);
    EXPECT_FALSE(tabs.lc->isModified()) << "no cell was marked";
}

TEST_F(LoadcaseReconcile, ReinitialisingJudgesTheSelectedRowsWhoseMarkedCellsChange)
{
    const Tabs tabs(project);
    tabs.select({2});
    tabs.enterAction(codeOf("Q"), ACT_COL_GAMF, 9.0f);
    tabs.cell(2, LC_COL_TITLE)->setText("judged");
    ASSERT_FALSE(tabs.isValid(2));
    tabs.enterAction(codeOf("Q"), ACT_COL_PSI2, LC_UNDEFINED);
    tabs.selectAction(codeOf("Q"));
    tabs.actions->slot_reInitSelectedActions();
    EXPECT_TRUE(tabs.isValid(2));
    EXPECT_FALSE(tabs.isRed(2, LC_COL_GAMF));
}

TEST_F(LoadcaseReconcile, MarkedCellThatShowsTheFactorAlreadyIsNoEdit)
{
    const Tabs tabs(project);
    tabs.enterAction(codeOf("Q"), ACT_COL_PSI2, LC_UNDEFINED);
    ASSERT_TRUE(tabs.lc->isItemFromAction(tabs.row(2), LC_COL_PSI2));
    tabs.lc->slot_reinitActions({tabs.actionRow(codeOf("Q"))});
    EXPECT_EQ(tabs.text(2, LC_COL_PSI2), "");
    EXPECT_FALSE(tabs.lc->isModified());
}

TEST_F(LoadcaseReconcile, MarkedCellsTakeTheTextOfTheActionsFactor)
{
    const Tabs tabs(project);
    tabs.enterAction(codeOf("Q"), ACT_COL_PSI2, LC_UNDEFINED);
    ASSERT_TRUE(tabs.lc->isItemFromAction(tabs.row(2), LC_COL_PSI2));
    EXPECT_EQ(tabs.text(2, LC_COL_PSI2), "");
    tabs.selectAction(codeOf("Q"));
    tabs.actions->slot_reInitSelectedActions();
    EXPECT_EQ(tabs.text(2, LC_COL_PSI2), "0.30");
    EXPECT_FALSE(tabs.lc->isItemFromAction(tabs.row(2), LC_COL_PSI2));
    EXPECT_TRUE(tabs.lc->isModified()) << "the marked cell reports like an edit";
}

/// Watches whether a busy dialog was shown and painted.
class BusyWatch : public QObject
{
  public:
    explicit BusyWatch(const Tabs& tabs) : m_tabs(tabs) { qApp->installEventFilter(this); }
    int shown = 0;
    int painted = 0;
    QString text;
    float factor = 0.0f; ///< of load case 1 when the dialog was painted first

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* busy = qobject_cast<MRL_QT_BusyDialog*>(object);
        if (busy && event->type() == QEvent::Show) {
            ++shown;
            EXPECT_TRUE(busy->isModal());
        }
        if (busy && event->type() == QEvent::Paint) {
            factor = painted++ == 0 ? m_tabs.value(1, LC_COL_GAMU) : factor;
            text = busy->findChild<QLabel*>()->text();
        }
        return false;
    }

  private:
    const Tabs& m_tabs;
};

class BusyDialog : public testing::TestWithParam<int>
{
};

TEST_P(BusyDialog, IsShownAndPaintedFrom150RowsOn)
{
    const LoadCaseProject project;
    project.putAction(permanent());
    for (int number = 1; number <= GetParam(); ++number) {
        project.putLoadCase(number, following("G"));
    }
    Tabs tabs(project);
    tabs.show();
    tabs.enterAction(codeOf("G"), ACT_COL_GAMU, 9.0f);
    BusyWatch watch(tabs);
    tabs.actions->slot_reInitAllActions();
    const bool expected = GetParam() >= 150;
    EXPECT_EQ(watch.shown, expected ? 1 : 0);
    EXPECT_EQ(watch.painted > 0, expected);
    EXPECT_EQ(tabs.value(1, LC_COL_GAMU), 1.35f);
    if (expected) {
        EXPECT_EQ(watch.factor, 9.0f) << "painted before the work begins";
        EXPECT_EQ(watch.text, "The loadcases will be checked because of changed action values.");
    }
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Rows, BusyDialog, testing::Values(149, 150));

TEST_F(LoadcaseReconcile, RefreshDropsComponentsThatTheHiddenColumnsLose)
{
    tagCDB_LC_CTRL record = following("Q");
    record.dlx = 0.5f;
    project.putLoadCase(7, record);
    const Tabs tabs(project); // the box is off: only the amount along gravity counts
    EXPECT_EQ(tabs.value(7, LC_COL_DLX), 0.5f);
    tabs.enterAction(codeOf("Q"), ACT_COL_GAMU, 1.4f);
    EXPECT_EQ(tabs.value(7, LC_COL_DLX), 0.0f);
}

} // namespace
