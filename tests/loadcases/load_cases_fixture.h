#pragma once

/// Projects in memory with actions and load cases, and the two tabs on them, for tests.

#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "host/mrl_table.h"
#include "hostlib/data/designcode/designcode.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/roles.h"
#include "loadcases/cell_value.h"
#include "loadcases/loadcase_widget.h"
#include "model/working_model.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"
#include "tests/support/action_builder.h"
#include "tests/support/bytes.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/load_case_setup.h"
#include "tests/support/memory_project.h"

namespace mrl::test {

/// A design code with every factor, of which Gamu alone has a label of its own, and with the default actions G
/// (dead), Q and W (live).
inline const std::string LOAD_CASE_CODE = [] {
    std::string text = sampleCodeOf({"G", "Q", "W"});
    for (const char* label : {"TXT_GAMF", "TXT_GAMA", "TXT_PSI"}) {
        text = withoutLines(text, label);
    }
    return text;
}();

/// A dead and a live action as a project stores them; the live one differs from that of the code.
inline ActionBuilder permanent()
{
    return bareAction("G").title("Permanent").factors(1.0f).gamu(1.35f).partition(0x10);
}
inline ActionBuilder variable()
{
    return bareAction("Q")
        .title("Variable")
        .partition(0x31)
        .gamu(1.5f)
        .gamf(0.0f)
        .gama(1.0f)
        .psi0(0.7f)
        .psi1(0.5f)
        .psi2(0.3f)
        .psi1s(0.9f);
}

/// A project of LOAD_CASE_CODE; told otherwise, a spatial system with gravity along -z.
class LoadCaseProject : public MemoryProject
{
  public:
    explicit LoadCaseProject(const std::string& designCode = LOAD_CASE_CODE) : MemoryProject(designCode)
    {
        EXPECT_EQ(mrl::designcode::ofDatabase(db()).reason, "");
        setSystem(0, -3);
    }
};

/// The load-case tab in a window, alone or with the actions tab, as the manager makes them.
class Tabs
{
  public:
    enum Which { LoadcasesAlone, Both };

    explicit Tabs(const LoadCaseProject& project, Which which = Both)
    {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        auto* pages = new QTabWidget(m_window.get());
        layout->addWidget(pages);
        lc = new LCM_LoadcaseWidget(project.db(), m_window.get(), "loadcasewidget");
        if (which == Both) {
            actions = new LCM_ActionsWidget(lc, project.db(), 0, m_window.get(), "actionswidget");
            pages->addTab(actions, "Actions");
            lc->setActionsWidget(actions);
        }
        pages->addTab(lc, "Loadcases");
        pages->setCurrentWidget(lc);
        m_window->resize(1150, 700);
        if (actions) {
            actions->fillTable();
        }
        lc->fillTable();
        table = static_cast<MRL_H_TableWidget*>(lc->tableWidget());
    }

    QWidget* window() const { return m_window.get(); }
    void show()
    {
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }
    void save() const
    {
        if (actions) {
            actions->save(true);
        }
        lc->save(true);
    }

    /// The row of a load case, -1 when there is none.
    int row(int number) const
    {
        for (int r = 0; r < table->rowCount(); ++r) {
            if (table->itemOnColId(r, LC_COL_NUMBER)->data(Qt::DisplayRole).toInt() == number) {
                return r;
            }
        }
        return -1;
    }
    std::vector<int> numbers() const
    {
        std::vector<int> found;
        for (int r = 0; r < table->rowCount(); ++r) {
            found.push_back(table->itemOnColId(r, LC_COL_NUMBER)->data(Qt::DisplayRole).toInt());
        }
        return found;
    }
    QTableWidgetItem* cell(int number, int column) const { return table->itemOnColId(row(number), column); }
    QString text(int number, int column) const { return cell(number, column)->text(); }
    float value(int number, int column) const { return lcm_cell_value(cell(number, column)); }
    int actionId(int number) const { return lcm_cell_id(cell(number, LC_COL_ACTION)); }
    bool isEditable(int number, int column) const
    {
        return (cell(number, column)->flags() & Qt::ItemIsEditable) != 0;
    }
    bool isValid(int number) const { return cell(number, LC_COL_NUMBER)->data(ROLE_ROW_VALID).toBool(); }
    bool isRed(int number, int column) const
    {
        return cell(number, column)->foreground().color() == QColor(Qt::red);
    }
    LCM_LoadcaseEntry read(int number) const
    {
        LCM_LoadcaseEntry entry;
        lc->readRow(row(number), entry);
        return entry;
    }

    void select(const std::set<int>& numbers) const
    {
        table->clearSelection();
        lc->selectLoadcases(numbers);
    }
    /// Chooses an entry of the action column as an edit does.
    void chooseAction(int number, int id) const
    {
        MRL_H_TwSimpleComboBoxItem::fromItem(cell(number, LC_COL_ACTION))->setCurrentId(id);
    }
    /// Enters a number as an edit does.
    void enter(int number, int column, float entered) const
    {
        MRL_H_TwSimpleLineEditItem::fromItem(cell(number, column))->setVal(entered);
    }

    int actionRow(int code) const
    {
        tagCDB_LC_ACT record;
        for (int r = 0; r < actions->tableWidget()->rowCount(); ++r) {
            if (actions->readRow(r, record) == code) {
                return r;
            }
        }
        return -1;
    }
    /// Enters a factor of an action as an edit does.
    void enterAction(int code, int column, float entered) const
    {
        MRL_H_TwSimpleLineEditItem::fromItem(actions->tableWidget()->itemOnColId(actionRow(code), column))
            ->setVal(entered);
    }
    void selectAction(int code) const
    {
        actions->tableWidget()->clearSelection();
        actions->tableWidget()->selectRow(actionRow(code));
    }

    LCM_LoadcaseWidget* lc;               ///< child of the window
    LCM_ActionsWidget* actions = nullptr; ///< child of the window
    MRL_H_TableWidget* table;             ///< the table of the load cases

  private:
    std::unique_ptr<QWidget> m_window;
};

} // namespace mrl::test
