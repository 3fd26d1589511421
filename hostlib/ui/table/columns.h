#pragma once

#include <vector>

#include "host/mrl_table.h"

namespace mrl::table {

/// The columns of a table by their ids.
class Columns
{
  public:
    explicit Columns(const QTableWidget& table) : m_table(table) {}

    /// Reads the ids anew: after a header was installed, and after columns have come or gone.
    void renumber();
    /// The header of a column that has an id, null for any other column.
    MRL_H_TwHeaderItem* header(int column) const;
    /// The position of the column with this id, -1 when there is none. Constant time.
    int positionOf(int id) const;
    /// The id of the column at this position, -1 when there is none.
    int idAt(int position) const;

  private:
    const QTableWidget& m_table;
    std::vector<int> m_ids;       ///< by position, -1 for a column without id
    std::vector<int> m_positions; ///< by id minus m_firstId
    int m_firstId = 0;
};

} // namespace mrl::table
