#pragma once

#include <QTableWidget>

#include <optional>
#include <set>

#include "hostlib/ui/table/text_widths.h"

namespace mrl::table {

/// The room beside and above a cell's text, in pixels.
constexpr int CELL_TEXT_MARGIN = 6;

/// How wide a column has to be for its cells. Keeps what it measured as long as the table's font stays.
class ColumnFit
{
  public:
    /// The width of the widest text among the rows that the header's resizeContentsPrecision tells, from the
    /// first one in sight on, with its margins.
    /// @return none when the column holds items that are no cells of this library
    std::optional<int> widthOf(const QTableWidget& table, int column);
    /// Shows a column, fitted when that was not done before.
    void show(QTableWidget& table, int column);

  private:
    std::optional<TextWidths> m_widths;
    std::set<const QTableWidgetItem*> m_shown; ///< the headers of the columns that were fitted when shown
};

} // namespace mrl::table
