#pragma once

#include "host/mrl_table.h"

namespace mrl::table {

/// The row of a cell of a column of this table, -1 when it stands nowhere in it. Constant time for a cell that
/// stayed where it was seen last or moved a little; otherwise one pass over the column finds all its cells.
int rowOf(const QTableWidget& table, const MRL_H_TwItem& cell);

} // namespace mrl::table
