#pragma once

#include <QTableWidget>

#include <vector>

namespace mrl::table {

/// The rows in the order of the cells of a column, stably: numbers as numbers, other cells by the code units
/// of their texts, rows without a cell last.
std::vector<int> sortedRows(const QTableWidget& table, int column, Qt::SortOrder order);

} // namespace mrl::table
