#include "loadcases/load_case_reconciliation.h"

#include <unordered_map>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "loadcases/cell_value.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/load_case_rows.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/row_actions.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"

namespace {

/// With fewer rows the work is done before a window is seen.
constexpr int ROWS_FOR_BUSY_DIALOG = 150;

void show(MRL_QT_BusyDialog& busy)
{
    busy.setText(LCM_LoadcaseWidget::tr("The loadcases will be checked because of changed action values."));
    busy.setModal(true);
    busy.show();
}

} // namespace

std::vector<tagCDB_LC_ACT> LCM_LoadCaseReconciliation::presentActions() const
{
    std::vector<tagCDB_LC_ACT> actions;
    if (m_actionsTab) {
        m_actionsTab->readAllRows(actions);
    } else {
        m_tab.workingModel()->activeActions(actions);
    }
    return actions;
}

bool LCM_LoadCaseReconciliation::rebuildList()
{
    const MRL_QT_UpdateBlocker updateBlocker(&m_table);
    const MRL_QT_SignalBlocker signalBlocker(&m_table);
    const LCM_RowActions::Move move = m_actions.replaceList(
        LCM_ActionList(LCM_LoadcaseWidget::tr("None"),
                       QStringLiteral("IMP  ") + LCM_LoadcaseWidget::tr("Imperfection"), presentActions()));
    bool anyMoved = false;
    LCM_RowContext context = m_tab.rowContext();
    for (int row = 0; row < m_table.rowCount(); ++row) {
        LCM_LoadCaseCells cells(m_table, row);
        if (m_actions.move(cells, move)) {
            m_rows.followAction(cells, context);
            anyMoved = true;
        }
        m_tab.setRowValid(row, m_rows.judge(row, cells, context));
    }
    return anyMoved;
}

void LCM_LoadCaseReconciliation::refreshLoadCasesOf(int code)
{
    const MRL_QT_UpdateBlocker updateBlocker(&m_table);
    const MRL_QT_SignalBlocker signalBlocker(&m_table);
    LCM_RowContext context = m_tab.rowContext();
    for (int row = 0; row < m_table.rowCount(); ++row) {
        if (lcm_cell_id(m_table.itemOnColId(row, LC_COL_ACTION)) != code) {
            continue;
        }
        LCM_LoadCaseCells cells(m_table, row);
        m_rows.refresh(cells, context);
    }
}

bool LCM_LoadCaseReconciliation::reinitialise(const std::set<int>& rows)
{
    MRL_QT_BusyDialog busy(LCM_LoadcaseWidget::tr("Checking loadcases"), &m_tab, "busy");
    if (m_table.rowCount() >= ROWS_FOR_BUSY_DIALOG) {
        show(busy);
    }
    std::unordered_map<int, tagCDB_LC_ACT> actions;
    for (const int row : rows) {
        tagCDB_LC_ACT action{};
        const int code = m_actionsTab->readRow(row, action);
        actions[code] = action;
    }
    const MRL_QT_UpdateBlocker updateBlocker(&m_table);
    const MRL_QT_SignalBlocker signalBlocker(&m_table);
    bool edited = false;
    LCM_RowContext context = m_tab.rowContext();
    for (int row = 0; row < m_table.rowCount(); ++row) {
        const auto action = actions.find(lcm_cell_id(m_table.itemOnColId(row, LC_COL_ACTION)));
        if (action == actions.end()) {
            continue;
        }
        LCM_LoadCaseCells cells(m_table, row);
        edited = showReinitialised(cells, action->second) || edited;
        // showReinitialised skips cells that aren't marked as following the action: they are refreshed here.
        m_rows.refresh(cells, context);
    }
    if (edited) {
        m_rows.judgeAndStore(getSelectedRows(&m_table), context);
    }
    return edited;
}

bool LCM_LoadCaseReconciliation::showReinitialised(const LCM_LoadCaseCells& cells,
                                                   const tagCDB_LC_ACT& action)
{
    bool edited = false;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        QTableWidgetItem* cell = cells[factor.loadCaseColumn];
        if (!lcm_cell_from_action(cell)) {
            continue;
        }
        const float value = lcm_stored_factor(action, factor);
        const QString text = mrl_h_getDimStringFromVal(static_cast<double>(value), -3, 2);
        if (cell->text() == text) {
            continue;
        }
        cell->setText(text);
        edited = true;
    }
    return edited;
}
