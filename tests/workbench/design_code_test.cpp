// Another design code for the open project, and the question about the copy that it keeps.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <fstream>

#include "hostlib/data/designcode/kept.h"
#include "lcdata/load_cases.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/system_record.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/designcode/recode_model.h"
#include "workbench/document_history.h"
#include "workbench/main_window.h"
#include "workbench/wanted_extras.h"

namespace mrl::test {

using workbench::MainWindow;
using workbench::RecodeModel;

class WorkbenchDesignCode : public ::testing::Test
{
  protected:
    WorkbenchDesignCode() : project(QStringLiteral("en1990"), true)
    {
        workbench::storeExtras(true);
        window.show();
    }
    ~WorkbenchDesignCode() override { workbench::storeExtras(false); }

    void open() { ASSERT_TRUE(window.openProject(project.path())); }
    int db() const { return window.document().database(); }
    float psi0(const char* action) const { return lcm_stored_action(db(), codeOf(action))->record.psi0; }
    void trigger(const char* action) { window.findChild<QAction*>(QLatin1String(action))->trigger(); }

    static void choose(QWidget* dialog, const char* combo, const QString& text)
    {
        auto* box = dialog->findChild<QComboBox*>(QLatin1String(combo));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = 0; i < box->count() && box->currentText() != text; ++i) {
            QTest::keyClick(box, Qt::Key_Down);
        }
        EXPECT_EQ(box->currentText(), text);
    }
    /// The text of the plan in the row of an action.
    static QString planned(QWidget* dialog, const QString& action, int column)
    {
        const auto* table = dialog->findChild<QTableView*>(QStringLiteral("table_plan"));
        return table->model()->index(rowOfPlan(table, action), column).data().toString();
    }
    static int rowOfPlan(const QTableView* table, const QString& action)
    {
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            if (table->model()->index(row, RecodeModel::Action).data().toString() == action) {
                return row;
            }
        }
        return -1;
    }
    static QString refusal(QWidget* dialog)
    {
        return dialog->findChild<QLabel*>(QStringLiteral("label_refusal"))->text();
    }
    static void press(QWidget* dialog, const QString& button)
    {
        QTest::mouseClick(ModalAnswers::buttonOf(dialog, button), Qt::LeftButton);
    }

    ProjectFile project;
    ModalAnswers answers;
    MainWindow window;
};

TEST_F(WorkbenchDesignCode, IsExchangedAsTheWindowTells)
{
    open();
    answers.then([](QWidget* dialog) {
        choose(dialog, "combo_designcode", QStringLiteral("bs-en1990-na"));
        EXPECT_EQ(planned(dialog, "W", RecodeModel::What), "takes the new default");
        EXPECT_EQ(planned(dialog, "W", RecodeModel::Changes), "Psi0 0.6 > 0.5");
        EXPECT_EQ(refusal(dialog), "");
        press(dialog, "OK");
    });
    trigger("action_recode");
    EXPECT_FLOAT_EQ(psi0("W"), 0.5f);
    EXPECT_EQ(cdb::fact(db(), "designcode"), "bs-en1990-na");
    EXPECT_TRUE(window.document().isModified());
    EXPECT_EQ(OtherProgram(project.path()).has(LC_KWH_ACTIONS, codeOf("W")), true);
    EXPECT_EQ(cdb::fact(OtherProgram(project.path()).db(), "designcode"), "en1990") << "not saved yet";
    ASSERT_TRUE(window.slot_save());
    EXPECT_FALSE(window.document().isModified());
    const OtherProgram saved(project.path());
    EXPECT_EQ(cdb::fact(saved.db(), "designcode"), "bs-en1990-na");
    EXPECT_FLOAT_EQ(lcm_stored_action(saved.db(), codeOf("W"))->record.psi0, 0.5f);
    EXPECT_EQ(designcode::keptReport(saved.db()).state, designcode::KeptState::Same);
}

