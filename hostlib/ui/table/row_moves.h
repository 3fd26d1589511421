#pragma once

/// Moving rows of a table in its model. Selection, current cell and other persistent indexes follow their rows.

#include <QTableWidget>

#include <memory>
#include <vector>

namespace mrl::table {

/// While it lives rows may move; observers of the model are told at both ends.
class LayoutChange
{
  public:
    explicit LayoutChange(QAbstractItemModel& model);
    ~LayoutChange();
    LayoutChange(const LayoutChange&) = delete;
    LayoutChange& operator=(const LayoutChange&) = delete;

  private:
    QAbstractItemModel& m_model;
};

/// The row `order[i]` becomes row i. One walk over the cells of the rows that move. @return whether any moves
bool permuteRows(QTableWidget& table, const std::vector<int>& order);

/// Closes the rows that stay up over those that go, which then stand last and are empty. One walk over the
/// cells. @param kept, gone all rows of the table, each list ascending
/// @return the cells of the rows that go, row by row; null where there is none
std::vector<std::unique_ptr<QTableWidgetItem>> dropRows(QTableWidget& table, const std::vector<int>& kept,
                                                        const std::vector<int>& gone);

/// Moves one row for one shift of the model's cells. The caller holds a LayoutChange.
/// @param to where the row stands afterwards
void moveRow(QTableWidget& table, int from, int to);

} // namespace mrl::table
