// New and copied load cases.

#include <limits>

#include <QScopeGuard>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/actions.h"
#include "lcdata/values/packed_text.h"
#include "loadcases/cell.h"
#include "loadcases/columns.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/number_dialog.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/data_class.h"
#include "rules/load_case_numbers.h"

namespace {

constexpr int CANCELLED = -99999;
constexpr double NO_FACTOR = -99999.0;

/// The factor of the load case that was made last from a selected row, in whatever dialog of this process.
double lastCopyFactor = NO_FACTOR;

} // namespace

void LCM_LoadcaseWidget::slot_newClicked() { createLoadcases(false); }

void LCM_LoadcaseWidget::slot_copyClicked()
{
    if (getSelectedRows(loadcaseTable).empty()) {
        MRL_QT_MessageBox::critical(this, tr("Loadcase selection"), tr("Please select a loadcase to copy!"));
    } else {
        createLoadcases(true);
    }
}

std::vector<int> LCM_LoadcaseWidget::rowNumbers() const
{
    const int column = loadcaseTable->getColumnNumber(LC_COL_NUMBER);
    std::vector<int> numbers(static_cast<std::size_t>(loadcaseTable->rowCount()));
    int row = 0;
    for (int& number : numbers) {
        number = lcm_cell_number(loadcaseTable->item(row++, column));
    }
    return numbers;
}

void LCM_LoadcaseWidget::getAllLoadcases(std::set<int>& out)
{
    for (const int number : rowNumbers()) {
        out.insert(out.end(), number);
    }
}

LCM_FreeNumbers LCM_LoadcaseWidget::freeNumbers()
{
    std::optional<int> selected;
    int first = std::numeric_limits<int>::max();
    for (const QTableWidgetSelectionRange& range : loadcaseTable->selectedRanges()) {
        first = std::min(first, range.topRow());
    }
    if (first < loadcaseTable->rowCount()) {
        selected = numberOfRow(first);
    }
    return LCM_FreeNumbers(rowNumbers(), selected, model->knownLoadCaseNumbers());
}

int LCM_LoadcaseWidget::nextNumber() { return m_freeNumbers ? m_freeNumbers->next() : freeNumbers().next(); }

void LCM_LoadcaseWidget::createLoadcases(bool copy)
{
    modified = true;
    MRL_QT_SortingBlocker sortingBlocker(loadcaseTable);
    const std::set<int> selected = getSelectedRows(loadcaseTable);
    // The selection stays as it is while rows are made, so the search for numbers need not begin anew.
    m_freeNumbers.emplace(freeNumbers());
    const auto forgetNumbers = qScopeGuard([this] { m_freeNumbers.reset(); });
    std::set<int> newRows;
    LCM_LoadcaseEntry entry;
    LCM_LoadcaseCopy info;
    const bool done = selected.empty() ? createWithoutSelection(entry, newRows, info)
                                       : createFromSelection(copy, selected, entry, newRows, info);
    if (!done) {
        return;
    }
    // What follows moves much of the view: it is painted once, at the end.
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    loadcaseTable->clearSelection();
    loadcaseTable->setRangeSelected(QTableWidgetSelectionRange(*newRows.begin(), 1, *newRows.rbegin(), 1),
                                    true);
    sortingBlocker.unblock();
    scrollToSelected(entry.number);
}

bool LCM_LoadcaseWidget::createWithoutSelection(LCM_LoadcaseEntry& entry, std::set<int>& newRows,
                                                LCM_LoadcaseCopy& info)
{
    bindDefaultAction(false, entry);
    return addLoadcase(false, entry, newRows, info);
}

bool LCM_LoadcaseWidget::createFromSelection(bool copy, const std::set<int>& selected,
                                             LCM_LoadcaseEntry& entry, std::set<int>& newRows,
                                             LCM_LoadcaseCopy& info)
{
    int previous = 0;
    for (const int row : selected) {
        readRow(row, entry);
        info.source = entry.number;
        if (entry.number > LC_MAX_NUMBER) {
            MRL_QT_MessageBox::critical(
                this, tr("Loadcase number"),
                tr("The maximum loadcase number is %1, selected loadcase number is to high!")
                    .arg(LC_MAX_NUMBER));
            return false;
        }
        if (previous > 0) {
            info.target = previous;
        }
        if (lastCopyFactor != NO_FACTOR) {
            info.factor = lastCopyFactor;
        }
        if (!addLoadcase(copy, entry, newRows, info)) {
            return false;
        }
        previous = entry.number;
        lastCopyFactor = info.factor;
    }
    return true;
}

bool LCM_LoadcaseWidget::addLoadcase(bool copy, LCM_LoadcaseEntry& entry, std::set<int>& rows,
                                     LCM_LoadcaseCopy& info)
{
    entry.number = askNumber(copy, info);
    if (entry.number == CANCELLED) {
        return false;
    }
    if (entry.number > LC_MAX_NUMBER) {
        MRL_QT_MessageBox::critical(this, tr("Loadcase number"),
                                    tr("The maximum loadcase number is %1").arg(LC_MAX_NUMBER));
        return false;
    }
    if (entry.record.title[0] == 0) {
        lcm_title_pack(tr("Loadcase %1").arg(entry.number), entry.record.title, LC_TITLE_WORDS);
    }
    const LCM_DefaultAction kind = lcm_default_action_of_new(loadcaseTable->rowCount());
    if (kind != LCM_DefaultAction::Keep) {
        bindDefaultAction(kind == LCM_DefaultAction::Dead, entry);
    }

    const MRL_QT_SortingBlocker sortingBlocker(loadcaseTable);
    loadcaseTable->appendNewRows(1, MRL_H_TableWidget::CreateCells);
    const int row = loadcaseTable->rowCount() - 1;
    rows.insert(row);
    fillRow(row, entry);
    setRowValid(row, checkRow(row));
    if (m_freeNumbers) {
        m_freeNumbers->take(entry.number);
    }
    if (copy) {
        copies.push_back(info);
    }
    return true;
}

void LCM_LoadcaseWidget::bindDefaultAction(bool dead, LCM_LoadcaseEntry& entry)
{
    tagCDB_LC_ACT action{};
    const int code = mrl_lc_get_default_action(db, dead, action);
    const bool exists = !actionsWidget || actionsWidget->actionExists(code);
    lcm_bind_default_action(action, exists, entry.record);
}

int LCM_LoadcaseWidget::askNumber(bool copy, LCM_LoadcaseCopy& info)
{
    if (!copy && checkIncrease->checkState() == Qt::Checked) {
        return nextNumber();
    }
    std::set<int> taken = model->getUsedLoadcaseNumbers();
    for (const int number : rowNumbers()) {
        taken.insert(number);
    }
    info.target = info.target > 0 ? lcm_proposed_target(info.target, taken) : nextNumber();
    LCM_LoadcaseNumberDialog dialog(this, taken, copy, info);
    if (dialog.exec() != QDialog::Accepted) {
        return CANCELLED;
    }
    if (copy) {
        info.target = dialog.number();
        info.factor = dialog.factor();
    }
    return dialog.number();
}

void LCM_LoadcaseWidget::scrollToSelected(int number)
{
    for (const int row : getSelectedRows(loadcaseTable)) {
        if (numberOfRow(row) == number) {
            loadcaseTable->scrollTo(loadcaseTable->model()->index(row, 0));
            return;
        }
    }
}
