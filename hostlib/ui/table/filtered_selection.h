#pragma once

#include <QItemSelectionModel>
#include <QTableWidget>

#include <functional>

namespace mrl::table {

/// The selection of a table whose rows may be filtered: rows that are filtered out are hidden, and left out of
/// whatever is selected. Without a filter it is as any other selection.
class FilteredSelection : public QItemSelectionModel
{
  public:
    explicit FilteredSelection(QTableWidget& table);

    /// Shows the rows that are accepted, and hides and deselects all others. Null: shows all rows.
    void setFilter(const std::function<bool(int row)>& accepts);
    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, QItemSelectionModel::SelectionFlags command) override;

  private:
    QItemSelection shownPart(const QItemSelection& selection) const;

    QTableWidget& m_table; ///< the parent
    bool m_isFiltered = false;
};

} // namespace mrl::table
