// The page before a project is open: its links, by mouse and by keyboard.
#include <QCommandLinkButton>
#include <QLabel>
#include <QTest>

#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/main_window.h"
#include "workbench/recent_files.h"

namespace mrl::test {

using workbench::MainWindow;

class StartPageTest : public ::testing::Test
{
  protected:
    StartPageTest()
    {
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
    }

    QCommandLinkButton* link(const char* name)
    {
        return window.findChild<QCommandLinkButton*>(QLatin1String(name));
    }
    /// The title of the window that opens next, which is closed again.
    void noteTitle(QString& title)
    {
        answers.then([&title](QWidget* dialog) {
            title = dialog->windowTitle();
            qobject_cast<QDialog*>(dialog)->reject();
        });
    }
    /// Whoever has the focus of the window, whether or not a dialog has just taken it.
    QWidget* focus() { return window.focusWidget(); }
    /// The link to a recent project that the page shows now.
    QLabel* recent(const QString& file)
    {
        QApplication::processEvents(); // what is new on the page shows up
        for (auto* label : window.findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(file)) {
                return label;
            }
        }
        return nullptr;
    }

    ProjectFile project;
    ModalAnswers answers;
    MainWindow window;
};

TEST_F(StartPageTest, NewProjectOpensTheDialogForOne)
{
    QString title;
    noteTitle(title);
    QTest::mouseClick(link("start_new"), Qt::LeftButton);
    EXPECT_EQ(title, QStringLiteral("New project"));
}

TEST_F(StartPageTest, OpenProjectAsksForTheFile)
{
    QString title;
    noteTitle(title);
    QTest::mouseClick(link("start_open"), Qt::LeftButton);
    EXPECT_EQ(title, QStringLiteral("Open project"));
}

TEST_F(StartPageTest, KeyboardBeginsAtTheFirstLinkAndEnterFollowsIt)
{
    ASSERT_EQ(focus(), link("start_new"));
    QString title;
    noteTitle(title);
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_EQ(title, QStringLiteral("New project"));
    QTest::keyClick(focus(), Qt::Key_Tab);
    ASSERT_EQ(focus(), link("start_open"));
    noteTitle(title);
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_EQ(title, QStringLiteral("Open project"));
}

TEST_F(StartPageTest, RecentProjectIsOpenedByItsLink)
{
    ASSERT_TRUE(window.openProject(project.path()));
    window.slot_close();
    QLabel* label = recent(project.path());
    ASSERT_NE(label, nullptr);
    label->setFocus();
    QTest::keyClick(label, Qt::Key_Tab); // from the label to its link
    QTest::keyClick(label, Qt::Key_Return);
    EXPECT_EQ(window.document().file(), project.path());
}

TEST_F(StartPageTest, KeyboardGoesOnAtTheTasksOfTheOpenedProject)
{
    ASSERT_TRUE(window.openProject(project.path()));
    ASSERT_EQ(focus(), link("task_actions"));
    QString title;
    noteTitle(title);
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_EQ(title, QStringLiteral("Marlavon: Action Manager"));
}

} // namespace mrl::test
