#include "hostlib/ui/table/columns.h"

#include <algorithm>

#include "hostlib/ui/table/column.h"

namespace mrl::table {

namespace {

/// The ids of a table lie closer together than this, since they index a vector.
constexpr int LONGEST_ID_RANGE = 1 << 16;

} // namespace

MRL_H_TwHeaderItem* Columns::header(int column) const
{
    return dynamic_cast<MRL_H_TwHeaderItem*>(m_table.horizontalHeaderItem(column));
}

void Columns::renumber()
{
    m_ids.assign(static_cast<std::size_t>(m_table.columnCount()), -1);
    m_positions.clear();
    int lowest = 0;
    int highest = -1;
    for (int column = 0; column < m_table.columnCount(); ++column) {
        const MRL_H_TwHeaderItem* item = header(column);
        if (item == nullptr) {
            continue;
        }
        item->column()->position = column;
        m_ids[static_cast<std::size_t>(column)] = item->id();
        lowest = highest < lowest ? item->id() : std::min(lowest, item->id());
        highest = std::max(highest, item->id());
    }
    Q_ASSERT(highest - lowest < LONGEST_ID_RANGE);
    m_firstId = lowest;
    if (highest >= lowest) {
        m_positions.assign(static_cast<std::size_t>(highest - lowest) + 1, -1);
    }
    // Backwards: of two columns with one id the first is found.
    for (int column = m_table.columnCount() - 1; column >= 0; --column) {
        if (header(column) != nullptr) {
            m_positions[static_cast<std::size_t>(idAt(column) - m_firstId)] = column;
        }
    }
}

int Columns::positionOf(int id) const
{
    if (id < m_firstId) {
        return -1;
    }
    const auto place = static_cast<std::size_t>(id) - static_cast<std::size_t>(m_firstId);
    return place < m_positions.size() ? m_positions[place] : -1;
}

int Columns::idAt(int position) const
{
    return position >= 0 && static_cast<std::size_t>(position) < m_ids.size()
               ? m_ids[static_cast<std::size_t>(position)]
               : -1;
}

} // namespace mrl::table
