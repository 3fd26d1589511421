// What the dialog shows, by what its caller asks for.
#include <QLabel>

#include "host/mrl_widgets.h"
#include "tests/manager/manager_fixture.h"

namespace mrl::test {

namespace {

QStringList bothTabs() { return {QStringLiteral("Actions"), QStringLiteral("Loadcases")}; }

QString infoOf(QWidget* dialog) { return dialog->findChild<MRL_QT_InfoText*>()->text(); }

} // namespace

struct TabCase
{
    bool singleTab;
    int mode;
    QStringList tabs;
    QString current;
    QString title;
};

class ManagerTabs : public ManagerTest, public ::testing::WithParamInterface<TabCase>
{
};

TEST_P(ManagerTabs, AreThoseThatTheCallerAsksFor)
{
    MRL_LC_CtrlStruct control;
    control.singleTab = GetParam().singleTab;
    control.mode = GetParam().mode;
    run(control, [&](QWidget* dialog) {
        EXPECT_EQ(tabTexts(dialog), GetParam().tabs);
        EXPECT_EQ(tabsOf(dialog)->tabText(tabsOf(dialog)->currentIndex()), GetParam().current);
        EXPECT_EQ(dialog->windowTitle(), GetParam().title);
        pressCancel(dialog);
    });
}

INSTANTIATE_TEST_SUITE_P(
    AllForms, ManagerTabs,
    ::testing::Values(TabCase{true, 0, {"Loadcases"}, "Loadcases", "Marlavon: Loadcase Manager"},
                      TabCase{true, 1, {"Actions"}, "Actions", "Marlavon: Action Manager"},
                      // Any other mode shows both tabs and chooses none, so the first one added is in front.
                      TabCase{true, 2, bothTabs(), "Actions", "Marlavon: Action and Loadcase Manager"},
                      TabCase{false, 0, bothTabs(), "Loadcases", "Marlavon: Action and Loadcase Manager"},
                      TabCase{false, 1, bothTabs(), "Actions", "Marlavon: Action and Loadcase Manager"},
                      TabCase{false, 2, bothTabs(), "Actions", "Marlavon: Action and Loadcase Manager"}));

TEST_F(ManagerTest, ShortFormShowsBothTabsWithTheActionsInFront)
{
    answers.then([](QWidget* dialog) {
        EXPECT_EQ(tabTexts(dialog), bothTabs());
        EXPECT_EQ(tabsOf(dialog)->currentIndex(), 0);
        pressCancel(dialog);
    });
    EXPECT_EQ(mrl_loadcase_manager(nullptr, db), 0);
}

TEST_F(ManagerTest, TabsAndDialogCarryTheirNames)
{
    MRL_LC_CtrlStruct control;
    run(control, [](QWidget* dialog) {
        EXPECT_EQ(dialog->objectName(), QStringLiteral("new loadcase manager"));
        EXPECT_EQ(actionsTab(dialog)->objectName(), QStringLiteral("actionswidget"));
        EXPECT_EQ(loadCaseTab(dialog)->objectName(), QStringLiteral("loadcasewidget"));
        EXPECT_EQ(actionsTab(dialog)->workingModel(),
                  static_cast<LCM_TabInterface*>(loadCaseTab(dialog))->workingModel());
        pressCancel(dialog);
    });
}

TEST_F(ManagerTest, WantedLoadCasesAreSelected)
{
    MRL_LC_CtrlStruct control;
    control.mode = 0;
    control.loadCases = {1, 3, 99};
    run(control, [](QWidget* dialog) {
        std::set<int> selected;
        loadCaseTab(dialog)->getSelectedLoadcases(selected);
        EXPECT_EQ(selected, (std::set<int>{1, 3}));
        pressCancel(dialog);
    });
}

TEST_F(ManagerTest, DatabaseOfTheDialogIsCurrentWhileItIsOpenAndAfterwards)
{
    MRL_LC_CtrlStruct control;
    run(control, [this](QWidget* dialog) {
        EXPECT_EQ(mrl_cdb_status(-1), db);
        pressCancel(dialog);
    });
    EXPECT_EQ(mrl_cdb_status(-1), db);
}

TEST_F(ManagerTest, InfoLineIsTheLabelAloneWithoutCombinationValues)
{
    useCode(withoutLines(withoutLines(smallCode(), "KFI"), "XSI"));
    MRL_LC_CtrlStruct control;
    run(control, [](QWidget* dialog) {
        EXPECT_EQ(infoOf(dialog), QStringLiteral("Sample"));
        pressCancel(dialog);
    });
}

TEST_F(ManagerTest, InfoLineShowsTheCombinationValuesOfTheDesignCode)
{
    project.setDesignCode("ds-en1990-dkna");
    MRL_LC_CtrlStruct control;
    run(control, [](QWidget* dialog) {
        const QStringList lines = infoOf(dialog).split(QLatin1Char('\n'));
        ASSERT_EQ(lines.size(), 3);
        EXPECT_TRUE(lines[1].endsWith(QStringLiteral(" = 1"))) << lines[1].toStdString();
        EXPECT_TRUE(lines[2].endsWith(QStringLiteral(" = 0.833"))) << lines[2].toStdString();
        EXPECT_FALSE(lines[1].startsWith(QStringLiteral("40Z"))) << "the key has a text in the catalogue";
        EXPECT_FALSE(lines[2].startsWith(QStringLiteral("40X"))) << "the key has a text in the catalogue";
        pressCancel(dialog);
    });
}

TEST_F(ManagerTest, ActionsTabGoesWhenTheDesignCodeHasNoFactorsButItIsStillSaved)
{
    // Gama alone doesn't count.
    useCode(DesignCodeBuilder().marks(noLimits().gama(1.0f)).add(soundAction(QStringLiteral("G")), {2, 7}));
    MRL_LC_CtrlStruct control;
    const int result = run(control, [](QWidget* dialog) {
        EXPECT_EQ(tabTexts(dialog), QStringList{QStringLiteral("Loadcases")});
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Marlavon: Action and Loadcase Manager"));
        EXPECT_NE(actionsTab(dialog), nullptr);
        pressOk(dialog);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(control.mode, 0);
    EXPECT_TRUE(project.hasKey(LC_KWH_ACTIONS, codeOf("G")));
}

TEST_F(ManagerTest, ActionManagerShowsNoTabWhenTheDesignCodeHasNoFactors)
{
    useCode(DesignCodeBuilder().add(soundAction(QStringLiteral("G")), {2, 7}));
    MRL_LC_CtrlStruct control;
    control.singleTab = true;
    run(control, [](QWidget* dialog) {
        EXPECT_EQ(tabsOf(dialog)->count(), 0);
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Marlavon: Action Manager"));
        pressCancel(dialog);
    });
}

TEST_F(ManagerTest, ProjectWithoutDesignCodeStillOpens)
{
    project.setDesignCode(std::string());
    MRL_LC_CtrlStruct control;
    control.mode = 0;
    const int result = run(control, [](QWidget* dialog) {
        EXPECT_EQ(tabTexts(dialog), QStringList{QStringLiteral("Loadcases")});
        EXPECT_EQ(infoOf(dialog), QString());
        pressCancel(dialog);
    });
    EXPECT_EQ(result, 0);
}

namespace {
std::vector<int> helpCalls;
void noteHelp(int topic) { helpCalls.push_back(topic); }
} // namespace

TEST_F(ManagerTest, CallersHelpReplacesTheViewer)
{
    helpCalls.clear();
    MRL_LC_CtrlStruct control;
    control.helpFunction = noteHelp;
    run(control, [](QWidget* dialog) {
        press(dialog, QStringLiteral("Help"));
        QTest::keyClick(dialog, Qt::Key_F1);
        pressCancel(dialog);
    });
    EXPECT_EQ(helpCalls, (std::vector<int>{-1, -1}));
}

} // namespace mrl::test