TEST_F(WorkbenchDesignCode, ExchangeIsOneStepThatCanBeUndone)
{
    open();
    answers.then([](QWidget* dialog) {
        choose(dialog, "combo_designcode", QStringLiteral("bs-en1990-na"));
        press(dialog, "OK");
    });
    trigger("action_recode");
    auto& history = window.findChild<workbench::Document*>()->history();
    ASSERT_EQ(history.steps().size(), 1u);
    EXPECT_EQ(history.undo(), "");
    EXPECT_FLOAT_EQ(psi0("W"), 0.6f);
    EXPECT_EQ(cdb::fact(db(), "designcode"), "en1990");
    EXPECT_FALSE(window.document().isModified());
    EXPECT_EQ(history.redo(), "");
    EXPECT_FLOAT_EQ(psi0("W"), 0.5f);
}

TEST_F(WorkbenchDesignCode, CancelledWindowChangesNothing)
{
    open();
    answers.then([](QWidget* dialog) {
        choose(dialog, "combo_designcode", QStringLiteral("bs-en1990-na"));
        press(dialog, "Cancel");
    });
    trigger("action_recode");
    EXPECT_FALSE(window.document().isModified());
}

TEST_F(WorkbenchDesignCode, SystemIsChangedAndSavedWithIt)
{
    open();
    answers.then([](QWidget* dialog) {
        choose(dialog, "combo_system", QStringLiteral("Plane structure"));
        choose(dialog, "combo_gravity", QString::fromUtf8("−Y"));
        press(dialog, "OK");
    });
    trigger("action_recode");
    ASSERT_TRUE(window.slot_save());
    const OtherProgram saved(project.path());
    EXPECT_EQ(lcm_system_class(saved.db()), 1);
    EXPECT_EQ(lcm_gravity_direction(saved.db()), -2);
}

TEST_F(WorkbenchDesignCode, DeadWeightInADirectionThatIsNoLongerOfferedIsRefusedUntilItMoves)
{
    tagCDB_LC_CTRL loadCase = following("G").title("Own weight");
    loadCase.dlz = -1.0f;
    OtherProgram(project.path()).put(LC_KWH_CASES, 7, loadCase);
    open();
    answers.then([](QWidget* dialog) {
        choose(dialog, "combo_system", QStringLiteral("Plane structure"));
        choose(dialog, "combo_gravity", QString::fromUtf8("−Y"));
        EXPECT_TRUE(refusal(dialog).contains("load case 7 has dead weight in Z"))
            << refusal(dialog).toStdString();
        EXPECT_FALSE(ModalAnswers::buttonOf(dialog, "OK")->isEnabled());
        auto* moves = dialog->findChild<QAbstractButton*>(QStringLiteral("check_move_dead_weight"));
        moves->setFocus();
        QTest::keyClick(moves, Qt::Key_Space);
        EXPECT_EQ(refusal(dialog), "");
        press(dialog, "OK");
    });
    trigger("action_recode");
    const tagCDB_LC_CTRL moved = lcm_stored_load_case(db(), 7)->record;
    EXPECT_EQ(moved.dlz, 0.0f);
    EXPECT_EQ(moved.dly, -1.0f);
}

TEST_F(WorkbenchDesignCode, ActionIsMappedInItsRow)
{
    open();
    answers.then([](QWidget* dialog) {
        choose(dialog, "combo_designcode", QStringLiteral("asce7-22-lrfd"));
        EXPECT_EQ(planned(dialog, "G", RecodeModel::What), "stays as an own action");
        auto* table = dialog->findChild<QTableView*>(QStringLiteral("table_plan"));
        auto* becomes = qobject_cast<QComboBox*>(
            table->indexWidget(table->model()->index(rowOfPlan(table, "G"), RecodeModel::Becomes)));
        ASSERT_NE(becomes, nullptr);
        becomes->setFocus();
        for (int i = 0; i < becomes->count() && becomes->currentText() != "D"; ++i) {
            QTest::keyClick(becomes, Qt::Key_Down);
            becomes = qobject_cast<QComboBox*>(
                table->indexWidget(table->model()->index(rowOfPlan(table, "G"), RecodeModel::Becomes)));
        }
        QTest::qWait(1); // the plan is made anew when the key has been told
        EXPECT_EQ(planned(dialog, "G", RecodeModel::Becomes), "D");
        EXPECT_EQ(planned(dialog, "G", RecodeModel::What), "takes the new default");
        press(dialog, "OK");
    });
    trigger("action_recode");
    EXPECT_TRUE(lcm_stored_action(db(), codeOf("D")).has_value());
    EXPECT_FALSE(lcm_stored_action(db(), codeOf("G")).has_value());
}

