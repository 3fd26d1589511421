#include <gmock/gmock.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

#include <functional>

#include "host/mrl_widgets.h"
#include "tests/loadcases/load_cases_fixture.h"
#include "tests/support/modal_answers.h"

namespace {

using namespace mrl::test;

MRL_QT_CheckBox* box(const Tabs& tabs, const char* name)
{
    return tabs.lc->findChild<MRL_QT_CheckBox*>(name);
}

void storeSetting(const char* key, int value)
{
    qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())->setAppSettings("LF_Manager", key, value);
}
int storedSetting(const char* key)
{
    int value = -1;
    qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())
        ->getAppSettings("LF_Manager", key, value, -1);
    return value;
}

class LoadcaseWidget : public testing::Test
{
  protected:
    void SetUp() override
    {
        storeSetting("checkDeadload", 0);
        storeSetting("checkIncrement", 1);
    }
    LoadCaseProject project;
};

std::vector<int> shownDeadWeight(const Tabs& tabs)
{
    std::vector<int> shown;
    for (const int column : {LC_COL_DEADFACTOR, LC_COL_DLX, LC_COL_DLY, LC_COL_DLZ}) {
        if (!tabs.table->isColumnHidden(tabs.table->getColumnNumber(column))) {
            shown.push_back(column);
        }
    }
    return shown;
}

TEST_F(LoadcaseWidget, BoxChoosesBetweenTheAmountAndTheComponentsOfTheSystem)
{
    const struct
    {
        int rawClass;
        std::vector<int> components;
    } systems[] = {
        {0, {LC_COL_DLX, LC_COL_DLY, LC_COL_DLZ}}, {1, {LC_COL_DLX, LC_COL_DLY}}, {20, {LC_COL_DLZ}}};
    for (const auto& system : systems) {
        project.setSystem(system.rawClass, -3);
        const Tabs tabs(project, Tabs::LoadcasesAlone);
        EXPECT_EQ(shownDeadWeight(tabs), (std::vector<int>{LC_COL_DEADFACTOR}));
        box(tabs, "check_deadload")->setChecked(true);
        EXPECT_EQ(shownDeadWeight(tabs), system.components);
        tabs.lc->slot_checkDeadloadChanged(Qt::PartiallyChecked); // any state but Checked
        EXPECT_EQ(shownDeadWeight(tabs), (std::vector<int>{LC_COL_DEADFACTOR}));
        tabs.lc->slot_checkDeadloadChanged(Qt::Checked);
        EXPECT_EQ(shownDeadWeight(tabs), system.components);
        box(tabs, "check_deadload")->setChecked(false);
        EXPECT_EQ(shownDeadWeight(tabs), (std::vector<int>{LC_COL_DEADFACTOR}));
        EXPECT_FALSE(tabs.lc->isModified());
    }
}

TEST_F(LoadcaseWidget, SystemIsAskedForWhenItCounts)
{
    project.putLoadCase(1, following(70));
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    tabs.enter(1, LC_COL_DEADFACTOR, 2.0f);
    project.setSystem(1, 2); // another module turns the system over
    box(tabs, "check_deadload")->setChecked(true);
    EXPECT_EQ(shownDeadWeight(tabs), (std::vector<int>{LC_COL_DLX, LC_COL_DLY}));
    box(tabs, "check_deadload")->setChecked(false);
    project.setSystem(0, -1);
    tabs.lc->save(true);
    EXPECT_EQ(project.storedLoadCase(1).dlx, -2.0f);
    EXPECT_EQ(project.storedLoadCase(1).dlz, 0.0f);

    tagCDB_LC_CTRL record = following(70);
    record.dly = -3.0f;
    project.putLoadCase(1, record);
    LCM_LoadcaseWidget tab(project.db(), nullptr, "loadcasewidget");
    project.setSystem(0, -2);
    tab.fillTable();
    EXPECT_EQ(tab.getItemVal(0, LC_COL_DEADFACTOR), 3.0f);
}

TEST_F(LoadcaseWidget, SettingsAreReadAtFillingAndStoredAtEverySave)
{
    storeSetting("checkDeadload", 1);
    storeSetting("checkIncrement", 0);
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    EXPECT_TRUE(box(tabs, "check_deadload")->isChecked());
    EXPECT_FALSE(box(tabs, "check_increaselc")->isChecked());
    box(tabs, "check_deadload")->setChecked(false);
    box(tabs, "check_increaselc")->setChecked(true);
    EXPECT_EQ(storedSetting("checkDeadload"), 1);
    tabs.lc->save(false);
    EXPECT_EQ(storedSetting("checkDeadload"), 0);
    EXPECT_EQ(storedSetting("checkIncrement"), 1);
    box(tabs, "check_deadload")->setChecked(true);
    tabs.lc->save(true);
    EXPECT_EQ(storedSetting("checkDeadload"), 1);
}

