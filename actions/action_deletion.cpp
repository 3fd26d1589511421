#include "actions/action_deletion.h"

#include <map>
#include <unordered_set>

#include "actions/actions_widget.h"
#include "actions/host_settings.h"
#include "actions/load_case_tab.h"
#include "actions/row_cells.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/action_code.h"

LCM_ActionDeletion::LCM_ActionDeletion(LCM_ActionsWidget& tab, LCM_LoadCaseTab* loadCaseTab)
    : m_tab(tab), m_table(tab.tableWidget()), m_loadCaseTab(loadCaseTab)
{
    std::unordered_set<int> used; // the same codes as the list, to be found fast
    for (const int row : rowsInSelectionOrder()) {
        const int code = LCM_RowCells(m_table, row).actionCode();
        if (m_loadCaseTab != nullptr) {
            if (m_codes.count(code) != 0 || used.count(code) != 0) {
                continue;
            }
            if (m_loadCaseTab->isActionUsed(actionOf(code))) {
                used.insert(code);
                m_used.push_back(code);
                continue;
            }
        }
        m_codes.insert(code);
        m_rows.insert(row);
    }
}

std::vector<int> LCM_ActionDeletion::rowsInSelectionOrder() const
{
    // The order of the selected cells. Asking each cell for its row would search the whole table.
    std::vector<int> rows;
    std::unordered_set<int> seen;
    for (const QItemSelectionRange& range : m_table->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (LCM_RowCells(m_table, row).anyCell() != nullptr && seen.insert(row).second) {
                rows.push_back(row);
            }
        }
    }
    return rows;
}

void LCM_ActionDeletion::askForUsed()
{
    if (!m_used.empty() && userAgrees()) {
        addUsed();
    }
}

bool LCM_ActionDeletion::userAgrees() const
{
    QString text =
        LCM_ActionsWidget::tr("One or more actions are in use. Do you want to delete the selected actions "
                              "and all assigned loadcases?\n\nThe actions are:\n");
    for (const int code : m_used) {
        text += lcm_action_label(actionOf(code)) + QLatin1Char('\n');
    }
    if (lcm_wants_extras()) {
        text += QLatin1Char('\n') + m_loadCaseTab->describeLoadCasesOf(usedActions());
    }
    return MRL_QT_MessageBox::warning(&m_tab, LCM_ActionsWidget::tr("Action used!"), text,
                                      LCM_ActionsWidget::tr("Delete"), LCM_ActionsWidget::tr("Cancel"),
                                      QString(), 0, -1) == 0;
}

void LCM_ActionDeletion::addUsed()
{
    std::map<int, int> rowOfCode;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        tagCDB_LC_ACT action;
        rowOfCode.emplace(m_tab.readRow(row, action), row); // the first row of a code counts
    }
    m_loadCaseTab->removeLoadCasesOf(usedActions());
    for (const int code : m_used) {
        m_codes.insert(code);
        const auto row = rowOfCode.find(code);
        m_rows.insert(row == rowOfCode.end() ? -1 : row->second);
    }
}

std::vector<tagCDB_LC_ACT> LCM_ActionDeletion::usedActions() const
{
    std::vector<tagCDB_LC_ACT> actions;
    actions.reserve(m_used.size());
    for (const int code : m_used) {
        actions.push_back(actionOf(code));
    }
    return actions;
}

tagCDB_LC_ACT LCM_ActionDeletion::actionOf(int code) const
{
    tagCDB_LC_ACT action{};
    m_tab.findAction(code, action);
    return action;
}
