// The commands of the actions tab that change the set of rows or put values of the design code back.

#include <QStringList>

#include "actions/action_deletion.h"
#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "actions/command_log.h"
#include "actions/host_settings.h"
#include "actions/new_action.h"
#include "actions/new_action_dialog.h"
#include "actions/row_cells.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/action_code.h"
#include "model/working_model.h"
#include "rules/action_columns.h"

void LCM_ActionsWidget::slot_newClicked()
{
    const LCM_CommandScope command(commandLog(), LCM_Command::NewAction);
    rowCacheDirty = true;
    modified = true;
    // Until the end of the slot: receivers of the signals find the new row last, before it sorts into place.
    MRL_QT_SortingBlocker sortingBlocker(table);
    QStringList names;
    for (int row = 0; row < table->rowCount(); ++row) {
        names.append(cellText(row, ACT_COL_ACTION));
    }
    MRL_LC_AddNewActionDialog dialog(m_dialogOption, model, names, this, "new action");
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const tagCDB_LC_ACT action = lcm_add_action(*model, dialog);
    appendRow(action);
    const LCM_RowCells added(table, table->rowCount() - 1);
    emit signal_newAction();
    emit signal_actionCountChanged();
    sortingBlocker.unblock();
    bringIntoSight(added.position());
}

bool LCM_ActionsWidget::offersOwnActions() const { return (m_dialogOption & 1) == 0; }

void LCM_ActionsWidget::appendNewActions(const std::vector<LCM_NewAction>& actions)
{
    if (actions.empty()) {
        return;
    }
    modified = true;
    rowCacheDirty = true;
    for (const LCM_NewAction& action : actions) {
        appendRow(lcm_add_action(*model, action));
    }
    emit signal_newAction();
    emit signal_actionCountChanged();
}

void LCM_ActionsWidget::bringIntoSight(int row)
{
    table->doItemsLayout(); // the scroll bar doesn't reach to a row that just came
    table->scrollTo(table->model()->index(row, 0));
    // The selection goes back to the caller of the dialog, so that it is left alone unless the host wants it.
    if (lcm_wants_extras()) {
        table->selectRow(row);
    }
}

void LCM_ActionsWidget::slot_addAllClicked()
{
    const LCM_CommandScope command(commandLog(), LCM_Command::AddAllActions);
    rowCacheDirty = true;
    const MRL_QT_SortingBlocker sortingBlocker(table);
    for (const tagCDB_LC_ACT& action : lcm_activate_free_actions(*model)) {
        appendRow(action);
    }
    emit signal_newAction();
    emit signal_actionCountChanged();
}

void LCM_ActionsWidget::appendRow(const tagCDB_LC_ACT& action)
{
    table->appendNewRows(1, MRL_H_TableWidget::CreateCells);
    fillRow(table->rowCount() - 1, action, true);
}

void LCM_ActionsWidget::slot_deleteClicked()
{
    const LCM_CommandScope command(commandLog(), LCM_Command::DeleteActions);
    modified = true;
    LCM_ActionDeletion deletion(*this, m_loadCaseTab);
    deletion.askForUsed();
    model->removeActions(deletion.codes());
    removeRows(table, deletion.rows());
    rowCacheDirty = true;
    emit signal_actionCountChanged();
}

void LCM_ActionsWidget::slot_reInitAllActions()
{
    std::set<int> rows;
    for (int row = 0; row < table->rowCount(); ++row) {
        rows.insert(rows.end(), row);
    }
    reinitialise(rows, false);
}

void LCM_ActionsWidget::slot_reInitSelectedActions() { reinitialise(getSelectedRows(table), true); }

void LCM_ActionsWidget::reinitialise(const std::set<int>& rows, bool reportAll)
{
    const LCM_CommandScope command(commandLog(), LCM_Command::ReinitialiseActions);
    rowCacheDirty = true;
    std::vector<LCM_RowCells> taken;
    taken.reserve(rows.size());
    for (const int row : rows) {
        taken.emplace_back(table, row);
    }
    std::vector<LCM_RowCells> reported;
    {
        // One block around all rows: a sorted table sorts once at its end, and not once for each row.
        const MRL_QT_SignalBlocker signalBlocker(table);
        for (const LCM_RowCells& cells : taken) {
            tagCDB_LC_ACT action;
            const bool known = model->findAction(cells.actionCode(), action, true) != 0;
            if (known) {
                fillRow(cells, action, true);
            }
            if (known || reportAll) {
                reported.push_back(cells);
            }
        }
    }
    // After the block, since its end may have moved the rows.
    emit signal_reinitActions(lcm_positions(table, reported));
}
