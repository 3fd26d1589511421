#include "loadcases/load_case_creation.h"

#include <QScopeGuard>

#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/actions.h"
#include "lcdata/values/packed_text.h"
#include "loadcases/load_case_numbering.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"

namespace {

constexpr double NO_FACTOR = -99999.0;

/// The factor of the load case that was made last from a selected row, in whatever dialog of this process.
double lastCopyFactor = NO_FACTOR;

} // namespace

void LCM_LoadCaseCreation::run(bool copy)
{
    MRL_QT_SortingBlocker sortingBlocker(&m_table);
    const std::set<int> selected = getSelectedRows(&m_table);
    m_numbering.begin();
    const auto endNumbering = qScopeGuard([this] { m_numbering.end(); });
    std::set<int> newRows;
    LCM_LoadcaseEntry entry;
    const bool done = selected.empty() ? createWithoutSelection(entry, newRows)
                                       : createFromSelection(copy, selected, entry, newRows);
    if (!done) {
        return;
    }
    // What follows moves much of the view: it is painted once, at the end.
    const MRL_QT_UpdateBlocker updateBlocker(&m_table);
    m_table.clearSelection();
    m_table.setRangeSelected(QTableWidgetSelectionRange(*newRows.begin(), 1, *newRows.rbegin(), 1), true);
    sortingBlocker.unblock();
    scrollToSelected(entry.number);
}

bool LCM_LoadCaseCreation::createWithoutSelection(LCM_LoadcaseEntry& entry, std::set<int>& newRows)
{
    LCM_LoadcaseCopy info;
    bindDefaultAction(false, entry);
    return m_tab.addLoadcase(false, entry, newRows, info);
}

bool LCM_LoadCaseCreation::createFromSelection(bool copy, const std::set<int>& selected,
                                               LCM_LoadcaseEntry& entry, std::set<int>& newRows)
{
    LCM_LoadcaseCopy info;
    int previous = 0;
    for (const int row : selected) {
        m_tab.readRow(row, entry);
        info.source = entry.number;
        if (entry.number > LC_MAX_NUMBER) {
            refuse(LCM_LoadcaseWidget::tr(
                       "The maximum loadcase number is %1, selected loadcase number is to high!")
                       .arg(LC_MAX_NUMBER));
            return false;
        }
        if (previous > 0) {
            info.target = previous;
        }
        if (lastCopyFactor != NO_FACTOR) {
            info.factor = lastCopyFactor;
        }
        if (!m_tab.addLoadcase(copy, entry, newRows, info)) {
            return false;
        }
        previous = entry.number;
        lastCopyFactor = info.factor;
    }
    return true;
}

bool LCM_LoadCaseCreation::add(bool copy, LCM_LoadcaseEntry& entry, std::set<int>& rows,
                               LCM_LoadcaseCopy& info)
{
    entry.number = m_tab.askNumber(copy, info);
    if (entry.number == LCM_LoadCaseNumbering::CANCELLED) {
        return false;
    }
    if (entry.number > LC_MAX_NUMBER) {
        refuse(LCM_LoadcaseWidget::tr("The maximum loadcase number is %1").arg(LC_MAX_NUMBER));
        return false;
    }
    complete(entry, m_table.rowCount());
    appendRow(entry, rows);
    m_numbering.take(entry.number);
    if (copy) {
        m_copies.push_back(info);
    }
    return true;
}

/// Gives a new load case what it lacks: a title, and the default action of the first ones.
void LCM_LoadCaseCreation::complete(LCM_LoadcaseEntry& entry, int rows)
{
    if (entry.record.title[0] == 0) {
        lcm_title_pack(LCM_LoadcaseWidget::tr("Loadcase %1").arg(entry.number), entry.record.title,
                       LC_TITLE_WORDS);
    }
    const LCM_DefaultAction kind = lcm_default_action_of_new(rows);
    if (kind != LCM_DefaultAction::Keep) {
        bindDefaultAction(kind == LCM_DefaultAction::Dead, entry);
    }
}

LCM_LoadcaseEntry LCM_LoadCaseCreation::newEntry(int number, int rows)
{
    LCM_LoadcaseEntry entry;
    bindDefaultAction(false, entry);
    entry.number = number;
    complete(entry, rows);
    return entry;
}

void LCM_LoadCaseCreation::appendRow(const LCM_LoadcaseEntry& entry, std::set<int>& rows)
{
    const MRL_QT_SortingBlocker sortingBlocker(&m_table);
    m_table.appendNewRows(1, MRL_H_TableWidget::CreateCells);
    const int row = m_table.rowCount() - 1;
    rows.insert(row);
    m_tab.fillRow(row, entry);
    m_tab.setRowValid(row, m_tab.checkRow(row));
}

void LCM_LoadCaseCreation::bindDefaultAction(bool dead, LCM_LoadcaseEntry& entry)
{
    tagCDB_LC_ACT action{};
    const int code = mrl_lc_get_default_action(m_tab.database(), dead, action);
    LCM_RowContext context = m_tab.rowContext();
    const bool exists = !context.actions.hasTab() || context.actions.find(code);
    lcm_bind_default_action(action, exists, entry.record);
}

void LCM_LoadCaseCreation::scrollToSelected(int number)
{
    for (const int row : getSelectedRows(&m_table)) {
        if (m_table.numberOfRow(row) == number) {
            m_table.scrollTo(m_table.model()->index(row, 0));
            return;
        }
    }
}

void LCM_LoadCaseCreation::refuse(const QString& reason)
{
    MRL_QT_MessageBox::critical(&m_tab, LCM_LoadcaseWidget::tr("Loadcase number"), reason);
}
