// The main window: opening, editing through the managers, saving, closing.
#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTest>
#include <QTextBrowser>

#include "lcdata/actions.h"
#include "lcdata/load_cases.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/main_window.h"
#include "workbench/recent_files.h"

namespace mrl::test {

using workbench::MainWindow;
using workbench::Manager;
using workbench::Managers;

class MainWindowTest : public ::testing::Test
{
  protected:
    MainWindowTest() { window.show(); }

    void open() { ASSERT_TRUE(window.openProject(project.path())); }
    bool modified() const { return window.document().isModified(); }
    QAction* command(const char* name) { return window.findChild<QAction*>(QLatin1String(name)); }

    /// Opens a manager and presses a button in it.
    void runManager(Manager which, const QString& button)
    {
        answers.then([button](QWidget* dialog) {
            ASSERT_EQ(dialog->objectName(), QStringLiteral("new loadcase manager"));
            QTest::mouseClick(ModalAnswers::buttonOf(dialog, button), Qt::LeftButton);
        });
        window.openManager(which);
    }
    /// Stores the default actions in the document, by way of the manager.
    void storeDefaultActions() { runManager(Manager::Actions, QStringLiteral("OK")); }
    bool fileHasActions() const { return OtherProgram(project.path()).has(LC_KWH_ACTIONS, codeOf("G")); }

    ProjectFile project;
    ModalAnswers answers;
    MainWindow window;
};

TEST(ManagersTest, ComeFromTheLibraryAtRunTime)
{
    const Managers managers;
    EXPECT_TRUE(managers.isLoaded()) << managers.reason().toStdString();
}

TEST_F(MainWindowTest, ShowsTheManualFromTheHelpMenu)
{
    command("action_manual")->trigger();
    auto* help = window.findChild<QTextBrowser*>(QStringLiteral("help browser"));
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_TRUE(help->toPlainText().startsWith(QStringLiteral("Manual")));
}

TEST_F(MainWindowTest, ShowsTheWaysToAProjectFirst)
{
    EXPECT_TRUE(window.findChild<QWidget*>(QStringLiteral("start"))->isVisible());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Marlavon Workbench"));
    EXPECT_FALSE(command("action_save")->isEnabled());
}

TEST_F(MainWindowTest, FitsTheScreenWithItsFrame)
{
    const QSize screen = window.screen()->availableSize();
    EXPECT_LT(window.width(), screen.width());
    EXPECT_LT(window.height(), screen.height());
}

TEST_F(MainWindowTest, OpenProjectIsShownWithItsTasks)
{
    open();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("tower.cdb[*] - Marlavon Workbench"));
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(window.findChild<QWidget*>(QStringLiteral("summary"))->isVisible());
    EXPECT_TRUE(window.findChild<QPushButton*>(QStringLiteral("task_actions"))->isEnabled());
    EXPECT_EQ(workbench::RecentFiles::list().first(), project.path());
}

TEST_F(MainWindowTest, TaskOpensItsManager)
{
    open();
    QString title;
    answers.then([&](QWidget* dialog) {
        title = dialog->windowTitle();
        qobject_cast<QDialog*>(dialog)->reject();
    });
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("task_actions")), Qt::LeftButton);
    EXPECT_EQ(title, QStringLiteral("Marlavon: Action Manager"));
    answers.then([&](QWidget* dialog) {
        title = dialog->windowTitle();
        qobject_cast<QDialog*>(dialog)->reject();
    });
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("task_loadcases")), Qt::LeftButton);
    EXPECT_EQ(title, QStringLiteral("Marlavon: Action and Loadcase Manager"));
}

TEST_F(MainWindowTest, AcceptedManagerChangesTheDocumentAndSavingTheFile)
{
    open();
    storeDefaultActions();
    EXPECT_TRUE(modified());
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_FALSE(fileHasActions());
    command("action_save")->trigger();
    EXPECT_FALSE(modified());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(fileHasActions());
}

TEST_F(MainWindowTest, ActionsStoredByTheLoadCaseManagerAreSavedToo)
{
    open();
    runManager(Manager::LoadCases, QStringLiteral("OK"));
    command("action_save")->trigger();
    EXPECT_TRUE(fileHasActions());
}

