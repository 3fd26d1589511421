// The history of the open project in the window: menu, panel, what a step changed, and a file that changed meanwhile.
#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTest>

#include "lcdata/load_cases.h"
#include "lcdata/values/packed_text.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "tests/workbench/table_typing.h"
#include "workbench/document_history.h"
#include "workbench/main_window.h"
#include "workbench/steps/shown_changes.h"
#include "workbench/wanted_extras.h"

namespace mrl::test {

namespace {

using workbench::DocumentHistory;
using workbench::MainWindow;
using workbench::Manager;

class Steps : public ::testing::Test
{
  protected:
    Steps()
    {
        workbench::storeExtras(true);
        {
            const OtherProgram other(project.path());
            other.put(LC_KWH_CASES, 1, following("G").title("Dead").record());
            other.put(LC_KWH_CASES, 2, following("G").title("Wind").record());
        }
        window.emplace();
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&*window));
        EXPECT_TRUE(window->openProject(project.path()));
    }
    ~Steps() override { workbench::storeExtras(false); }

    workbench::Document& document() const { return *window->findChild<workbench::Document*>(); }
    int db() const { return window->document().database(); }
    bool has(int number) const
    {
        tagCDB_LC_CTRL record{};
        return mrl_lc_get(db(), number, record);
    }
    void remove(int number)
    {
        document().runStep("Deletion", [=] { mrl_lc_remove(db(), number); });
    }
    template <class Child>
    Child* child(const char* name) const
    {
        return window->findChild<Child*>(QLatin1String(name));
    }
    QStringList listed() const
    {
        QStringList texts;
        const auto* list = child<QListWidget>("list_steps");
        for (int i = 0; i < list->count(); ++i) {
            texts << list->item(i)->text();
        }
        return texts;
    }
    /// The cells of the table in a window, row by row.
    static QList<QStringList> cells(QWidget* dialog)
    {
        const auto* model = dialog->findChild<QTableView*>("table_changes")->model();
        QList<QStringList> rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < model->columnCount(); ++column) {
                texts << model->index(row, column).data().toString();
            }
            rows << texts;
        }
        return rows;
    }
    static void change(const QString& path)
    {
        const OtherProgram other(path);
        other.put(LC_KWH_CASES, 1, following("G").title("Theirs").record());
    }

    ProjectFile project{QStringLiteral("en1990"), true};
    ModalAnswers answers;
    std::optional<MainWindow> window;
};

