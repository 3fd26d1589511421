// Moving the few rows that stand wrong, without looking at all the others.

#include <algorithm>

#include "hostlib/ui/table/cell_rows.h"
#include "hostlib/ui/table/journal.h"
#include "hostlib/ui/table/row_moves.h"
#include "hostlib/ui/table/row_order.h"

namespace mrl::table {

bool RowOrder::isBefore(const QTableWidgetItem& a, const QTableWidgetItem& b) const
{
    return m_order == Qt::AscendingOrder ? a < b : b < a;
}

/// The rows of the noted cells, ascending. From then on no cell is noted.
std::vector<RowOrder::Stray> RowOrder::takeStrays()
{
    std::vector<Stray> strays;
    for (MRL_H_TwItem* cell : m_unsorted) {
        if (const int row = rowOf(m_table, *cell); row >= 0) {
            strays.push_back({row, cell, 0});
        }
    }
    clearUnsorted();
    std::sort(strays.begin(), strays.end(), [](const Stray& a, const Stray& b) { return a.row < b.row; });
    return strays;
}

/// Finds how many of the rows that stand right come before a stray. Equal ones keep their order.
/// @param strays all of them, ascending by row
/// @return false when a row without a cell was met, which can't be compared
bool RowOrder::findPlace(Stray& stray, const std::vector<Stray>& strays) const
{
    const auto rowOfRight = [&strays](int place) {
        for (const Stray& other : strays) {
            place += other.row <= place ? 1 : 0;
        }
        return place;
    };
    int low = 0;
    int high = m_table.rowCount() - static_cast<int>(strays.size());
    while (low < high) {
        const int middle = (low + high) / 2;
        const int row = rowOfRight(middle);
        const QTableWidgetItem* item = m_table.item(row, m_column);
        if (item == nullptr) {
            return false;
        }
        if (isBefore(*item, *stray.cell) || (row < stray.row && !isBefore(*stray.cell, *item))) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    stray.place = low;
    return true;
}

void RowOrder::sortFew()
{
    std::vector<Stray> strays = takeStrays();
    const std::vector<Stray> byRow = strays;
    if (!std::all_of(strays.begin(), strays.end(), [&](Stray& stray) { return findPlace(stray, byRow); })) {
        sortAll();
        return;
    }
    std::stable_sort(strays.begin(), strays.end(), [this](const Stray& a, const Stray& b) {
        return a.place != b.place ? a.place < b.place : isBefore(*a.cell, *b.cell);
    });
    int before = 0;
    const bool stand = std::all_of(strays.begin(), strays.end(),
                                   [&](const Stray& stray) { return stray.row == stray.place + before++; });
    if (!stand) {
        moveStrays(strays);
    }
}

/// @param strays in the order in which they are to stand
void RowOrder::moveStrays(std::vector<Stray>& strays)
{
    const LayoutChange change(*m_table.model());
    for (std::size_t i = 0; i < strays.size(); ++i) {
        // Rows that have not been moved yet still stand anywhere between.
        const int from = strays[i].row;
        std::vector<int> waiting;
        for (std::size_t j = i + 1; j < strays.size(); ++j) {
            waiting.push_back(strays[j].row - (strays[j].row > from ? 1 : 0));
        }
        std::sort(waiting.begin(), waiting.end());
        int to = strays[i].place + static_cast<int>(i);
        for (const int row : waiting) {
            to += row < to ? 1 : 0;
        }
        moveRow(m_table, from, to);
        if (m_journal != nullptr && from != to) {
            m_journal->noteMoved(from, to);
        }
        for (std::size_t j = i + 1; j < strays.size(); ++j) {
            int& row = strays[j].row;
            row -= row > from ? 1 : 0;
            row += row >= to ? 1 : 0;
        }
    }
}

} // namespace mrl::table
