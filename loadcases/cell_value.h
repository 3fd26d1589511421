#pragma once

/// One cell of the load-case table. Cells of an unexpected class are left alone and have no value.

#include <QString>

class QTableWidgetItem;

/// The number of a cell; LC_UNDEFINED when it has none, as the action cell, or when it follows the action.
float lcm_cell_value(const QTableWidgetItem* cell);

/// The whole number of a cell, exact to its last digit, which a float would lose above 16777216; LC_UNDEFINED
/// as an int when the cell has none.
int lcm_cell_number(const QTableWidgetItem* cell);

/// Whether the user can type into a cell.
enum class LCM_CellInput { Open, Locked };

/// Writes a number. LC_UNDEFINED: the cell follows the action.
/// @param actionValue what a cell shows that follows the action and can say so
void lcm_set_cell_value(QTableWidgetItem* cell, float value, LCM_CellInput input, float actionValue);

/// The text of a line-edit or combo cell, empty for any other.
QString lcm_cell_text(const QTableWidgetItem* cell);

/// Whether the cell takes its value from the row's action.
bool lcm_cell_from_action(const QTableWidgetItem* cell);
void lcm_set_cell_from_action(QTableWidgetItem* cell, bool fromAction);

/// The id of the chosen entry of a combo cell; -1 for any other cell.
int lcm_cell_id(const QTableWidgetItem* cell);
