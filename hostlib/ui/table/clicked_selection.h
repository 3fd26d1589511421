#pragma once

#include <QItemSelection>
#include <QMouseEvent>
#include <QTableWidget>

namespace mrl::table {

/// The selection before a click on it. A click reduces it to the cell when the button is released; if that was
/// the first half of a double click, the selection comes back for the editing.
class ClickedSelection
{
  public:
    /// The mouse was pressed on a cell.
    void note(const QTableWidget& table, const QMouseEvent& event);
    /// Selects again what was selected, when a double click ends on the cell that was pressed.
    void giveBack(QTableWidget& table, const QMouseEvent& event) const;

  private:
    QItemSelection m_selection;
    QPersistentModelIndex m_index;
};

} // namespace mrl::table
