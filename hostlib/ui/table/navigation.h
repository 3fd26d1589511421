#pragma once

/// Where the keys lead in a table.

#include <QTableWidget>

namespace mrl::table {

/// The shown cell so many steps further, from the end of a row on to the next one; the cell itself at the end
/// of the table.
QModelIndex neighbour(const QTableWidget& table, const QModelIndex& index, int rows, int columns);

/// The cell in which typing starts: the current one, or the first that can be edited in a selected row.
QModelIndex typingIndex(const QTableWidget& table);

} // namespace mrl::table
