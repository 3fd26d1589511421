#include "hostlib/ui/table/row_order.h"

#include <algorithm>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/journal.h"
#include "hostlib/ui/table/row_moves.h"
#include "hostlib/ui/table/sorted_rows.h"

namespace mrl::table {

namespace {

/// Up to so many rows are moved one by one.
constexpr std::size_t FEW_ROWS = 6;

} // namespace

void RowOrder::setOrder(int column, Qt::SortOrder order)
{
    if (column != m_column || order != m_order) {
        noteAllUnsorted();
    }
    m_column = column;
    m_order = order;
}

void RowOrder::sort()
{
    if (m_allUnsorted) {
        sortAll();
    } else if (!m_unsorted.empty()) {
        sortFew();
    }
}

void RowOrder::noteUnsorted(MRL_H_TwItem& cell)
{
    quint8& state = MRL_H_TwCellAccess::state(cell);
    if (m_allUnsorted || (state & MRL_H_TwCellAccess::Unsorted) != 0) {
        return;
    }
    if (m_unsorted.size() >= FEW_ROWS) {
        noteAllUnsorted();
        return;
    }
    state = static_cast<quint8>(state | MRL_H_TwCellAccess::Unsorted);
    m_unsorted.push_back(&cell);
}

void RowOrder::noteAllUnsorted()
{
    clearUnsorted();
    m_allUnsorted = true;
}

void RowOrder::forget(const MRL_H_TwItem& cell)
{
    m_unsorted.erase(std::remove(m_unsorted.begin(), m_unsorted.end(), &cell), m_unsorted.end());
}

void RowOrder::clearUnsorted()
{
    for (MRL_H_TwItem* cell : m_unsorted) {
        quint8& state = MRL_H_TwCellAccess::state(*cell);
        state = static_cast<quint8>(state & ~MRL_H_TwCellAccess::Unsorted);
    }
    m_unsorted.clear();
}

void RowOrder::sortAll()
{
    clearUnsorted();
    m_allUnsorted = false;
    if (m_column >= 0 && m_column < m_table.columnCount() && m_table.rowCount() > 1) {
        const std::vector<int> order = sortedRows(m_table, m_column, m_order);
        if (permuteRows(m_table, order) && m_journal != nullptr) {
            m_journal->notePermuted(order);
        }
    }
}

} // namespace mrl::table