TEST_F(LoadcaseWidget, ButtonsAndBoxesSayWhatTheyDo)
{
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    const std::pair<const char*, QString> texts[] = {
        {"button_new", "New"},
        {"button_copy", "Copy"},
        {"button_delete", "Delete"},
        {"check_deadload", "Use global deadload directions"},
        {"check_increaselc", "Increment loadcases automatically from selected on"}};
    for (const auto& [name, text] : texts) {
        EXPECT_EQ(tabs.lc->findChild<QAbstractButton*>(name)->text(), text);
    }
}

TEST_F(LoadcaseWidget, ClickedButtonsMakeCopyAndDelete)
{
    project.putAction(permanent());
    project.putAction(variable());
    Tabs tabs(project);
    tabs.show();
    const auto click = [&tabs](const char* name) {
        QTest::mouseClick(tabs.lc->findChild<QPushButton*>(name), Qt::LeftButton);
    };
    click("button_new");
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1));
    ModalAnswers answers;
    answers.key(Qt::Key_Return).click("Yes");
    click("button_copy");
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1, 2));
    EXPECT_EQ(tabs.lc->getCopies().size(), 1u);
    click("button_delete");
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1));
}

TEST_F(LoadcaseWidget, ModelGoesWithTheLastTab)
{
    QPointer<QObject> model;
    {
        const Tabs tabs(project);
        model = tabs.lc->workingModel();
        ASSERT_NE(model, nullptr);
    }
    EXPECT_EQ(model, nullptr);
}

TEST_F(LoadcaseWidget, MethodsStandInTheirOrder)
{
    const QMetaObject& meta = LCM_LoadcaseWidget::staticMetaObject;
    EXPECT_STREQ(meta.className(), "LCM_LoadcaseWidget");
    std::vector<std::string> signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        signatures.push_back(meta.method(i).methodSignature().toStdString());
    }
    EXPECT_THAT(signatures,
                testing::ElementsAre("signal_deleteUnusedLoadcases()", "slot_newClicked()",
                                     "slot_copyClicked()", "slot_deleteClicked()",
                                     "slot_actionCountChanged()", "slot_actionValuesChanged(int,int)",
                                     "slot_cellChanged(int,int)", "slot_checkDeadloadChanged(int)",
                                     "slot_reinitActions(std::set<int>)", "setItemVal(int,int,float,bool)"));
}

TEST_F(LoadcaseWidget, IncrementStartsChecked)
{
    LCM_LoadcaseWidget tab(project.db(), nullptr, "loadcasewidget");
    EXPECT_TRUE(tab.findChild<MRL_QT_CheckBox*>("check_increaselc")->isChecked());
    EXPECT_FALSE(tab.findChild<MRL_QT_CheckBox*>("check_deadload")->isChecked());
}

TEST_F(LoadcaseWidget, ButtonsAreReachedByTabAlone)
{
    const Tabs tabs(project);
    for (const char* name : {"button_new", "button_copy", "button_delete"}) {
        EXPECT_EQ(tabs.lc->findChild<QPushButton*>(name)->focusPolicy(), Qt::TabFocus);
    }
}

TEST_F(LoadcaseWidget, CopyWithoutASelectionSaysSoAndChangesNothing)
{
    project.putLoadCase(1, following(70));
    const Tabs tabs(project);
    ModalAnswers answers;
    answers.key(Qt::Key_Return);
    tabs.lc->slot_copyClicked();
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].title, "Loadcase selection");
    EXPECT_EQ(answers.boxes()[0].text, "Please select a loadcase to copy!");
    EXPECT_FALSE(tabs.lc->isModified());
    EXPECT_EQ(tabs.table->rowCount(), 1);
}

TEST_F(LoadcaseWidget, SelectsAllNamedRowsAndPassesOverTheOthers)
{
    for (int number = 1; number <= 9; ++number) {
        project.putLoadCase(number, following(70));
    }
    const Tabs tabs(project);
    tabs.lc->selectLoadcases({2, 3, 7, 99});
    std::set<int> selected{42};
    tabs.lc->getSelectedLoadcases(selected);
    EXPECT_THAT(selected, testing::ElementsAre(2, 3, 7));
    EXPECT_EQ(tabs.table->selectedRanges().size(), 2);
    EXPECT_EQ(tabs.table->selectedRanges().front().columnCount(), tabs.table->columnCount());

    EXPECT_EQ(tabs.table->currentRow(), tabs.row(7)) << "the arrow keys go on from the last one";

    tabs.lc->selectLoadcases({});
    tabs.lc->getSelectedLoadcases(selected);
    EXPECT_THAT(selected, testing::ElementsAre(2, 3, 7));
    tabs.lc->selectLoadcases({99}); // none of them has a row
    tabs.lc->getSelectedLoadcases(selected);
    EXPECT_THAT(selected, testing::ElementsAre(2, 3, 7));
    tabs.lc->selectLoadcases({5});
    tabs.lc->getSelectedLoadcases(selected);
    EXPECT_THAT(selected, testing::ElementsAre(5));
}

