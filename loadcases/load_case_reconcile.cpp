// How the rows follow the changes of the actions tab.

#include <map>
#include <unordered_map>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "actions/columns.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/keys.h"
#include "loadcases/cell.h"
#include "loadcases/columns.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/data_class.h"

namespace {

/// With fewer rows the work is done before a window is seen.
constexpr int ROWS_FOR_BUSY_DIALOG = 150;

/// The code that a row's id is looked for by: names of old records may be in the other case.
int normalised(int id)
{
    return id == LC_ACTION_NONE || id == LC_ACTION_IMPERFECTION ? id : lcm_upper_code(id);
}

} // namespace

std::vector<tagCDB_LC_ACT> LCM_LoadcaseWidget::presentActions() const
{
    std::vector<tagCDB_LC_ACT> actions;
    if (actionsWidget) {
        actionsWidget->readAllRows(actions);
    } else {
        model->activeActions(actions);
    }
    return actions;
}

std::unordered_map<int, int> LCM_LoadcaseWidget::bindAllIds()
{
    std::unordered_map<int, int> newIds;
    for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
        const int id = lcm_cell_id(loadcaseTable->itemOnColId(row, LC_COL_ACTION));
        const auto [entry, isNew] = newIds.try_emplace(id);
        if (isNew) {
            entry->second = m_actionList.bind(normalised(id)).id;
        }
    }
    return newIds;
}

void LCM_LoadcaseWidget::slot_actionCountChanged()
{
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    const LCM_ActionList former = std::move(m_actionList);
    m_actionList = LCM_ActionList(tr("None"), QStringLiteral("IMP  ") + tr("Imperfection"), presentActions());
    const std::unordered_map<int, int> newIds = bindAllIds();
    setActionEntries();
    forgetUsedActions();

    // An id whose rows have to be derived anew, since it or its text changed.
    std::unordered_map<int, bool> changed;
    for (const auto& [id, newId] : newIds) {
        changed[id] = id != newId || former.text(id) != m_actionList.text(newId);
    }
    LCM_RowContext context = rowContext();
    for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
        LCM_LoadCaseCells cells(*loadcaseTable, row);
        const int id = cells.actionId();
        if (changed.at(id)) {
            rebind(cells, newIds.at(id), former);
            followAction(cells, context);
            modified = true;
        }
        setRowValid(row, judge(row, cells, context));
    }
}

void LCM_LoadcaseWidget::rebind(LCM_LoadCaseCells& cells, int newId, const LCM_ActionList& former)
{
    const int id = cells.actionId();
    const int word = former.isMarker(id) ? cells.keptWord().value_or(former.codeOf(id)) : id;
    if (auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(cells[LC_COL_ACTION])) {
        combo->setCurrentId(newId);
    }
    cells.keepWord(m_actionList.isMarker(newId) ? std::optional<int>(word) : std::nullopt);
}

void LCM_LoadcaseWidget::slot_actionValuesChanged(int row, int col)
{
    if (!actionsWidget) {
        return;
    }
    tagCDB_LC_ACT action{};
    const int code = actionsWidget->readRow(row, action);
    if (actionsWidget->tableWidget()->getColumnId(col) == ACT_COL_DESCRIPTION) {
        slot_actionCountChanged();
    }
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    LCM_RowContext context = rowContext();
    for (int r = 0; r < loadcaseTable->rowCount(); ++r) {
        if (lcm_cell_id(loadcaseTable->itemOnColId(r, LC_COL_ACTION)) != code) {
            continue;
        }
        LCM_LoadCaseCells cells(*loadcaseTable, r);
        refreshCells(cells, context);
    }
}

void LCM_LoadcaseWidget::slot_reinitActions(std::set<int> rows)
{
    if (!actionsWidget) {
        return;
    }
    MRL_QT_BusyDialog busy(tr("Checking loadcases"), this, "busy");
    if (loadcaseTable->rowCount() >= ROWS_FOR_BUSY_DIALOG) {
        busy.setText(tr("The loadcases will be checked because of changed action values."));
        busy.setModal(true);
        busy.show();
    }
    std::unordered_map<int, tagCDB_LC_ACT> actions;
    for (const int row : rows) {
        tagCDB_LC_ACT action{};
        const int code = actionsWidget->readRow(row, action);
        actions[code] = action;
    }
    bool edited = false;
    {
        const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
        const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
        LCM_RowContext context = rowContext();
        for (int r = 0; r < loadcaseTable->rowCount(); ++r) {
            const auto action = actions.find(lcm_cell_id(loadcaseTable->itemOnColId(r, LC_COL_ACTION)));
            if (action == actions.end()) {
                continue;
            }
            LCM_LoadCaseCells cells(*loadcaseTable, r);
            edited = showReinitialised(cells, action->second) || edited;
            // The pass over marked cells leaves out those that hold the action's number themselves.
            refreshCells(cells, context);
        }
        if (edited) {
            modified = true;
            judgeRows(getSelectedRows(loadcaseTable), context);
        }
    }
    busy.hide();
}

bool LCM_LoadcaseWidget::showReinitialised(LCM_LoadCaseCells& cells, const tagCDB_LC_ACT& action)
{
    bool edited = false;
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        QTableWidgetItem* cell = cells[column];
        if (!lcm_cell_from_action(cell)) {
            continue;
        }
        const float value = lcm_action_factor(action, column);
        const QString text = mrl_h_getDimStringFromVal(static_cast<double>(value), -3, 2);
        if (cell->text() == text) {
            continue;
        }
        cell->setText(text);
        edited = true;
    }
    return edited;
}
