// How the program is started, and what its settings change in the managers.
#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
#include <QProcess>
#include <QTableWidget>
#include <QTest>

#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/main_window.h"

namespace mrl::test {

namespace {

using workbench::MainWindow;
using workbench::Manager;

/// What the program answers to its command line. @return its exit code, -1 when it did not end by itself
/// @param said [out] on standard error. @param told [out] on standard output
int run(const QStringList& arguments, QString* said = nullptr, QString* told = nullptr)
{
    QProcess program;
    program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/mrl-workbench"), arguments);
    const bool ended = program.waitForFinished(60000);
    if (said) {
        *said = QString::fromUtf8(program.readAllStandardError());
    }
    if (told) {
        *told = QString::fromUtf8(program.readAllStandardOutput());
    }
    return ended && program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
}

class RunModesTest : public ::testing::Test
{
  protected:
    RunModesTest()
    {
        window.show();
        EXPECT_TRUE(window.openProject(project.path()));
    }
    /// Switches a setting over, as a person does.
    void toggle(const char* name)
    {
        answers.then([name](QWidget* dialog) {
            QTest::keyClick(dialog->findChild<QCheckBox*>(QLatin1String(name)), Qt::Key_Space);
            QTest::mouseClick(ModalAnswers::buttonOf(dialog, QStringLiteral("OK")), Qt::LeftButton);
        });
        window.slot_settings();
    }
    void inActionManager(const std::function<void(QWidget*)>& look)
    {
        answers.then([look](QWidget* dialog) {
            look(dialog);
            qobject_cast<QDialog*>(dialog)->reject();
        });
        window.openManager(Manager::Actions);
    }
    bool offersAddAll()
    {
        bool offered = false;
        inActionManager([&offered](QWidget* dialog) {
            const auto* button = dialog->findChild<QAbstractButton*>(QStringLiteral("button_add_all"));
            offered = button && button->isVisible();
        });
        return offered;
    }
    bool offersOwnActions()
    {
        bool offered = false;
        inActionManager([this, &offered](QWidget* dialog) {
            answers.then([&offered](QWidget* create) {
                offered = ModalAnswers::buttonOf(create, QStringLiteral("User defined action")) != nullptr;
                qobject_cast<QDialog*>(create)->reject();
            });
            QTest::mouseClick(dialog->findChild<QAbstractButton*>(QStringLiteral("button_new")),
                              Qt::LeftButton);
        });
        return offered;
    }

    ProjectFile project;
    ModalAnswers answers;
    MainWindow window;
};

} // namespace

TEST(CommandLine, AnUnknownOptionEndsWithTwoAndItsNameAndTheUsage)
{
    for (const char* option : {"--bogus", "-b"}) {
        QString said;
        EXPECT_EQ(run({QLatin1String(option)}, &said), 2);
        EXPECT_TRUE(said.contains(QStringLiteral("mrl-workbench: Unknown option 'b"))) << said.toStdString();
        EXPECT_TRUE(said.contains(QStringLiteral("--manager <actions|loadcases>"))) << said.toStdString();
    }
}

TEST(CommandLine, AnOptionWithoutItsValueEndsWithTwo)
{
    QString said;
    EXPECT_EQ(run({QStringLiteral("--manager")}, &said), 2);
    EXPECT_TRUE(said.contains(QStringLiteral("mrl-workbench: Missing value after '--manager'")))
        << said.toStdString();
}

TEST(CommandLine, AnUnknownManagerEndsWithTwoAndTheUsage)
{
    QString said;
    EXPECT_EQ(run({QStringLiteral("--manager"), QStringLiteral("nodes")}, &said), 2);
    EXPECT_TRUE(said.contains(QStringLiteral("--manager <actions|loadcases>"))) << said.toStdString();
    EXPECT_TRUE(said.contains(QStringLiteral("mrl-workbench: There is no manager 'nodes'.\n")))
        << said.toStdString();
}

TEST(CommandLine, TwoProjectsEndWithTwo)
{
    QString said;
    EXPECT_EQ(run({QStringLiteral("a.cdb"), QStringLiteral("b.cdb")}, &said), 2);
    EXPECT_TRUE(said.contains(QStringLiteral("mrl-workbench: Only one project"))) << said.toStdString();
}

TEST(CommandLine, HelpAndVersionAreNoErrors)
{
    QString said;
    QString told;
    EXPECT_EQ(run({QStringLiteral("--help")}, &said, &told), 0);
    EXPECT_TRUE(told.contains(QStringLiteral("--manager <actions|loadcases>"))) << told.toStdString();
    EXPECT_FALSE(said.contains(QStringLiteral("--manager"))) << said.toStdString();
    EXPECT_EQ(run({QStringLiteral("--version")}, &said, &told), 0);
    EXPECT_TRUE(told.startsWith(QStringLiteral("mrl-workbench 1."))) << told.toStdString();
}

TEST(CommandLine, HelpAndVersionAreToldWhereThereIsNoDisplay)
{
    for (const char* question : {"--help", "-h", "--version", "-v"}) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(QLatin1String(display));
        }
        program.setProcessEnvironment(environment);
        program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/mrl-workbench"),
                      {QLatin1String(question)});
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << question;
        EXPECT_EQ(program.exitCode(), 0) << question;
        EXPECT_TRUE(program.readAllStandardOutput().contains("mrl-workbench")) << question;
    }
}

TEST_F(RunModesTest, ExperimentalFunctionsBringAddAllToTheActionManager)
{
    EXPECT_FALSE(offersAddAll());
    toggle("check_experimental");
    EXPECT_TRUE(offersAddAll());
    toggle("check_experimental");
    EXPECT_FALSE(offersAddAll());
}

TEST_F(RunModesTest, TheRestrictedRunOffersNoActionsOfTheUsersOwn)
{
    EXPECT_TRUE(offersOwnActions());
    toggle("check_restricted");
    EXPECT_FALSE(offersOwnActions());
    toggle("check_restricted");
    EXPECT_TRUE(offersOwnActions());
}

} // namespace mrl::test
