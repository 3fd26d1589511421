// The commands of the actions tab that change the set of rows or put values of the design code back.

#include <QStringList>

#include <unordered_set>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "actions/load_case_tab.h"
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
    rowCacheDirty = true;
    modified = true;
    // To the end of the slot: the receivers of the signals find the new row last, then it sorts into place.
    const MRL_QT_SortingBlocker sortingBlocker(table);
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
    emit signal_newAction();
    emit signal_actionCountChanged();
}

void LCM_ActionsWidget::slot_addAllClicked()
{
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

struct LCM_ActionsWidget::Deletion
{
    std::set<int> codes;   ///< action codes that will leave the project
    std::set<int> rows;    ///< their positions
    std::vector<int> used; ///< selected actions that load cases refer to, in the order of their discovery
};

void LCM_ActionsWidget::slot_deleteClicked()
{
    modified = true;
    Deletion deletion = selectedForDeletion();
    // A refusal spares the used actions alone.
    if (!deletion.used.empty() && userAgreesToDelete(deletion.used)) {
        addUsed(deletion);
    }
    model->removeActions(deletion.codes);
    removeRows(table, deletion.rows);
    rowCacheDirty = true;
    emit signal_actionCountChanged();
}

LCM_ActionsWidget::Deletion LCM_ActionsWidget::selectedForDeletion()
{
    Deletion deletion;
    std::unordered_set<int> used; // the same codes as the list, to be found fast
    for (const int row : rowsInSelectionOrder()) {
        const int code = LCM_RowCells(table, row).actionCode();
        if (m_loadCaseTab != nullptr) {
            if (deletion.codes.count(code) != 0 || used.count(code) != 0) {
                continue;
            }
            if (m_loadCaseTab->isActionUsed(actionOf(code))) {
                used.insert(code);
                deletion.used.push_back(code);
                continue;
            }
        }
        deletion.codes.insert(code);
        deletion.rows.insert(row);
    }
    return deletion;
}

std::vector<int> LCM_ActionsWidget::rowsInSelectionOrder() const
{
    // The order of the selected cells, without asking each of them for its row, which searches the whole
    // table.
    std::vector<int> rows;
    std::unordered_set<int> seen;
    for (const QItemSelectionRange& range : table->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (LCM_RowCells(table, row).anyCell() != nullptr && seen.insert(row).second) {
                rows.push_back(row);
            }
        }
    }
    return rows;
}

bool LCM_ActionsWidget::userAgreesToDelete(const std::vector<int>& used)
{
    QString text = tr("One or more actions are in use. Do you want to delete the selected actions and all "
                      "assigned loadcases?\n\nThe actions are:\n");
    for (const int code : used) {
        text += lcm_action_label(actionOf(code)) + QLatin1Char('\n');
    }
    return MRL_QT_MessageBox::warning(this, tr("Action used!"), text, tr("Delete"), tr("Cancel"), QString(),
                                      0, -1) == 0;
}

void LCM_ActionsWidget::addUsed(Deletion& deletion)
{
    std::map<int, int> rowOfCode;
    for (int row = 0; row < table->rowCount(); ++row) {
        tagCDB_LC_ACT action;
        rowOfCode.emplace(readRow(row, action), row); // the first row of a code counts
    }
    std::vector<tagCDB_LC_ACT> actions;
    for (const int code : deletion.used) {
        actions.push_back(actionOf(code));
    }
    m_loadCaseTab->removeLoadCasesOf(actions);
    for (const int code : deletion.used) {
        deletion.codes.insert(code);
        const auto row = rowOfCode.find(code);
        deletion.rows.insert(row == rowOfCode.end() ? -1 : row->second);
    }
}

tagCDB_LC_ACT LCM_ActionsWidget::actionOf(int code)
{
    tagCDB_LC_ACT action{};
    findAction(code, action);
    return action;
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
    rowCacheDirty = true;
    std::vector<LCM_RowCells> taken;
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
    // Only now: the rows may have moved.
    emit signal_reinitActions(lcm_positions(table, reported));
}