/// A project that keeps a design code whose file has changed since.
class WorkbenchKeptCode : public WorkbenchDesignCode
{
  protected:
    WorkbenchKeptCode()
    {
        writeCode("0.7");
        const OtherProgram other(project.path());
        (void)cdb::setFact(other.db(), "designcode", codeFile());
        const auto code = designcode::ofDatabase(other.db()).code;
        (void)designcode::keep(other.db(), *code);
        writeCode("0.6");
    }

    std::string codeFile() const { return folder.filePath("own.ini").toStdString(); }
    void writeCode(const std::string& psi0OfW) const
    {
        std::ofstream(codeFile()) << "[DESIGN CODE]\nbase = en1990\nlabel = Own\n[ACTION W]\nPsi0 = "
                                  << psi0OfW << " {Table NA.1, verified}\n";
    }
    /// Psi0 of a default action of the code in force.
    float kept(const std::string& action) const
    {
        for (const auto& each : designcode::ofDatabase(db()).code->actions) {
            if (each.name == action) {
                return each.record.psi0;
            }
        }
        return -1.0f;
    }
    /// Answers the question by a button, and notes what it tells.
    void answer(const QString& button)
    {
        answers.then([this, button](QWidget* asked) {
            auto* box = qobject_cast<QMessageBox*>(asked);
            ASSERT_NE(box, nullptr);
            m_told = box->text() + '\n' + box->informativeText();
            press(asked, button);
        });
    }

    QTemporaryDir folder;
    QString m_told;
};

TEST_F(WorkbenchKeptCode, DifferencesAreToldAndTheCopyHoldsUnlessItIsReplaced)
{
    answer("Go on with the copy");
    open();
    EXPECT_TRUE(m_told.contains("differs from the copy in the project")) << m_told.toStdString();
    EXPECT_TRUE(m_told.contains("action W Psi0: 0.6, was 0.7")) << m_told.toStdString();
    EXPECT_FALSE(window.document().isModified()) << "nothing changes by opening";
    EXPECT_FLOAT_EQ(kept("W"), 0.7f);
}

TEST_F(WorkbenchKeptCode, FileIsTakenOverByThePlanOfAnotherDesignCode)
{
    answer("Take the file over...");
    answers.then([](QWidget* dialog) {
        EXPECT_EQ(planned(dialog, "W", RecodeModel::What), "keeps its values") << "the default of en1990";
        press(dialog, "OK");
    });
    open();
    EXPECT_EQ(designcode::keptReport(db()).state, designcode::KeptState::Same);
    EXPECT_FLOAT_EQ(kept("W"), 0.6f);
    EXPECT_TRUE(window.document().isModified());
}

TEST_F(WorkbenchKeptCode, MissingFileIsToldAndTheProjectOpensWithItsCopy)
{
    QFile::remove(QString::fromStdString(codeFile()));
    answer("OK");
    open();
    EXPECT_TRUE(m_told.contains("There is no readable file")) << m_told.toStdString();
    EXPECT_EQ(window.document().designCodeFailure(), "");
    EXPECT_FLOAT_EQ(kept("W"), 0.7f);
}

TEST_F(WorkbenchKeptCode, NobodyIsAskedUnlessItIsWanted)
{
    workbench::storeExtras(false);
    open();
    EXPECT_FLOAT_EQ(kept("W"), 0.7f);
}

TEST_F(WorkbenchDesignCode, IsKeptWhereTheUserWantsIt)
{
    {
        const OtherProgram other(project.path());
        for (const char* fact :
             {"designcode-kept-name", "designcode-kept-fingerprint", "designcode-kept-files"}) {
            (void)cdb::setFact(other.db(), fact, "");
        }
    }
    open();
    EXPECT_EQ(designcode::keptReport(db()).state, designcode::KeptState::None);
    trigger("action_keep_code");
    EXPECT_TRUE(window.document().isModified());
    ASSERT_TRUE(window.slot_save());
    EXPECT_EQ(designcode::keptReport(OtherProgram(project.path()).db()).state, designcode::KeptState::Same);
}

} // namespace mrl::test
