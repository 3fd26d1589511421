// Other files than the one that is open: "Save as", a project that may only be read, how files are shown.
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include "lcdata/load_cases.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/main_window.h"
#include "workbench/recent_files.h"

namespace mrl::test {

namespace {

using workbench::MainWindow;

/// Somebody without rights on what belongs to others, as long as this lives; a superuser may write
/// everything.
class Nobody
{
  public:
    Nobody()
    {
        // The saved id stays, so that there is a way back.
        if (geteuid() == 0) {
            m_changed = setresuid(65534, 65534, 0) == 0;
        }
    }
    ~Nobody()
    {
        if (m_changed && setresuid(0, 0, 0) != 0) {
            ADD_FAILURE() << "the rights do not come back";
        }
    }
    Nobody(const Nobody&) = delete;
    Nobody& operator=(const Nobody&) = delete;

  private:
    bool m_changed = false;
};

class SavingAsTest : public ::testing::Test
{
  protected:
    SavingAsTest() { window.show(); }

    /// Types a name into the dialog that asks for the file.
    void answerFile(const QString& file)
    {
        answers.then([file](QWidget* dialog) {
            ASSERT_NE(qobject_cast<QFileDialog*>(dialog), nullptr);
            auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(file);
            QTest::keyClick(name, Qt::Key_Return);
        });
    }
    void change() { mrl_lc_set_current(window.document().database(), 7); }
    QString place() { return window.findChild<QLabel*>(QStringLiteral("place"))->text(); }

    ProjectFile project;
    ModalAnswers answers;
    MainWindow window;
};

} // namespace

TEST_F(SavingAsTest, MakesAnotherFileAndGoesOnWithIt)
{
    ASSERT_TRUE(window.openProject(project.path()));
    change();
    answerFile(project.path(QStringLiteral("variant")));
    EXPECT_TRUE(window.slot_saveAs());
    const QString variant = project.path(QStringLiteral("variant.cdb"));
    EXPECT_EQ(window.document().file(), variant) << "the ending is added";
    EXPECT_EQ(window.windowTitle(), QStringLiteral("variant.cdb[*] - Marlavon Workbench"));
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(workbench::RecentFiles::list().first(), variant);
    EXPECT_EQ(mrl_lc_current(OtherProgram(variant).db()), 7);
    EXPECT_NE(mrl_lc_current(OtherProgram(project.path()).db()), 7) << "the first file stays as it was";
}

TEST_F(SavingAsTest, GivenUpLeavesTheProjectUnsaved)
{
    ASSERT_TRUE(window.openProject(project.path()));
    change();
    answers.then([](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->reject(); });
    EXPECT_FALSE(window.slot_saveAs());
    EXPECT_EQ(window.document().file(), project.path());
    EXPECT_TRUE(window.document().isModified());
    mrl_lc_set_current(window.document().database(), 0);
}

TEST_F(SavingAsTest, AProjectThatMayOnlyBeReadSaysSoAndIsSavedElsewhere)
{
    ASSERT_EQ(chmod(QFile::encodeName(project.path()).constData(), 0444), 0);
    ASSERT_EQ(chmod(QFile::encodeName(project.path(QStringLiteral("."))).constData(), 0755), 0);
    {
        const Nobody nobody;
        ASSERT_TRUE(window.openProject(project.path()));
    }
    EXPECT_EQ(window.windowTitle(), QStringLiteral("tower.cdb[*] (read-only) - Marlavon Workbench"));
    EXPECT_EQ(window.statusBar()->currentMessage(), QStringLiteral("The file or its folder is read-only."));
    change();
    answerFile(project.path(QStringLiteral("mine.cdb")));
    EXPECT_TRUE(window.slot_save());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("mine.cdb[*] - Marlavon Workbench"));
    EXPECT_EQ(mrl_lc_current(OtherProgram(project.path(QStringLiteral("mine.cdb"))).db()), 7);
}

TEST_F(SavingAsTest, TheMenuOfRecentProjectsOpensThem)
{
    const QString other = project.path(QStringLiteral("bridge.cdb"));
    ASSERT_TRUE(QFile::copy(project.path(), other));
    ASSERT_TRUE(window.openProject(project.path()));
    ASSERT_TRUE(window.openProject(other));
    auto* fileMenu = window.menuBar()->actions().first()->menu();
    emit fileMenu->aboutToShow();
    QMenu* recent = nullptr;
    for (QAction* entry : fileMenu->actions()) {
        recent = entry->menu() ? entry->menu() : recent;
    }
    ASSERT_NE(recent, nullptr);
    ASSERT_GE(recent->actions().size(), 2);
    EXPECT_EQ(recent->actions().at(0)->text(), QStringLiteral("bridge.cdb"));
    EXPECT_EQ(recent->actions().at(1)->text(), QStringLiteral("tower.cdb"));
    recent->actions().at(1)->trigger();
    EXPECT_EQ(window.document().file(), project.path());
}

TEST_F(SavingAsTest, TheHomeFolderIsShownShort)
{
    const QString home = QDir::homePath();
    EXPECT_EQ(workbench::shownPath(home + QStringLiteral("/towers/a.cdb")), QStringLiteral("~/towers/a.cdb"));
    EXPECT_EQ(workbench::shownPath(home), QStringLiteral("~"));
    EXPECT_EQ(workbench::shownPath(home + QStringLiteral("land/a.cdb")), home + QStringLiteral("land/a.cdb"));
    ASSERT_TRUE(window.openProject(project.path()));
    EXPECT_EQ(place(), workbench::shownPath(project.path()));
}

} // namespace mrl::test
