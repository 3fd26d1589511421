#pragma once

/// A project in memory with a design code of the test's own, and the actions tab on it.

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "actions/load_case_tab.h"
#include "actions/table_helpers.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/roles.h"
#include "model/working_model.h"
#include "rules/action_columns.h"
#include "tests/support/action_builder.h"
#include "tests/support/memory_project.h"
#include "tests/support/modal_answers.h"

Q_DECLARE_METATYPE(std::set<int>)

namespace mrl::test {

/// The sample with G, Q with two categories, W_1 and W_2 without their parent, and A.
inline const std::string ACTIONS_CODE = sampleCodeOf({"G", "Q", "Q_1", "Q_2", "W_1", "W_2", "A"});

/// The four characters of an action's code.
inline QByteArray codeName(const tagCDB_LC_ACT& action)
{
    char text[5] = {};
    lcm_word_to_chars(lcm_action_code(action), text);
    return QByteArray(text);
}

/// A project of ACTIONS_CODE, told otherwise.
class ActionsProject : public MemoryProject
{
  public:
    explicit ActionsProject(const std::string& designCode = ACTIONS_CODE) : MemoryProject(designCode) {}
    /// A project of a shipped design code. @param name see mrl::designcode::list
    static std::unique_ptr<ActionsProject> ofShippedCode(const std::string& name)
    {
        auto project = std::make_unique<ActionsProject>();
        project->setDesignCode(name);
        return project;
    }
};

/// A load-case tab that knows which actions are used and notes what it is asked.
class FakeLoadcaseTab : public LCM_LoadCaseTab
{
  public:
    explicit FakeLoadcaseTab(int db) : m_model(new LCM_DataClass(db)) {}
    ~FakeLoadcaseTab() override { m_model->release(); }

    LCM_DataClass* workingModel() const override { return m_model; }
    bool isActionUsed(const tagCDB_LC_ACT& action) override
    {
        asked.push_back(lcm_action_code(action));
        return used.count(asked.back()) != 0;
    }
    void removeActionLoadcases(const tagCDB_LC_ACT& action) override
    {
        removed.push_back(lcm_action_code(action));
    }

    std::set<int> used;
    std::vector<int> asked;
    std::vector<int> removed;

  private:
    LCM_DataClass* m_model; ///< counted
};

/// The tab, filled and shown, with what a person can do to it and see of it.
class ActionsTab
{
  public:
    explicit ActionsTab(const ActionsProject& project, LCM_LoadCaseTab* loadcases = nullptr,
                        int dialogOption = 0, bool fill = true)
        : widget(loadcases, project.db(), dialogOption, nullptr, "actionswidget"),
          table(*widget.actionsTable())
    {
        widget.resize(1100, 500);
        widget.show();
        QApplication::setActiveWindow(&widget);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
        if (fill) {
            widget.fillTable();
        }
    }

    int rowOf(const QString& name) const
    {
        for (int row = 0; row < table.rowCount(); ++row) {
            if (text(row, ACT_COL_ACTION).trimmed() == name) {
                return row;
            }
        }
        return -1;
    }
    QStringList names() const
    {
        QStringList list;
        for (int row = 0; row < table.rowCount(); ++row) {
            list << text(row, ACT_COL_ACTION).trimmed();
        }
        return list;
    }
    QTableWidgetItem* cell(int row, int id) const { return table.itemOnColId(row, id); }
    QTableWidgetItem* cell(const QString& name, int id) const { return cell(rowOf(name), id); }
    QString text(int row, int id) const
    {
        const QTableWidgetItem* item = cell(row, id);
        return item == nullptr ? QString() : item->text();
    }
    QString text(const QString& name, int id) const { return text(rowOf(name), id); }
    bool isRed(int row, int id) const { return cell(row, id)->foreground().color() == Qt::red; }
    bool isRed(const QString& name, int id) const { return isRed(rowOf(name), id); }
    QString toolTip(const QString& name, int id) const { return cell(name, id)->toolTip(); }
    bool isRowValid(const QString& name) const
    {
        return cell(name, ACT_COL_ACTION)->data(ROLE_ROW_VALID).toBool();
    }
    tagCDB_LC_ACT record(const QString& name)
    {
        tagCDB_LC_ACT action{};
        widget.readRow(rowOf(name), action);
        return action;
    }

    void clickCell(const QString& name, int id, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTableWidgetItem* item = cell(name, id);
        ASSERT_NE(item, nullptr);
        table.scrollToItem(item);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, table.visualItemRect(item).center());
    }
    /// Types a text over the current cell and presses Return.
    void typeOver(const QString& text)
    {
        QApplication::setActiveWindow(&widget); // a dialog that closed leaves no window active here
        table.setFocus();
        QTest::keyClicks(&table, text.left(1));
        QWidget* editor = QApplication::focusWidget();
        ASSERT_NE(editor, &table) << "no cell editor for " << text.toStdString();
        QTest::keyClicks(editor, text.mid(1));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    void enter(const QString& name, int id, const QString& text)
    {
        clickCell(name, id);
        typeOver(text);
    }
    void selectRows(const QStringList& rowNames)
    {
        table.clearSelection();
        for (const QString& name : rowNames) {
            table.selectionModel()->select(table.model()->index(rowOf(name), 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
    }
    void press(const char* buttonName)
    {
        auto* button = widget.findChild<QAbstractButton*>(QLatin1String(buttonName));
        ASSERT_NE(button, nullptr) << buttonName;
        QTest::mouseClick(button, Qt::LeftButton);
    }

    LCM_ActionsWidget widget;
    MRL_LC_ActionsTable& table;
};

} // namespace mrl::test