TEST_F(Steps, TheEditMenuUndoesAndDoesAgainByItsKeys)
{
    remove(2);
    EXPECT_EQ(child<QAction>("action_undo")->text().remove('&'), "Undo: Deletion");
    QTest::keyClick(&*window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(has(2));
    EXPECT_FALSE(window->document().isModified());
    EXPECT_FALSE(child<QAction>("action_undo")->isEnabled());
    QTest::keyClick(&*window, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_FALSE(has(2));
    QTest::keyClick(&*window, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&*window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(has(2));
}

TEST_F(Steps, ThePanelListsThemAndGoesToAnyOfThem)
{
    remove(1);
    remove(2);
    auto* list = child<QListWidget>("list_steps");
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->currentRow(), 2);
    EXPECT_TRUE(listed()[1].endsWith("Deletion (records: 1)")) << listed()[1].toStdString();
    list->setCurrentRow(0);
    child<QPushButton>("button_go_to_step")->click();
    EXPECT_TRUE(has(1) && has(2));
    EXPECT_TRUE(listed()[2].endsWith("undone"));
    EXPECT_TRUE(window->slot_save());
    EXPECT_EQ(list->count(), 3) << "saving ends nothing";
}

TEST_F(Steps, AnAcceptanceListsOldAndNewValuesAndWhatNobodyEdited)
{
    answers.then([](QWidget* dialog) {
        QTableWidget* table = frontTable(dialog);
        int row = 0;
        while (row < table->rowCount() && table->item(row, 0)->text() != "2") {
            ++row;
        }
        ASSERT_LT(row, table->rowCount());
        typeOver(table, row, 1, "Storm");
        QTest::mouseClick(ModalAnswers::buttonOf(dialog, "OK"), Qt::LeftButton);
    });
    window->openManager(Manager::LoadCases);
    ASSERT_EQ(document().history().steps().size(), 1u);
    answers.then([](QWidget* dialog) {
        const auto rows = cells(dialog);
        bool found = false;
        for (const QStringList& row : rows) {
            if (row[0] == "Load case 2" && row[2] == "Wind") {
                EXPECT_EQ(row[3], "Storm");
                EXPECT_EQ(row[4], QString()) << "it was edited";
                found = true;
            } else {
                EXPECT_EQ(row[4], "rewritten by the acceptance, edited by nobody") << row[0].toStdString();
            }
        }
        EXPECT_TRUE(found);
        qobject_cast<QDialog*>(dialog)->reject();
    });
    child<QPushButton>("button_step_changes")->click();
}

TEST_F(Steps, ARecordThatIsRewrittenWithoutAnEditIsMarkedAndCounted)
{
    const auto record = [](const char* title) {
        const tagCDB_LC_CTRL stored = following("G").title(title).record();
        return std::vector<std::string>{{reinterpret_cast<const char*>(&stored), sizeof stored}};
    };
    const std::vector<DocumentHistory::Change> changes{
        {{LC_KWH_CASES, 1}, QString(), record("a"), record("b")},
        {{LC_KWH_CASES, 2}, QString(), record("c"), record("d")},
        {{LC_KWH_CASES, 3}, QString(), record("e"), {}},
        {{}, "designcode", {"x"}, {"y"}},
    };
    const DocumentHistory::Keys edited{{LC_KWH_CASES, 1}};
    EXPECT_EQ(workbench::rewrittenCount(changes, edited), 1);
    const auto shown = workbench::shownChanges(changes, edited);
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown[0].subject, "Load case 1");
    EXPECT_EQ(shown[0].before, "a");
    EXPECT_EQ(shown[0].after, "b");
    EXPECT_EQ(shown[0].note, QString());
    EXPECT_NE(shown[1].note, QString());
    EXPECT_EQ(shown[2].value, "deleted");
    EXPECT_EQ(shown[2].note, QString()) << "a deletion was somebody's";
    EXPECT_EQ(shown[3].subject, "Fact designcode");
    EXPECT_EQ(workbench::shownChanges(changes, std::nullopt)[1].note, QString());
}

TEST_F(Steps, AFileThatChangedMeanwhileListsWhereItDiffersAndReloadsAsAStep)
{
    remove(2);
    change(project.path());
    answers.then([](QWidget* dialog) {
        const auto rows = cells(dialog);
        ASSERT_EQ(rows.size(), 2);
        EXPECT_EQ(rows[0].mid(0, 4), QStringList({"Load case 1", rows[0][1], "Theirs", "Dead"}));
        EXPECT_EQ(rows[1].mid(0, 2), QStringList({"Load case 2", "deleted"}));
        QTest::mouseClick(ModalAnswers::buttonOf(dialog, "Reload"), Qt::LeftButton);
    });
    EXPECT_FALSE(window->slot_save());
    EXPECT_TRUE(has(2));
    EXPECT_FALSE(window->document().isModified());
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&*window));
    QTest::keyClick(&*window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(has(2)) << "what was given up is back";
    EXPECT_TRUE(window->slot_save()) << "and no conflict, since the file's changes were seen";
}

TEST_F(Steps, AConflictIsSolvedByAnotherName)
{
    remove(2);
    change(project.path());
    const auto clickSaveAs = [](QWidget* dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton*>("button_save_as"), Qt::LeftButton);
    };
    answers.then(clickSaveAs).key(Qt::Key_Escape);
    QTest::keyClick(&*window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(window->document().file(), project.path()) << "no name was given";
    EXPECT_TRUE(window->document().isModified());

    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&*window));
    answers.then(clickSaveAs).then([this](QWidget* dialog) {
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(name, nullptr);
        name->selectAll();
        QTest::keyClicks(name, project.path("mine.cdb"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    QTest::keyClick(&*window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(window->document().file(), project.path("mine.cdb"));
    EXPECT_FALSE(window->document().isModified());
    EXPECT_FALSE(OtherProgram(project.path("mine.cdb")).has(LC_KWH_CASES, 2));
    const OtherProgram theirs(project.path());
    EXPECT_TRUE(theirs.has(LC_KWH_CASES, 2)) << "the first file is the other program's";
    tagCDB_LC_CTRL record{};
    ASSERT_TRUE(mrl_lc_get(theirs.db(), 1, record));
    EXPECT_EQ(lcm_title_text(record.title), "Theirs");
}

TEST_F(Steps, AConflictIsLeftByEscOrOverwritten)
{
    remove(2);
    change(project.path());
    answers.key(Qt::Key_Escape);
    EXPECT_FALSE(window->slot_save());
    EXPECT_TRUE(window->document().isModified());
    answers.click("Overwrite");
    EXPECT_TRUE(window->slot_save());
    EXPECT_FALSE(OtherProgram(project.path()).has(LC_KWH_CASES, 2));
}

} // namespace

} // namespace mrl::test
