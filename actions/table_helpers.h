#pragma once

/// Helpers that the tables of both tabs use.

#include <QString>

#include <set>

#include "check/finding_text.h"
#include "host/mrl_table.h"

/// Makes the header of a line-edit column and installs it.
/// @return the header, owned by the table
MRL_H_TwHeaderLineEditItem* createLineEditHeader(MRL_H_TableWidget* table, int id,
                                                 const StructLineEdit& description, const QString& caption,
                                                 const QString& toolTip, int position);

/// All rows of the selected ranges, each once, in ascending order.
std::set<int> getSelectedRows(const QTableWidget* table);

/// Shows the errors of a row: the cells of the columns with an error are red and tell it in their tool
/// tip, all others are black and without a tool tip. An error for a column that the table doesn't have is
/// not shown. Writes only what changes. The caller blocks the table's signals.
void markRowErrors(MRL_H_TableWidget* table, int row, const LCM_ErrorList& errors);

/// Commits what is being typed into a cell of the table.
void lcm_commit_edit(MRL_H_TableWidget& table);

/// Stores the verdict on a row, see ROLE_ROW_VALID; does nothing without a cell for it.
void lcm_set_row_valid(MRL_H_TableWidget* table, int row, bool valid);

/// Removes rows in one pass and selects the row that follows the first of them, or the last row if there is
/// none. Skips positions without a row.
/// @param rows positions; of an empty set row 0 is selected
void removeRows(QTableWidget* table, const std::set<int>& rows);
