#pragma once

#include <QTableWidget>

#include "host/mrl_table.h"

namespace mrl::table {

/// The next shown cell with a text in its own, without regard to case, row by row as they stand on the screen,
/// beyond the end once more from the start. @param from where the search starts; this cell is looked at last
/// @return invalid when no cell has the text, and for an empty text
QModelIndex findText(const QTableWidget& table, const QString& text, const QModelIndex& from,
                     MRL_H_TableWidget::Search search);

} // namespace mrl::table
