#pragma once

#include <QTableWidgetItem>

/// An item as a cell of a class, by its type; null for any other. Cheaper than a dynamic_cast.
/// @param first, last the types of the class and of what derives from it
template <typename Cell, typename Item>
Cell* castCell(Item* item, int first, int last)
{
    return item != nullptr && item->type() >= first && item->type() <= last ? static_cast<Cell*>(item)
                                                                            : nullptr;
}
