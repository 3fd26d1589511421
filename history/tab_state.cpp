#include "history/tab_state.h"

#include <QItemSelectionModel>

#include <algorithm>

#include "actions/tab_interface.h"
#include "host/mrl_table.h"

namespace {

/// The rows of these cells, ascending; those that the table doesn't have are left out.
std::vector<int> rowsOf(const MRL_H_TableWidget& table, const std::vector<const QTableWidgetItem*>& cells)
{
    std::vector<int> rows;
    rows.reserve(cells.size());
    for (const QTableWidgetItem* cell : cells) {
        if (const int row = table.rowOf(cell); row >= 0) {
            rows.push_back(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

} // namespace

LCM_TabState::LCM_TabState(const LCM_TabInterface& tab)
    : m_modified(tab.isModified()), m_current(tab.tableWidget()->currentItem()),
      m_currentColumn(tab.tableWidget()->currentColumn())
{
    const MRL_H_TableWidget& table = *tab.tableWidget();
    for (const QItemSelectionRange& range : table.selectionModel()->selection()) {
        Range kept{range.left(), range.right(), {}};
        kept.rows.reserve(static_cast<std::size_t>(range.height()));
        for (int row = range.top(); row <= range.bottom(); ++row) {
            kept.rows.push_back(table.item(row, 0));
        }
        m_selection.push_back(std::move(kept));
    }
}

void LCM_TabState::restore(LCM_TabInterface& tab) const
{
    tab.setModified(m_modified);
    MRL_H_TableWidget& table = *tab.tableWidget();
    select(table);
    const int row = m_current ? table.rowOf(m_current) : -1;
    const QModelIndex current = row < 0 ? QModelIndex() : table.model()->index(row, m_currentColumn);
    table.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
}

void LCM_TabState::select(MRL_H_TableWidget& table) const
{
    QItemSelection selection;
    const QAbstractItemModel* model = table.model();
    for (const Range& range : m_selection) {
        const std::vector<int> rows = rowsOf(table, range.rows);
        // Adjacent rows become one range again.
        for (auto first = rows.begin(); first != rows.end();) {
            auto last = first;
            while (std::next(last) != rows.end() && *std::next(last) == *last + 1) {
                ++last;
            }
            selection.append(
                QItemSelectionRange(model->index(*first, range.left), model->index(*last, range.right)));
            first = std::next(last);
        }
    }
    table.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

std::size_t LCM_TabState::bytes() const
{
    std::size_t bytes = sizeof *this;
    for (const Range& range : m_selection) {
        bytes += sizeof range + range.rows.capacity() * sizeof(void*);
    }
    return bytes;
}
