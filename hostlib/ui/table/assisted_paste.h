#pragma once

#include <QStringList>

#include <vector>

#include "host/mrl_table_paste.h"
#include "hostlib/ui/table/cell_block.h"

namespace mrl::table {

/// A paste in which a helper takes part.
class AssistedPaste
{
  public:
    /// All outlive this.
    AssistedPaste(MRL_H_TableWidget& table, CellEntry& entry, MRL_H_PasteHelper& helper)
        : m_table(table), m_entry(entry), m_helper(helper)
    {
    }

    /// @param lines not empty
    void run(const std::vector<QStringList>& lines);

  private:
    void refuseSurplusFields(const std::vector<QStringList>& lines, const Paste& paste);
    void makeRows(const std::vector<QStringList>& lines, const Paste& paste);
    QItemSelection pastedCells(const Paste& paste) const;
    void add(int row, int column, const QString& text);
    void refuse(int row, int column, const QString& text, const QString& reason);
    void enterAll(const QItemSelection& cells);
    void tellUntaken();
    int columnId(int column) const { return column < 0 ? -1 : m_table.getColumnId(column); }

    MRL_H_TableWidget& m_table;
    CellEntry& m_entry;
    MRL_H_PasteHelper& m_helper;
    std::vector<Entry> m_choices; ///< entered first, since a choice may change the numbers of its row
    std::vector<Entry> m_others;
    std::vector<MRL_H_RefusedValue> m_refused;
    std::vector<int> m_made; ///< rows for lines that had none
    int m_values = 0;
};

} // namespace mrl::table
