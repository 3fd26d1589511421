#pragma once

/// The manager dialog on a small project, driven as a person drives it.

#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

#include <functional>

#include "actions/actions_widget.h"
#include "host/mrl_table.h"
#include "loadcases/loadcase_widget.h"
#include "manager/control_struct.h"
#include "manager/entry_points.h"
#include "manager/loadcase_manager.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"
#include "tests/support/modal_answers.h"
#include "tests/support/project_test.h"

namespace mrl::test {

/// What a person does with the open dialog. The dialog must be closed by it.
using Script = std::function<void(QWidget* dialog)>;

inline QTabWidget* tabsOf(QWidget* dialog) { return dialog->findChild<QTabWidget*>(); }

inline QStringList tabTexts(QWidget* dialog)
{
    QStringList texts;
    for (int i = 0; i < tabsOf(dialog)->count(); ++i) {
        texts << tabsOf(dialog)->tabText(i);
    }
    return texts;
}

inline LCM_ActionsWidget* actionsTab(QWidget* dialog) { return dialog->findChild<LCM_ActionsWidget*>(); }
inline LCM_LoadcaseWidget* loadCaseTab(QWidget* dialog) { return dialog->findChild<LCM_LoadcaseWidget*>(); }

inline void press(QWidget* window, const QString& button)
{
    auto* found = ModalAnswers::buttonOf(window, button);
    ASSERT_NE(found, nullptr) << "no button " << button.toStdString();
    QTest::mouseClick(found, Qt::LeftButton);
}
inline void pressOk(QWidget* dialog) { press(dialog, QStringLiteral("OK")); }
inline void pressCancel(QWidget* dialog) { press(dialog, QStringLiteral("Cancel")); }

/// The row whose cell in a column shows the text, blanks at its ends aside; -1 when there is none.
inline int rowOf(MRL_H_TableWidget* table, int columnId, const QString& text)
{
    for (int row = 0; row < table->rowCount(); ++row) {
        const auto* cell = table->itemOnColId(row, columnId);
        if (cell && cell->text().trimmed() == text) {
            return row;
        }
    }
    return -1;
}

/// The editor of a cell; a closed one may still wait for its deletion.
inline QLineEdit* openEditor(MRL_H_TableWidget* table)
{
    for (auto* editor : table->viewport()->findChildren<QLineEdit*>()) {
        if (editor->isVisible()) {
            return editor;
        }
    }
    return nullptr;
}

/// Goes to a cell and types a text over it.
inline void typeInto(MRL_H_TableWidget* table, int row, int columnId, const QString& text)
{
    ASSERT_GE(row, 0);
    const int column = table->getColumnNumber(columnId);
    ASSERT_GE(column, 0);
    table->setFocus();
    table->setCurrentCell(row, column);
    QTest::keyClick(table, Qt::Key_F2);
    QLineEdit* editor = openEditor(table);
    ASSERT_NE(editor, nullptr) << "the cell can't be edited";
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

/// Selects rows by their texts in a column, and no others.
inline void selectRows(MRL_H_TableWidget* table, int columnId, const QStringList& texts)
{
    table->clearSelection();
    for (const QString& text : texts) {
        const int row = rowOf(table, columnId, text);
        ASSERT_GE(row, 0) << text.toStdString();
        table->setRangeSelected(QTableWidgetSelectionRange(row, 0, row, table->columnCount() - 1), true);
    }
}

/// A project with the actions G and Q and the load cases 1 to 3.
class ManagerTest : public ProjectTest
{
  protected:
    ManagerTest()
    {
        project.putAction(
            soundAction(QStringLiteral("G")).partition(0x10).title(QStringLiteral("Permanent")));
        project.putAction(soundAction(QStringLiteral("Q")).partition(0x32).title(QStringLiteral("Variable")));
        for (int number = 1; number <= 3; ++number) {
            project.putLoadCase(number,
                                bareLoadCase(QStringLiteral("G")).title(QStringLiteral("LC %1").arg(number)));
        }
    }

    /// Opens the dialog and runs the script in it.
    int run(MRL_LC_CtrlStruct& control, const Script& script)
    {
        answers.then([&](QWidget* window) {
            ASSERT_NE(qobject_cast<LoadcaseManager*>(window), nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(window));
            script(window);
        });
        return mrl_loadcase_manager(nullptr, db, control);
    }

    /// What the box showed that came as the n-th.
    const SeenBox& box(std::size_t n) const { return answers.boxes().at(n); }

    ModalAnswers answers;
};

} // namespace mrl::test