TEST_F(LoadcaseWidget, SelectingGivesTheTableTheFocus)
{
    project.putLoadCase(1, following(70));
    Tabs tabs(project);
    tabs.show();
    auto* button = tabs.lc->findChild<QPushButton*>("button_new");
    button->setFocus();
    tabs.lc->selectLoadcases({});
    EXPECT_TRUE(button->hasFocus());
    tabs.lc->selectLoadcases({1});
    EXPECT_TRUE(tabs.table->hasFocus());
    button->setFocus();
    tabs.lc->selectLoadcases({99});
    EXPECT_TRUE(tabs.table->hasFocus()) << "also when no row shows the number";
}

TEST_F(LoadcaseWidget, SaveWithoutWritingUpdatesTheModelAlone)
{
    project.putLoadCase(1, following(70).title("old"));
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    tabs.cell(1, LC_COL_TITLE)->setText("new");
    tabs.lc->save(false);
    EXPECT_EQ(lcm_title_text(tabs.lc->workingModel()->loadcases.at(0).record.title), "new");
    EXPECT_EQ(lcm_title_text(project.storedLoadCase(1).title), "old");
    tabs.lc->save(true);
    EXPECT_EQ(lcm_title_text(project.storedLoadCase(1).title), "new");
}

TEST_F(LoadcaseWidget, ModificationAmongSuperpositionDataIsToldOnceADialog)
{
    project.putSuperposition();
    project.putLoadCase(1, following(70));
    for (int dialog = 0; dialog < 2; ++dialog) {
        const Tabs tabs(project, Tabs::LoadcasesAlone);
        tabs.lc->save(false); // nothing was modified
        tabs.cell(1, LC_COL_TITLE)->setText(QString("edit %1").arg(dialog));
        ModalAnswers answers;
        answers.key(Qt::Key_Return);
        tabs.lc->save(false);
        ASSERT_EQ(answers.boxes().size(), 1u);
        EXPECT_EQ(answers.boxes()[0].title, "Action modified");
        EXPECT_EQ(
            answers.boxes()[0].text,
            "You have made modifications to the actions.\nPlease check your inputs in the Superposition "
            "Manager and adapt them if necessary manually or by reinitializing.");
        tabs.lc->save(false); // and now it is told
        EXPECT_EQ(answers.boxes().size(), 1u);
    }
}

TEST_F(LoadcaseWidget, ActionsTabsNoticeSilencesThisOne)
{
    project.putSuperposition();
    project.putAction(permanent());
    project.putLoadCase(1, following(70));
    const Tabs tabs(project);
    tabs.cell(1, LC_COL_TITLE)->setText("edit");
    tabs.enterAction(codeOf("G"), ACT_COL_GAMU, 1.2f);
    ModalAnswers answers;
    answers.key(Qt::Key_Return);
    tabs.actions->save(false);
    tabs.lc->save(false);
    EXPECT_EQ(answers.boxes().size(), 1u);
}

TEST_F(LoadcaseWidget, SharesItsModelWithTheActionsTab)
{
    const Tabs tabs(project);
    EXPECT_EQ(tabs.lc->workingModel(), tabs.actions->workingModel());
    EXPECT_EQ(tabs.lc->workingModel()->referenceCount(), 2);
}

/// The context menu that a right click on the table opens. @param use looks at it and closes it
void inContextMenu(const Tabs& tabs, const std::function<void(QMenu&)>& use)
{
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&use] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            use(*menu);
        }
    });
    timer.start(0);
    QWidget* place = tabs.table->viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), place->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(place, &event);
}

TEST_F(LoadcaseWidget, ContextMenuEndsWithTheDeletionOfUnusedLoadcases)
{
    const Tabs tabs(project);
    for (int time = 0; time < 2; ++time) {
        QStringList entries;
        inContextMenu(tabs, [&entries](QMenu& menu) {
            for (const QAction* entry : menu.actions()) {
                entries << (entry->isSeparator() ? QString("-") : entry->text());
            }
            menu.close();
        });
        ASSERT_GE(entries.size(), 3);
        EXPECT_EQ(entries.mid(entries.size() - 2), (QStringList{"-", "Delete unused loadcases"}));
        EXPECT_EQ(entries.count("Delete unused loadcases"), 1);
        EXPECT_FALSE(entries.contains("New row")) << "the tab has buttons for that";
        EXPECT_FALSE(entries.contains("Delete rows"));
    }
}

TEST_F(LoadcaseWidget, DeletionOfUnusedLoadcasesIsPassedOn)
{
    const Tabs tabs(project);
    QSignalSpy spy(tabs.lc, SIGNAL(signal_deleteUnusedLoadcases()));
    inContextMenu(tabs, [](QMenu& menu) {
        menu.setActiveAction(menu.actions().last());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    EXPECT_EQ(spy.count(), 1);
    EXPECT_FALSE(tabs.lc->isModified());
    EXPECT_NE(tabs.table->findChild<QAction*>("delete unused loadcases"), nullptr);
}

} // namespace
