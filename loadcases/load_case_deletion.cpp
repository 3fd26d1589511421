#include "loadcases/load_case_deletion.h"

#include <QMessageBox>

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "actions/host_settings.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/action_code.h"
#include "loadcases/cell_value.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/numbers_line.h"
#include "loadcases/row_actions.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"

namespace {

/// For each deleted row removes the first note with that target.
void forgetCopies(std::vector<LCM_LoadcaseCopy>& copies, std::unordered_map<int, int> rowsByNumber)
{
    const auto isVoid = [&rowsByNumber](const LCM_LoadcaseCopy& note) {
        const auto count = rowsByNumber.find(note.target);
        return count != rowsByNumber.end() && count->second-- > 0;
    };
    std::vector<LCM_LoadcaseCopy> kept;
    std::remove_copy_if(copies.begin(), copies.end(), std::back_inserter(kept), isVoid);
    copies = std::move(kept);
}

} // namespace

bool LCM_LoadCaseDeletion::confirmed(QWidget* parent, const std::set<int>& numbers, std::size_t count)
{
    QString text =
        count == 1
            ? LCM_LoadcaseWidget::tr("Should the selected loadcase (including all loads) really be deleted?")
            : LCM_LoadcaseWidget::tr("Should %1 selected loadcases (including all loads) really be deleted?")
                  .arg(count);
    if (lcm_wants_extras()) {
        text += QStringLiteral("\n\n") + lcm_numbers_line(numbers);
    }
    return MRL_QT_MessageBox::question(parent, LCM_LoadcaseWidget::tr("Delete loadcase(s)"), text,
                                       QMessageBox::Yes, QMessageBox::No) == QMessageBox::Yes;
}

void LCM_LoadCaseDeletion::removeSelected(std::vector<LCM_LoadcaseCopy>& copies)
{
    std::unordered_map<int, int> rowsByNumber;
    for (const int row : getSelectedRows(&m_table)) {
        const int number = m_table.numberOfRow(row);
        m_model.removeUsedLoadcaseNumber(number);
        ++rowsByNumber[number];
    }
    forgetCopies(copies, std::move(rowsByNumber));
    m_actions.forgetUsed();
    removeSelectedRows(&m_table);
}

void LCM_LoadCaseDeletion::removeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions)
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
    for (int row = 0; row < m_table.rowCount(); ++row) {
        const int id = lcm_cell_id(m_table.itemOnColId(row, LC_COL_ACTION));
        if (codes.count(id) == 0) {
            continue;
        }
        if (id == lastCode && !landing) {
            landing = row - others;
        }
        others += id == lastCode ? 0 : 1;
        rows.insert(rows.end(), row);
        m_model.removeUsedLoadcaseNumber(m_table.numberOfRow(row));
    }
    m_actions.forgetUsed();
    removeRows(&m_table, rows);
    m_table.selectRow(std::min(landing.value_or(0), m_table.rowCount() - 1));
}
