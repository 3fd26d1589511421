// Deleted load cases.

#include <QMessageBox>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/action_code.h"
#include "loadcases/cell.h"
#include "loadcases/columns.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/remove_selected_rows.h"
#include "loadcases/table_loadcases.h"
#include "model/data_class.h"

void removeSelectedRows(TableLoadCases* table) { removeRows(table, getSelectedRows(table)); }

void LCM_LoadcaseWidget::slot_deleteClicked()
{
    modified = true;
    const std::set<int> rows = getSelectedRows(loadcaseTable);
    if (rows.empty() || !confirmDeletion(rows.size())) {
        return;
    }
    std::unordered_map<int, int> deleted; // how many rows of each number go
    for (const int row : rows) {
        const int number = numberOfRow(row);
        model->removeUsedLoadcaseNumber(number);
        ++deleted[number];
    }
    // Each deleted row takes one note with it, the first with its number.
    const auto isVoid = [&deleted](const LCM_LoadcaseCopy& note) {
        const auto count = deleted.find(note.target);
        return count != deleted.end() && count->second-- > 0;
    };
    std::vector<LCM_LoadcaseCopy> kept;
    std::remove_copy_if(copies.begin(), copies.end(), std::back_inserter(kept), isVoid);
    copies = std::move(kept);
    forgetUsedActions();
    removeSelectedRows(loadcaseTable);
}

bool LCM_LoadcaseWidget::confirmDeletion(std::size_t count)
{
    const QString text =
        count == 1 ? tr("Should the selected loadcase (including all loads) really be deleted?")
                   : tr("Should %1 selected loadcases (including all loads) really be deleted?").arg(count);
    return MRL_QT_MessageBox::question(this, tr("Delete loadcase(s)"), text, QMessageBox::Yes,
                                       QMessageBox::No) == QMessageBox::Yes;
}

void LCM_LoadcaseWidget::removeActionLoadcases(const tagCDB_LC_ACT& action) { removeLoadCasesOf({action}); }

void LCM_LoadcaseWidget::removeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions)
{
    if (actions.empty()) {
        return;
    }
    std::unordered_set<int> codes;
    for (const tagCDB_LC_ACT& action : actions) {
        codes.insert(lcm_action_code(action));
    }
    // As if one action went after the other: the selection lands where the rows of the last one stood.
    const int lastCode = lcm_action_code(actions.back());
    std::set<int> rows;
    std::optional<int> landing;
    int others = 0; // rows of the other actions so far
    for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
        const int id = lcm_cell_id(loadcaseTable->itemOnColId(row, LC_COL_ACTION));
        if (codes.count(id) == 0) {
            continue;
        }
        if (id == lastCode && !landing) {
            landing = row - others;
        }
        others += id == lastCode ? 0 : 1;
        rows.insert(rows.end(), row);
        model->removeUsedLoadcaseNumber(numberOfRow(row));
    }
    forgetUsedActions();
    removeRows(loadcaseTable, rows);
    loadcaseTable->selectRow(std::min(landing.value_or(0), loadcaseTable->rowCount() - 1));
}

bool LCM_LoadcaseWidget::isActionUsed(const tagCDB_LC_ACT& action)
{
    if (!m_usedActions) {
        m_usedActions.emplace();
        for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
            m_usedActions->insert(lcm_cell_id(loadcaseTable->itemOnColId(row, LC_COL_ACTION)));
        }
        // The answer holds for the questions of one command; cells can also be changed from outside.
        QMetaObject::invokeMethod(
            this, [this] { forgetUsedActions(); }, Qt::QueuedConnection);
    }
    return m_usedActions->count(lcm_action_code(action)) != 0;
}
