#include "hostlib/ui/table/cell_entry.h"

#include <QItemSelectionModel>
#include <QSignalBlocker>
#include <QToolTip>

#include <cmath>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/navigation.h"
#include "hostlib/ui/table/number_text.h"
#include "hostlib/ui/table/plain_tool_tip.h"
#include "hostlib/ui/table/selection.h"
#include "hostlib/ui/table/table_private.h"

namespace mrl::table {

namespace {

/// @return true when the value is, or would be, another one
bool enterInto(MRL_H_TwItem& cell, const Entry& entry, MRL_H_TwItem::Entry mode)
{
    if (!entry.id.has_value()) {
        return MRL_H_TwCellAccess::enterText(cell, entry.text, mode);
    }
    auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(&cell);
    return combo != nullptr && MRL_H_TwCellAccess::enterId(*combo, *entry.id, mode);
}

/// Narrows the selection to the cell that is being reported, and restores it, without a signal. A receiver that
/// judges the selected rows at each report thus judges each row once, and not all rows each time.
class NarrowedSelection
{
  public:
    explicit NarrowedSelection(MRL_H_TableWidget& table)
        : m_selection(table.selectionModel()), m_whole(m_selection->selection())
    {
    }
    ~NarrowedSelection() { widen(); }
    NarrowedSelection(const NarrowedSelection&) = delete;
    NarrowedSelection& operator=(const NarrowedSelection&) = delete;

    void narrowTo(const QModelIndex& index)
    {
        select(QItemSelection(index, index));
        m_narrowed = true;
    }
    void widen()
    {
        if (m_narrowed && m_selection != nullptr) {
            select(m_whole);
        }
        m_narrowed = false;
    }

  private:
    void select(const QItemSelection& what)
    {
        const QSignalBlocker quiet(m_selection);
        m_selection->select(what, QItemSelectionModel::ClearAndSelect);
    }

    QPointer<QItemSelectionModel> m_selection; ///< null when a receiver deleted the table
    QItemSelection m_whole;
    bool m_narrowed = false;
};

/// Tells the listener of the table's journal where an entry begins and ends.
class EntryReport
{
  public:
    EntryReport(MRL_H_TableWidget& table, MRL_H_TableJournalListener::Entry kind,
                const std::vector<Entry>& entries)
        : m_table(&table)
    {
        if (MRL_H_TableJournalListener* listener = listenerOf(table)) {
            listener->entryBegins(kind, table.getColumnId(entries.front().column), entries.size());
        }
    }
    ~EntryReport()
    {
        MRL_H_TableJournalListener* listener = m_table != nullptr ? listenerOf(*m_table) : nullptr;
        if (listener != nullptr) {
            listener->entryEnds();
        }
    }
    EntryReport(const EntryReport&) = delete;
    EntryReport& operator=(const EntryReport&) = delete;

  private:
    static MRL_H_TableJournalListener* listenerOf(MRL_H_TableWidget& table)
    {
        const auto& journal = MRL_H_TableWidget::Private::of(table).journal;
        return journal ? journal->listener() : nullptr;
    }

