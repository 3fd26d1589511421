#include "hostlib/ui/table/clicked_selection.h"

namespace mrl::table {

void ClickedSelection::note(const QTableWidget& table, const QMouseEvent& event)
{
    const QModelIndex index = table.indexAt(event.pos());
    const bool onSelection = event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier &&
                             table.selectionModel()->isSelected(index);
    m_selection = onSelection ? table.selectionModel()->selection() : QItemSelection();
    m_index = onSelection ? QPersistentModelIndex(index) : QPersistentModelIndex();
}

void ClickedSelection::giveBack(QTableWidget& table, const QMouseEvent& event) const
{
    const QModelIndex index = table.indexAt(event.pos());
    if (index.isValid() && m_index == index && event.button() == Qt::LeftButton) {
        table.selectionModel()->select(m_selection, QItemSelectionModel::ClearAndSelect);
    }
}

} // namespace mrl::table
