#pragma once

#include <QObject>

#include "host/mrl_table.h"
#include "hostlib/ui/table/cell_entry.h"
#include "hostlib/ui/table/change_reports.h"
#include "hostlib/ui/table/clicked_selection.h"
#include "hostlib/ui/table/column_fit.h"
#include "hostlib/ui/table/columns.h"
#include "hostlib/ui/table/context_menu.h"
#include "hostlib/ui/table/filtered_selection.h"
#include "hostlib/ui/table/finding_marks.h"
#include "hostlib/ui/table/row_order.h"

/// The parts of a table, each with a room of its own.
struct MRL_H_TableWidget::Private
{
    explicit Private(MRL_H_TableWidget& table);

    static Private& of(MRL_H_TableWidget& table) { return *table.d; }

    mrl::table::Columns columns;
    mrl::table::RowOrder order;
    mrl::table::ChangeReports changes;
    mrl::table::CellEntry entry;
    mrl::table::ContextMenu contextMenu;
    mrl::table::ClickedSelection clicked;
    mrl::table::ColumnFit fit;
    mrl::table::FilteredSelection* selection; ///< child of the table
    mrl::table::FindingMarks marks;

    bool appending = false;         ///< appendNewRows notes its rows itself
    bool openListOnRelease = false; ///< after a double click on a choice
    bool copiesHtml = false;        ///< beside the text, when copying with headers
    QObject context;                ///< ends the connections to the parts before the parts and the model end
};
