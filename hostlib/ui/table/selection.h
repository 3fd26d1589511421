#pragma once

/// What of a table is selected and shown.

#include <QTableWidget>

#include <vector>

namespace mrl::table {

/// The rows with a selected cell, ascending.
std::vector<int> selectedRows(const QTableWidget& table);
/// The columns that are not hidden, as they stand on the screen, which need not be their order in the model.
std::vector<int> shownColumns(const QTableWidget& table);
/// The shown columns with a selected cell, as they stand on the screen.
std::vector<int> selectedColumns(const QTableWidget& table);

} // namespace mrl::table
