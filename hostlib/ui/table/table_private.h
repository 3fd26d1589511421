#pragma once

#include <QObject>

#include "host/mrl_cell_notes.h"
#include "host/mrl_table.h"
#include "host/mrl_table_paste.h"
#include "hostlib/ui/table/cell_entry.h"
#include "hostlib/ui/table/change_reports.h"
#include "hostlib/ui/table/clicked_selection.h"
#include "hostlib/ui/table/clipboard.h"
#include "hostlib/ui/table/column_fit.h"
#include "hostlib/ui/table/columns.h"
#include "hostlib/ui/table/context_menu.h"
#include "hostlib/ui/table/filtered_selection.h"
#include "hostlib/ui/table/finding_marks.h"
#include "hostlib/ui/table/journal.h"
#include "hostlib/ui/table/row_order.h"

/// The parts of a table, each with a room of its own.
struct MRL_H_TableWidget::Private
{
    explicit Private(MRL_H_TableWidget& owner);

    static Private& of(MRL_H_TableWidget& table) { return *table.d; }

    /// Takes rows out of the table in one pass. @param rows ascending @return their cells
    mrl::table::HeldCells takeRows(const std::vector<int>& rows);
    /// Rows came or went unseen.
    void breakJournal();
    /// Puts lines of cells on the clipboard, unless there are none.
    void copy(const std::vector<QStringList>& block, mrl::table::Captions captions) const;
    /// Appends rows of cells that were taken out.
    void putRows(mrl::table::HeldCells cells);

    MRL_H_TableWidget& table;
    mrl::table::Columns columns;
    mrl::table::RowOrder order;
    mrl::table::ChangeReports changes;
    mrl::table::CellEntry entry;
    mrl::table::ContextMenu contextMenu;
    mrl::table::ClickedSelection clicked;
    mrl::table::ColumnFit fit;
    mrl::table::FilteredSelection* selection; ///< child of the table
    mrl::table::FindingMarks marks;
    MRL_H_CellNotes notes; ///< null: no cell has one

    MRL_H_CellNote noteOn(const QModelIndex& index) const
    {
        return notes ? notes(index.row(), index.column()) : MRL_H_CellNote();
    }

    std::unique_ptr<mrl::table::Journal> journal; ///< null until somebody asks for it

    bool appending = false;                   ///< appendNewRows notes its rows itself
    bool removing = false;                    ///< takeRows has emptied the rows that go
    bool openListOnRelease = false;           ///< after a double click on a choice
    bool copiesHtml = false;                  ///< beside the text
    MRL_H_PasteHelper* pasteHelper = nullptr; ///< not owned; null: a paste enters what fits
    QObject context; ///< ends the connections to the parts before the parts and the model end
};
