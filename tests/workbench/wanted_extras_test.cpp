// What the workbench does beyond running its managers, where the user wants it.
#include <QAbstractButton>
#include <QDropEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QUrl>

#include "lcdata/load_cases.h"
#include "tests/support/action_builder.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/accepted_changes.h"
#include "workbench/main_window.h"
#include "workbench/unused_load_cases.h"
#include "workbench/wanted_extras.h"

namespace mrl::test {

namespace {

using workbench::MainWindow;
using workbench::Manager;

class WorkbenchExtras : public ::testing::Test
{
  protected:
    WorkbenchExtras()
    {
        workbench::storeExtras(true);
        const OtherProgram other(project.path());
        other.put(LC_KWH_CASES, 1, following("G").title("Dead").deadWeight(0, 0, -1).record());
        other.put(LC_KWH_CASES, 2, following("G").title("Empty").record());
        other.put(LC_KWH_CASES, 3, following("G").title("Loaded").record());
        other.put(21, 3, 1); // loads of another module
        tagCDB_LC_CTRL imperfection = following("G").title("Imperfect").record();
        imperfection.action = LC_ACTION_IMPERFECTION;
        other.put(LC_KWH_CASES, 4, imperfection);
    }
    ~WorkbenchExtras() override
    {
        workbench::storeExtras(false);
        workbench::storeOneTab(false);
    }

    void open()
    {
        window.emplace();
        window->show();
        ASSERT_TRUE(window->openProject(project.path()));
    }
    int db() const { return window->document().database(); }
    static void pressIn(QWidget* dialog, const char* button)
    {
        QTest::mouseClick(ModalAnswers::buttonOf(dialog, QLatin1String(button)), Qt::LeftButton);
    }
    QString status() const { return window->statusBar()->currentMessage(); }

    ProjectFile project{QStringLiteral("en1990"), true};
    ModalAnswers answers;
    std::optional<MainWindow> window;
};

TEST_F(WorkbenchExtras, BothTasksOpenBothTabsUnlessASettingWantsOne)
{
    open();
    for (const Manager which : {Manager::Actions, Manager::LoadCases}) {
        answers.then([which](QWidget* dialog) {
            const auto* tabs = dialog->findChild<QTabWidget*>();
            EXPECT_EQ(tabs->count(), 2);
            EXPECT_EQ(tabs->currentIndex(), which == Manager::Actions ? 0 : 1);
            pressIn(dialog, "Cancel");
        });
        window->openManager(which);
    }
    workbench::storeOneTab(true);
    answers.then([](QWidget* dialog) {
        EXPECT_EQ(dialog->findChild<QTabWidget*>()->count(), 1);
        pressIn(dialog, "Cancel");
    });
    window->openManager(Manager::Actions);
}

TEST_F(WorkbenchExtras, AnAcceptanceIsToldInNumbers)
{
    open();
    answers.then([](QWidget* dialog) {
        pressIn(dialog->findChild<QTabWidget*>()->currentWidget(), "New");
        pressIn(dialog, "OK");
    });
    window->openManager(Manager::LoadCases);
    EXPECT_TRUE(status().startsWith("Load cases: 1 new")) << status().toStdString();
}

TEST_F(WorkbenchExtras, ACopyWithAFactorIsToldWithItsSource)
{
    open();
    answers.then([this](QWidget* dialog) {
        auto* table = dialog->findChild<QTableWidget*>("loadcase table");
        table->selectRow(1);
        answers.then([](QWidget* number) {
            auto* factor = number->findChild<QLineEdit*>("m_pFac");
            factor->setText("0.5");
            QTest::keyClick(number, Qt::Key_Return);
        });
        pressIn(dialog->findChild<QTabWidget*>()->currentWidget(), "Copy");
        pressIn(dialog, "OK");
    });
    window->openManager(Manager::LoadCases);
    EXPECT_TRUE(status().contains("from 2 (factor 0.5)")) << status().toStdString();
}

TEST_F(WorkbenchExtras, UnusedAreThoseWithoutDeadWeightImperfectionAndRecordsOfOthers)
{
    open();
    const auto unused = workbench::unusedLoadCases(db());
    ASSERT_EQ(unused.size(), 1U);
    EXPECT_EQ(unused.front().number, 2);
    EXPECT_EQ(unused.front().title, "Empty");
}

TEST_F(WorkbenchExtras, UnusedLoadCasesAreDeletedAfterAQuestion)
{
    open();
    const auto wantDeletion = [](QWidget* dialog) {
        dialog->findChild<QAction*>("delete unused loadcases")->trigger();
    };
    answers.then(wantDeletion).click("Cancel");
    window->openManager(Manager::LoadCases);
    EXPECT_EQ(workbench::unusedLoadCases(db()).size(), 1U);
    answers.then(wantDeletion).click("Delete");
    window->openManager(Manager::LoadCases);
    EXPECT_TRUE(workbench::unusedLoadCases(db()).empty());
    tagCDB_LC_CTRL record{};
    EXPECT_FALSE(mrl_lc_get(db(), 2, record));
    EXPECT_TRUE(mrl_lc_get(db(), 3, record));
    EXPECT_TRUE(window->document().isModified()) << "the file gets it with the next save";
}

TEST_F(WorkbenchExtras, ALoadCaseOfTheSummaryOpensTheManagerAtItsRow)
{
    open();
    auto* view = window->findChild<QTableView*>("table_loadcases");
    answers.then([](QWidget* dialog) {
        auto* table = dialog->findChild<QTableWidget*>("loadcase table");
        EXPECT_EQ(table->item(table->currentRow(), 0)->text(), "3");
        pressIn(dialog, "Cancel");
    });
    emit view->activated(view->model()->index(2, 1));
}

TEST_F(WorkbenchExtras, SavingWithFindingsOffersToShowThem)
{
    {
        const OtherProgram other(project.path());
        other.put(LC_KWH_CASES, 9, following("ZZ").title("Lost").record());
    }
    open();
    mrl_lc_remove(db(), 2);
    answers.click("Show findings");
    EXPECT_FALSE(window->slot_save());
    EXPECT_TRUE(window->findChild<QTableView*>("table_findings")->isVisible());
    answers.click("Save");
    EXPECT_TRUE(window->slot_save());
    EXPECT_EQ(answers.boxes().front().text, "The project has one finding.");
}

TEST_F(WorkbenchExtras, AProjectThatIsDroppedIsOpened)
{
    window.emplace();
    window->show();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(project.path())});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&*window, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&*window, &drop);
    EXPECT_EQ(window->document().file(), project.path());
}

TEST(AcceptedChanges, CountWhatCameChangedAndWent)
{
    workbench::ProjectSummary before;
    before.loadCases = {{1, following("G").record()}, {2, following("G").record()}};
    workbench::ProjectSummary after;
    after.loadCases = {{2, following("G").title("Other").record()}, {3, following("G").record()}};
    EXPECT_EQ(workbench::changesInNumbers(before, after), "Load cases: 1 new, 1 changed, 1 deleted.");
    EXPECT_EQ(workbench::changesInNumbers(before, before), "");
}

} // namespace

} // namespace mrl::test
