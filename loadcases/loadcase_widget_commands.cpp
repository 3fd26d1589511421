// The commands of the tab: new, copied and deleted load cases.

#include "actions/command_log.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/action_code.h"
#include "loadcases/cell_value.h"
#include "loadcases/load_case_creation.h"
#include "loadcases/load_case_deletion.h"
#include "loadcases/load_case_numbering.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/numbers_line.h"
#include "loadcases/row_actions.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"

void LCM_LoadcaseWidget::slot_newClicked() { createLoadcases(false); }

void LCM_LoadcaseWidget::slot_copyClicked()
{
    if (getSelectedRows(loadcaseTable).empty()) {
        MRL_QT_MessageBox::critical(this, tr("Loadcase selection"), tr("Please select a loadcase to copy!"));
    } else {
        createLoadcases(true);
    }
}

void LCM_LoadcaseWidget::createLoadcases(bool copy)
{
    const LCM_CommandScope command(commandLog(),
                                   copy ? LCM_Command::CopyLoadCases : LCM_Command::NewLoadCase);
    modified = true;
    LCM_LoadCaseCreation(*this, *loadcaseTable, *m_numbering, copies).run(copy);
}

bool LCM_LoadcaseWidget::addLoadcase(bool copy, LCM_LoadcaseEntry& entry, std::set<int>& rows,
                                     LCM_LoadcaseCopy& info)
{
    return LCM_LoadCaseCreation(*this, *loadcaseTable, *m_numbering, copies).add(copy, entry, rows, info);
}

void LCM_LoadcaseWidget::appendNewLoadcases(const std::vector<int>& numbers)
{
    LCM_LoadCaseCreation creation(*this, *loadcaseTable, *m_numbering, copies);
    std::vector<LCM_LoadcaseEntry> entries;
    entries.reserve(numbers.size());
    for (const int number : numbers) {
        entries.push_back(
            creation.newEntry(number, loadcaseTable->rowCount() + static_cast<int>(entries.size())));
    }
    if (!entries.empty()) {
        modified = true;
        appendRows(entries);
    }
}

int LCM_LoadcaseWidget::askNumber(bool copy, LCM_LoadcaseCopy& info)
{
    const bool automatic = !copy && checkIncrease->checkState() == Qt::Checked;
    return automatic ? nextNumber() : m_numbering->ask(copy, info);
}

int LCM_LoadcaseWidget::nextNumber() { return m_numbering->next(); }

void LCM_LoadcaseWidget::getAllLoadcases(std::set<int>& out)
{
    for (const int number : loadcaseTable->numbers()) {
        out.insert(out.end(), number);
    }
}

void LCM_LoadcaseWidget::slot_deleteClicked()
{
    const LCM_CommandScope command(commandLog(), LCM_Command::DeleteLoadCases);
    modified = true;
    const std::size_t count = getSelectedRows(loadcaseTable).size();
    std::set<int> numbers;
    getSelectedLoadcases(numbers);
    if (count > 0 && LCM_LoadCaseDeletion::confirmed(this, numbers, count)) {
        LCM_LoadCaseDeletion(*loadcaseTable, *model, *m_actions).removeSelected(copies);
    }
}

QString LCM_LoadcaseWidget::describeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions)
{
    std::set<int> codes;
    for (const tagCDB_LC_ACT& action : actions) {
        codes.insert(lcm_action_code(action));
    }
    std::set<int> numbers;
    for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
        if (codes.count(lcm_cell_id(loadcaseTable->itemOnColId(row, LC_COL_ACTION))) != 0) {
            numbers.insert(loadcaseTable->numberOfRow(row));
        }
    }
    return lcm_numbers_line(numbers);
}

void LCM_LoadcaseWidget::removeActionLoadcases(const tagCDB_LC_ACT& action) { removeLoadCasesOf({action}); }

void LCM_LoadcaseWidget::removeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions)
{
    LCM_LoadCaseDeletion(*loadcaseTable, *model, *m_actions).removeLoadCasesOf(actions);
}

bool LCM_LoadcaseWidget::isActionUsed(const tagCDB_LC_ACT& action)
{
    return m_actions->isUsed(lcm_action_code(action));
}