    QPointer<MRL_H_TableWidget> m_table; ///< null when a receiver deleted the table
};

} // namespace

QString reasonOfRefusal(const MRL_H_TwColumn& column, const QString& text)
{
    if (!column.isNumber()) {
        return {};
    }
    const auto number = parseNumber(text);
    if (!number.has_value()) {
        return MRL_H_TableWidget::tr("\"%1\" is no number.").arg(text);
    }
    if (!column.allows(*number)) {
        return MRL_H_TableWidget::tr("%1 is not between %2 and %3.")
            .arg(text, column.numberText(column.description.firstBound),
                 column.numberText(column.description.secondBound));
    }
    const bool isWhole = *number == std::floor(*number);
    return column.kind == MRL_H_TwColumn::Kind::Whole && !isWhole
               ? MRL_H_TableWidget::tr("%1 is no whole number.").arg(text)
               : QString();
}

MRL_H_TwItem* CellEntry::editableCell(const Entry& entry) const
{
    MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(m_table.item(entry.row, entry.column));
    return cell != nullptr && cell->isEnabled() ? cell : nullptr;
}

/// The last entry that changes its cell, their number for none.
std::size_t CellEntry::lastOfOtherValue(const std::vector<Entry>& entries) const
{
    for (std::size_t i = entries.size(); i-- > 0;) {
        MRL_H_TwItem* cell = editableCell(entries[i]);
        if (cell != nullptr && enterInto(*cell, entries[i], MRL_H_TwItem::Entry::Try)) {
            return i;
        }
    }
    return entries.size();
}

void CellEntry::enter(const std::vector<Entry>& entries, MRL_H_TableJournalListener::Entry kind,
                      const QItemSelection& cells)
{
    if (entries.empty()) {
        return;
    }
    const EntryReport report(m_table, kind, entries);
    if (!cells.isEmpty()) {
        m_table.selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
    }
    const QPointer<MRL_H_TableWidget> alive(&m_table);
    const ReportScope scope(m_changes);
    const std::size_t last = lastOfOtherValue(entries);
    NarrowedSelection selection(m_table);
    for (std::size_t i = 0; i < entries.size() && alive != nullptr; ++i) {
        MRL_H_TwItem* cell = editableCell(entries[i]);
        if (cell == nullptr || !enterInto(*cell, entries[i], MRL_H_TwItem::Entry::Make)) {
            continue;
        }
        MRL_H_TwCellAccess::row(*cell) = entries[i].row;
        if (entries.size() > 1 && i != last) {
            selection.narrowTo(m_table.model()->index(entries[i].row, entries[i].column));
        } else {
            selection.widen();
        }
        m_changes.noteChange(*cell);
    }
}

void CellEntry::enterFromEditor(const Entry& entry)
{
    std::vector<Entry> entries{entry};
    const QModelIndex index = m_table.model()->index(entry.row, entry.column);
    if (m_multiEditing && m_table.selectionModel()->isSelected(index)) {
        const std::vector<int> rows = selectedRows(m_table);
        entries.assign(rows.size(), entry);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            entries[i].row = rows[i];
        }
    }
    m_reachedManyRows = entries.size() > 1;
    const QPointer<MRL_H_TableWidget> alive(&m_table);
    enter(entries, MRL_H_TableJournalListener::Entry::Typed);
    if (alive != nullptr) {
        tellRefusal(entry);
    }
}

void CellEntry::tellRefusal(const Entry& entry) const
{
    constexpr int MILLISECONDS = 5000;
    const MRL_H_TwItem* cell = entry.id.has_value() ? nullptr : editableCell(entry);
    if (cell == nullptr || !MRL_H_TableWidget::Private::of(m_table).marks.areOn()) {
        return;
    }
    const QString reason = reasonOfRefusal(*MRL_H_TwCellAccess::column(*cell), entry.text);
    if (reason.isEmpty()) {
        return;
    }
    const QRect place = m_table.visualItemRect(cell);
    QToolTip::showText(m_table.viewport()->mapToGlobal(place.bottomLeft()), plainToolTip(reason), &m_table,
                       QRect(), MILLISECONDS);
}

void CellEntry::leaveEditor(int rows, int columns, const std::function<void()>& commit)
{
    const QPointer<MRL_H_TableWidget> alive(&m_table);
    // The step to the next cell belongs to the entry.
    const EntryReport report(m_table, MRL_H_TableJournalListener::Entry::Typed,
                             {{m_table.currentRow(), m_table.currentColumn(), {}, std::nullopt}});
    // Taken before the entry, which may sort: filling a column goes on with the cell that stood below.
    const QPersistentModelIndex next = neighbour(m_table, m_table.currentIndex(), rows, columns);
    m_reachedManyRows = false;
    commit();
    if (alive == nullptr || !next.isValid()) {
        return;
    }
    if (!m_reachedManyRows) {
        m_table.setCurrentIndex(next);
    } else if (columns != 0) { // the next value for the same rows
        m_table.selectionModel()->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
    }
}

} // namespace mrl::table
