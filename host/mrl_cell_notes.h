#pragma once

/// What a table tells of cells beside what stands in them.
///
/// A host may leave this header's function out: its tables tell nothing then, and nothing else depends on it.

#include <QString>

#include <functional>

#include "host/mrl_table.h"

struct MRL_H_CellNote
{
    QString text;          ///< shown as tool tip where the cell has none of its own; empty: nothing to tell
    bool isMarked = false; ///< the cell's text is slanted
};

/// The note on a cell by the positions of its row and column.
using MRL_H_CellNotes = std::function<MRL_H_CellNote(int row, int column)>;

/// Gives the cells of a table notes, which are asked for when a cell is painted, pointed at or read out. The text of a
/// marked cell is its accessible description, unless it is a finding.
/// @param notes null: none
MRL_HOST_API void mrl_h_set_cell_notes(MRL_H_TableWidget& table, MRL_H_CellNotes notes) __attribute__((weak));