TEST_F(MainWindowTest, CancelledManagerLeavesNothingToSave)
{
    open();
    runManager(Manager::LoadCases, QStringLiteral("Cancel"));
    runManager(Manager::Actions, QStringLiteral("Cancel"));
    EXPECT_FALSE(modified());
    EXPECT_FALSE(command("action_save")->isEnabled());
}

TEST_F(MainWindowTest, CurrentLoadCaseIsSaved)
{
    open();
    storeDefaultActions();
    ASSERT_TRUE(
        mrl_lc_create_load_case(window.document().database(), 7, codeOf("G"), QStringLiteral("Dead")));
    mrl_lc_set_current(window.document().database(), 7);
    EXPECT_TRUE(window.slot_save());
    EXPECT_EQ(mrl_lc_current(OtherProgram(project.path()).db()), 7);
}

TEST_F(MainWindowTest, KeysOfOtherModulesInTheFileAreLeftAlone)
{
    open();
    storeDefaultActions();
    {
        const OtherProgram other(project.path());
        other.put(LC_KWH_ACTIONS, 17, tagCDB_LC_ACT{}); // superposition data
        other.put(40, 1, tagCDB_LC_ACT{});
    }
    EXPECT_TRUE(window.slot_save());
    EXPECT_TRUE(OtherProgram(project.path()).has(LC_KWH_ACTIONS, 17));
    EXPECT_TRUE(OtherProgram(project.path()).has(40, 1));
}

TEST_F(MainWindowTest, ManagersAreRefusedWithTheReasonWithoutADesignCode)
{
    ASSERT_TRUE(cdb::setFact(OtherProgram(project.path()).db(), "designcode", "gone-code"));
    open();
    EXPECT_FALSE(window.findChild<QPushButton*>(QStringLiteral("task_actions"))->isEnabled());
    auto* reason = window.findChild<QLabel*>(QStringLiteral("task_refusal"));
    EXPECT_TRUE(reason->isVisible());
    EXPECT_TRUE(reason->text().contains(QStringLiteral("gone-code"))) << reason->text().toStdString();
    answers.click(QStringLiteral("OK"));
    window.openManager(Manager::Actions);
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_TRUE(answers.boxes()[0].text.contains(QStringLiteral("gone-code")));
}

TEST_F(MainWindowTest, ClosingAsksAboutUnsavedChanges)
{
    open();
    storeDefaultActions();
    answers.click(QStringLiteral("Cancel"));
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    answers.click(QStringLiteral("Save"));
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(fileHasActions());
}

TEST_F(MainWindowTest, DiscardedChangesAreNotInTheFile)
{
    open();
    storeDefaultActions();
    answers.click(QStringLiteral("Discard"));
    window.slot_close();
    EXPECT_FALSE(window.document().isOpen());
    EXPECT_TRUE(window.findChild<QWidget*>(QStringLiteral("start"))->isVisible());
    EXPECT_FALSE(fileHasActions());
}

TEST_F(MainWindowTest, ClosingWithoutChangesAsksNothing)
{
    open();
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(answers.boxes().empty());
}

TEST_F(MainWindowTest, ChangesOfAnotherProgramAreNotOverwrittenUnasked)
{
    open();
    storeDefaultActions();
    tagCDB_LC_CTRL others = bareLoadCase().title(QStringLiteral("Theirs"));
    OtherProgram(project.path()).put(LC_KWH_CASES, 5, others);
    answers.click(QStringLiteral("Cancel"));
    EXPECT_FALSE(window.slot_save());
    EXPECT_TRUE(OtherProgram(project.path()).has(LC_KWH_CASES, 5));
    EXPECT_FALSE(fileHasActions());
    answers.click(QStringLiteral("Overwrite"));
    EXPECT_TRUE(window.slot_save());
    EXPECT_FALSE(OtherProgram(project.path()).has(LC_KWH_CASES, 5));
    EXPECT_TRUE(fileHasActions());
}

TEST_F(MainWindowTest, FileThatIsNoProjectIsRefusedAndThePresentOneStays)
{
    open();
    const QString letter = project.path(QStringLiteral("letter.cdb"));
    QFile file(letter);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a letter to somebody");
    file.close();
    answers.click(QStringLiteral("OK"));
    EXPECT_FALSE(window.openProject(letter));
    EXPECT_TRUE(answers.boxes()[0].text.contains(QStringLiteral("letter.cdb")));
    EXPECT_EQ(window.document().file(), project.path());
}

