#pragma once

/// Rectangles of cells: what copying takes, where pasted lines go, and what fill down repeats.

#include <QItemSelection>
#include <QStringList>

#include <vector>

#include "hostlib/ui/table/cell_entry.h"
#include "hostlib/ui/table/clipboard.h"

namespace mrl::table {

/// The selected rectangle, line by line; what isn't selected in it is empty. Empty when nothing is selected.
std::vector<QStringList> selectedBlock(const QTableWidget& table, Captions captions);

/// What pasting does.
struct Paste
{
    std::vector<Entry> entries;
    std::vector<int> rows; ///< that the lines go to; lines beyond them have no row
    std::vector<int> columns;
    QItemSelection cells; ///< to be selected; empty when the selection is the same already
};

/// The entries of lines from the first selected cell on, over the shown rows and columns; lines that fit into
/// the selection several times fill it. @param lines not empty
Paste plannedPaste(const QTableWidget& table, const std::vector<QStringList>& lines);

/// The values of the first selected row as entries for the other selected rows.
std::vector<Entry> plannedFillDown(const QTableWidget& table);

} // namespace mrl::table
