#pragma once

#include <set>
#include <vector>

#include "check/finding_text.h"
#include "host/mrl_table.h"
#include "lcdata/values/records.h"

/// The cells of a row, taken all at once. A sorted table may move a row when one of its cells is written; the
/// taken cells stay those of the same row. Good until the row is removed.
class LCM_RowCells
{
  public:
    LCM_RowCells(const MRL_H_TableWidget* table, int row);

    /// The cell in the column with this id. @return null when there is none or it is of another class
    template <class Item>
    Item* at(int columnId) const
    {
        return dynamic_cast<Item*>(cellAt(columnId));
    }
    bool hasColumn(int columnId) const;
    /// Where the row stands now. Constant time as long as it hasn't moved.
    int position() const;
    /// A cell that identifies the row. @return null for a row without cells
    const QTableWidgetItem* anyCell() const;

    /// See markRowErrors.
    void markErrors(const LCM_ErrorList& errors) const;
    /// Stores the verdict on the row, see ROLE_ROW_VALID.
    void setValid(bool valid) const;
    /// The row's action code, -1 without a cell that holds it.
    int actionCode() const;

    /// Writes an action and its code into the row; skips missing cells and judges nothing.
    void show(const tagCDB_LC_ACT& action) const;
    /// Reads the row into a record. @param action [out] is written whole @return the action code
    int read(tagCDB_LC_ACT& action) const;

  private:
    QTableWidgetItem* cellAt(int columnId) const;

    const MRL_H_TableWidget* m_table;
    int m_row;
    std::vector<QTableWidgetItem*> m_cells; ///< by column position
};

/// Where rows stand now, in one walk over the table.
std::set<int> lcm_positions(const MRL_H_TableWidget* table, const std::vector<LCM_RowCells>& rows);