TEST_F(MainWindowTest, NewProjectThatCannotBeMadeIsAskedForAgainAndThePresentOneStays)
{
    open();
    const QString good = project.path(QStringLiteral("second.cdb"));
    const auto wish = [](const QString& file) {
        return [file](QWidget* dialog) {
            auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("edit_file"));
            ASSERT_NE(edit, nullptr);
            edit->setText(file);
            QTest::mouseClick(ModalAnswers::buttonOf(dialog, QStringLiteral("Create")), Qt::LeftButton);
        };
    };
    answers.then(wish(QStringLiteral("/nowhere/first.cdb")));
    answers.click(QStringLiteral("OK"));
    answers.then([&](QWidget* dialog) {
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("edit_file"));
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(edit->text(), QStringLiteral("/nowhere/first.cdb"));
        EXPECT_EQ(window.document().file(), project.path());
        wish(good)(dialog);
    });
    window.slot_new();
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].text,
              QStringLiteral("There is no such file or folder.\n\n/nowhere/first.cdb"));
    EXPECT_EQ(window.document().file(), good);
}

TEST_F(MainWindowTest, NewProjectMayReplaceTheOneThatIsOpen)
{
    open();
    storeDefaultActions();
    ASSERT_TRUE(window.slot_save());
    answers.then([this](QWidget* dialog) {
        dialog->findChild<QLineEdit*>(QStringLiteral("edit_file"))->setText(project.path());
        QTest::mouseClick(ModalAnswers::buttonOf(dialog, QStringLiteral("Create")), Qt::LeftButton);
    });
    answers.click(QStringLiteral("Yes"));
    window.slot_new();
    EXPECT_EQ(window.document().file(), project.path());
    EXPECT_FALSE(fileHasActions());
}

TEST_F(MainWindowTest, NewProjectIsProposedInAFolderThatExists)
{
    answers.then([](QWidget* dialog) {
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("edit_file"));
        EXPECT_TRUE(QFileInfo(QFileInfo(edit->text()).path()).isDir()) << edit->text().toStdString();
        qobject_cast<QDialog*>(dialog)->reject();
    });
    window.slot_new();
}

TEST_F(MainWindowTest, ItsPlaceAndSizeAreKeptForTheNextRun)
{
    window.setGeometry(10, 0, 760, 555);
    window.close();
    const MainWindow next;
    EXPECT_EQ(next.size(), QSize(760, 555));
    EXPECT_EQ(next.x(), window.x());
    QSettings().remove("Workbench/geometry");
}

TEST_F(MainWindowTest, MissingDesignCodeIsNamed)
{
    ASSERT_TRUE(cdb::setFact(OtherProgram(project.path()).db(), "designcode", "gone-code"));
    open();
    EXPECT_EQ(window.document().designCodeFailure(),
              QStringLiteral("there is no design code \"gone-code\" in the folders that are searched"));
}

TEST_F(MainWindowTest, WaitCursorShowsWhileAFileIsReadOrWrittenAndNoLonger)
{
    std::vector<bool> waiting;
    const auto note = [&] { waiting.push_back(QGuiApplication::overrideCursor() != nullptr); };
    QObject::connect(&window.document(), &workbench::Document::replaced, &window, note);
    QObject::connect(&window.document(), &workbench::Document::changed, &window, note);
    open();
    EXPECT_EQ(waiting, std::vector<bool>{true});
    storeDefaultActions();
    waiting.clear();
    EXPECT_TRUE(window.slot_save());
    EXPECT_EQ(waiting, std::vector<bool>{true});
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindowTest, AboutShowsTheVersion)
{
    QCoreApplication::setApplicationVersion(QStringLiteral("7.8.9"));
    answers.click(QStringLiteral("OK"));
    window.slot_about();
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_TRUE(answers.boxes()[0].text.contains(QStringLiteral("Marlavon Workbench 7.8.9")))
        << answers.boxes()[0].text.toStdString();
}

TEST_F(MainWindowTest, GeneratedInputEchoesTheActions)
{
    open();
    auto* text = window.findChild<QPlainTextEdit*>(QStringLiteral("text_input"));
    EXPECT_TRUE(text->toPlainText().split('\n').contains(QStringLiteral("ECHO ACT")));
    EXPECT_TRUE(text->isReadOnly());
}

} // namespace mrl::test
