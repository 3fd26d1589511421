#include "host/mrl_cell_notes.h"

#include "hostlib/ui/table/table_private.h"

void mrl_h_set_cell_notes(MRL_H_TableWidget& table, MRL_H_CellNotes notes)
{
    MRL_H_TableWidget::Private::of(table).notes = std::move(notes);
    table.viewport()->update();
}
