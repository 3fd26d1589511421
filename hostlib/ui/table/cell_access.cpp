#include "hostlib/ui/table/cell_access.h"

namespace {

/// Those that an item is made with, so that a cell that was disabled for a while is as it was.
constexpr Qt::ItemFlags EDITABLE_FLAGS = Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled |
                                         Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled |
                                         Qt::ItemIsDropEnabled;

QTableWidgetItem itemWith(Qt::ItemFlags flags)
{
    QTableWidgetItem item;
    item.setFlags(flags);
    return item;
}

} // namespace

bool MRL_H_TwCellAccess::enterId(MRL_H_TwSimpleComboBoxItem& cell, int id, MRL_H_TwItem::Entry entry)
{
    if (cell.m_id == id) {
        return false;
    }
    if (entry == MRL_H_TwItem::Entry::Make) {
        cell.willChange();
        cell.m_id = id;
    }
    return true;
}

// QTableWidgetItem::setFlags tells the table, which searches all its cells for the item once rows have moved.
// Assigning another item copies the flags and tells nobody. The cells of this layer keep nothing else in Qt's
// half of the item.
void MRL_H_TwCellAccess::applyFlags(MRL_H_TwItem& cell)
{
    static const QTableWidgetItem ENABLED = itemWith(EDITABLE_FLAGS);
    static const QTableWidgetItem DISABLED = itemWith(EDITABLE_FLAGS & ~Qt::ItemIsEditable);
    cell.QTableWidgetItem::operator=(cell.MRL_H_TwItem::isEnabled() ? ENABLED : DISABLED);
}
