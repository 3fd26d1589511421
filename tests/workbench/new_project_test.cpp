// Making project files, and the dialog that asks for one.
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTest>

#include "lcdata/actions.h"
#include "lcdata/system_record.h"
#include "lcdata/values/system_words.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/new_project_dialog.h"

namespace mrl::test {

using workbench::createProject;
using workbench::NewProject;
using workbench::NewProjectDialog;

namespace {

NewProject wishFor(const QTemporaryDir& folder)
{
    NewProject wish;
    wish.file = folder.filePath(QStringLiteral("new.cdb"));
    wish.designCode = QStringLiteral("en1990");
    return wish;
}

} // namespace

TEST(NewProject, CarriesDesignCodeSystemAndGravity)
{
    const QTemporaryDir folder;
    NewProject wish = wishFor(folder);
    wish.systemClass = LC_SYSTEM_PLATE;
    wish.gravity = -2;
    ASSERT_EQ(createProject(wish), QString());
    const OtherProgram project(wish.file);
    EXPECT_EQ(cdb::fact(project.db(), "designcode"), "en1990");
    EXPECT_EQ(lcm_system_class(project.db()), 3) << "raw class 20 is a plate";
    EXPECT_EQ(lcm_gravity_direction(project.db()), -2);
}

TEST(NewProject, HasNoActionsUnlessTheyAreWanted)
{
    const QTemporaryDir folder;
    NewProject wish = wishFor(folder);
    ASSERT_EQ(createProject(wish), QString());
    EXPECT_FALSE(OtherProgram(wish.file).has(LC_KWH_ACTIONS, codeOf("G")));
    wish.withDefaultActions = true;
    ASSERT_EQ(createProject(wish), QString());
    const OtherProgram project(wish.file);
    std::vector<int> codes;
    mrl_lc_get_default_action_list(project.db(), codes);
    ASSERT_FALSE(codes.empty());
    for (const int code : codes) {
        EXPECT_TRUE(project.has(LC_KWH_ACTIONS, code));
    }
}

TEST(NewProject, TakesThePlaceOfAnotherProject)
{
    const QTemporaryDir folder;
    const NewProject wish = wishFor(folder);
    ASSERT_EQ(createProject(wish), QString());
    OtherProgram(wish.file).put(LC_KWH_CASES, 1, tagCDB_LC_CTRL{});
    ASSERT_EQ(createProject(wish), QString());
    EXPECT_FALSE(OtherProgram(wish.file).has(LC_KWH_CASES, 1));
}

TEST(NewProject, LeavesAFileThatIsNoProjectAlone)
{
    const QTemporaryDir folder;
    const NewProject wish = wishFor(folder);
    QFile file(wish.file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a letter to somebody");
    file.close();
    EXPECT_TRUE(createProject(wish).contains(wish.file));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("a letter to somebody"));
}

TEST(NewProject, SaysWhyItCannotBeMade)
{
    NewProject wish;
    wish.file = QStringLiteral("/nowhere/new.cdb");
    wish.designCode = QStringLiteral("en1990");
    EXPECT_TRUE(createProject(wish).contains(QStringLiteral("/nowhere")));
}

class NewProjectDialogTest : public ::testing::Test
{
  protected:
    NewProjectDialogTest() { dialog.show(); }
    template <class Widget>
    Widget* find(const char* name)
    {
        return dialog.findChild<Widget*>(QLatin1String(name));
    }

    QTemporaryDir folder;
    NewProjectDialog dialog{folder.path(), nullptr};
};

TEST_F(NewProjectDialogTest, OffersTheShippedDesignCodesByTheirLabels)
{
    auto* codes = find<QComboBox>("combo_designcode");
    EXPECT_GE(codes->count(), 7);
    EXPECT_GE(codes->findData(QStringLiteral("en1990")), 0);
    EXPECT_LT(codes->findText(QStringLiteral("en1990")), 0) << "people read the label";
}

TEST_F(NewProjectDialogTest, ProposesAFreeFileAndAddsTheEnding)
{
    auto* file = find<QLineEdit>("edit_file");
    EXPECT_TRUE(file->text().startsWith(folder.path()));
    file->selectAll();
    QTest::keyClicks(file, folder.filePath(QStringLiteral("bridge")));
    EXPECT_EQ(dialog.wish().file, folder.filePath(QStringLiteral("bridge.cdb")));
}

TEST_F(NewProjectDialogTest, GravityFollowsTheSystem)
{
    EXPECT_EQ(dialog.wish().gravity, -3);
    auto* system = find<QComboBox>("combo_system");
    system->setFocus();
    QTest::keyClick(system, Qt::Key_Down);
    EXPECT_EQ(dialog.wish().systemClass, LC_SYSTEM_PLANE);
    EXPECT_EQ(dialog.wish().gravity, -2);
    QTest::keyClick(system, Qt::Key_Down);
    EXPECT_EQ(dialog.wish().systemClass, LC_SYSTEM_PLATE);
    EXPECT_EQ(dialog.wish().gravity, -3);
}

TEST_F(NewProjectDialogTest, AsksBeforeAFileIsReplaced)
{
    ASSERT_EQ(createProject(dialog.wish()), QString());
    ModalAnswers answers;
    answers.click(QStringLiteral("No"));
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    answers.click(QStringLiteral("Yes"));
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

} // namespace mrl::test
