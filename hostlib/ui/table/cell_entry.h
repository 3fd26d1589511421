#pragma once

#include <QItemSelection>
#include <QModelIndex>

#include <functional>
#include <optional>
#include <vector>

#include "host/mrl_table.h"
#include "host/mrl_table_journal.h"
#include "hostlib/ui/table/change_reports.h"

namespace mrl::table {

/// One entry of a person into a cell: a text, or an entry of a combo list by its id.
struct Entry
{
    int row = -1;
    int column = -1;
    QString text;
    std::optional<int> id;
};

/// Why a column of numbers doesn't take a text; empty when it does.
QString reasonOfRefusal(const MRL_H_TwColumn& column, const QString& text);

/// Values that a person enters, into one cell or into many.
class CellEntry
{
  public:
    CellEntry(MRL_H_TableWidget& table, ChangeReports& changes) : m_table(table), m_changes(changes) {}

    /// True: an entry in a selected cell goes to the same column of all selected rows.
    bool isMultiEditing() const { return m_multiEditing; }
    void setMultiEditing(bool on) { m_multiEditing = on; }

    /// Enters values: skips what can't be edited, reports each changed cell once. With more than one entry each
    /// is reported with its row alone selected, the last one with the whole selection.
    /// @param kind what the listener of the table's journal is told. @param cells selected first, unless empty
    void enter(const std::vector<Entry>& entries, MRL_H_TableJournalListener::Entry kind,
               const QItemSelection& cells = {});
    /// Enters a value from an editor, which multi-editing may carry to other rows.
    void enterFromEditor(const Entry& entry);
    /// Commits an open editor through `commit`, then makes the cell so many steps further the current one.
    void leaveEditor(int rows, int columns, const std::function<void()>& commit);

  private:
    /// Says for some seconds beside the cell why a typed text was not taken, where findings are marked.
    void tellRefusal(const Entry& entry) const;
    MRL_H_TwItem* editableCell(const Entry& entry) const;
    std::size_t lastOfOtherValue(const std::vector<Entry>& entries) const;

    MRL_H_TableWidget& m_table;
    ChangeReports& m_changes;
    bool m_multiEditing = false;
    bool m_reachedManyRows = false; ///< the last entry from an editor
};

} // namespace mrl::table
