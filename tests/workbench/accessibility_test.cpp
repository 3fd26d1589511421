// Every window of the workbench as a screen reader finds it.
#include <QStackedWidget>
#include <QTabWidget>

#include "tests/support/accessible_names.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/document_history.h"
#include "workbench/main_window.h"
#include "workbench/new_project_dialog.h"
#include "workbench/settings_dialog.h"
#include "workbench/steps/changes_dialog.h"
#include "workbench/steps/history_panel.h"

namespace mrl::test {

namespace {

using workbench::MainWindow;

class AccessibleNames : public ::testing::Test
{
  protected:
    static void look(QWidget* window)
    {
        window->show();
        QCoreApplication::processEvents();
        EXPECT_EQ(namelessIn(window), "") << window->windowTitle().toStdString();
    }
    /// All pages of all tabs within a window.
    static void lookAtAllTabs(QWidget* window)
    {
        look(window);
        for (auto* tabs : window->findChildren<QTabWidget*>()) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                tabs->setCurrentIndex(tab);
                look(window);
            }
        }
    }

    ProjectFile project{QStringLiteral("en1990"), true};
    MainWindow window;
};

TEST_F(AccessibleNames, StandAtEveryControlOfTheStartPage) { look(&window); }

TEST_F(AccessibleNames, StandAtEveryControlOfAProject)
{
    ASSERT_TRUE(window.openProject(project.path()));
    window.findChild<workbench::HistoryPanel*>()->show();
    lookAtAllTabs(&window);
}

TEST_F(AccessibleNames, StandAtEveryControlOfTheDialogs)
{
    workbench::SettingsDialog settings(&window);
    look(&settings);
    workbench::NewProjectDialog create(QStringLiteral("/tmp"), &window);
    look(&create);
    workbench::ChangesDialog changes(QStringLiteral("Step"), {{"Load case 1", "title", "a", "b", {}}},
                                     &window);
    look(&changes);
    workbench::ConflictDialog conflict({{"Load case 1", "title", "a", "b", {}}}, &window);
    look(&conflict);
}

} // namespace

} // namespace mrl::test
