#include "loadcases/load_case_numbering.h"

#include <algorithm>
#include <limits>
#include <set>

#include "loadcases/number_dialog.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"

LCM_FreeNumbers LCM_LoadCaseNumbering::freeNumbers() const
{
    std::optional<int> selected;
    int first = std::numeric_limits<int>::max();
    for (const QTableWidgetSelectionRange& range : m_table.selectedRanges()) {
        first = std::min(first, range.topRow());
    }
    if (first < m_table.rowCount()) {
        selected = m_table.numberOfRow(first);
    }
    return LCM_FreeNumbers(m_table.numbers(), selected, m_model.knownLoadCaseNumbers());
}

int LCM_LoadCaseNumbering::next() { return m_free ? m_free->next() : freeNumbers().next(); }

void LCM_LoadCaseNumbering::take(int number)
{
    if (m_free) {
        m_free->take(number);
    }
}

int LCM_LoadCaseNumbering::ask(bool copy, LCM_LoadcaseCopy& info)
{
    std::set<int> taken = m_model.getUsedLoadcaseNumbers();
    for (const int number : m_table.numbers()) {
        taken.insert(number);
    }
    info.target = info.target > 0 ? lcm_proposed_target(info.target, taken) : next();
    LCM_LoadcaseNumberDialog dialog(&m_tab, taken, copy, info);
    if (dialog.exec() != QDialog::Accepted) {
        return CANCELLED;
    }
    if (copy) {
        info.target = dialog.number();
        info.factor = dialog.factor();
    }
    return dialog.number();
}
