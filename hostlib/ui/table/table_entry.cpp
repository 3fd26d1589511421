#include <QHeaderView>
#include <QItemSelectionModel>
#include <QSignalBlocker>

#include <algorithm>

#include "hostlib/ui/table/table_private.h"

namespace {

bool enterInto(MRL_H_TwItem& cell, const MRL_H_TwEntry& entry, bool dryRun)
{
    if (!entry.id.has_value()) {
        return MRL_H_TwCellAccess::enterText(cell, entry.text, dryRun);
    }
    auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(&cell);
    if (combo == nullptr || combo->getCurrentId() == *entry.id) {
        return false;
    }
    return dryRun || MRL_H_TwCellAccess::enterId(*combo, *entry.id);
}

} // namespace

void MRL_H_TableWidget::Private::enter(const std::vector<MRL_H_TwEntry>& entries)
{
    const QPointer<MRL_H_TableWidget> alive(&table);
    const MRL_H_TwReportScope scope(*this);
    const auto editableCell = [this](const MRL_H_TwEntry& entry) -> MRL_H_TwItem* {
        MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(table.item(entry.row, entry.column));
        return cell != nullptr && cell->isEnabled() ? cell : nullptr;
    };
    std::size_t last = entries.size();
    for (std::size_t i = entries.size(); i-- > 0 && last == entries.size();) {
        if (MRL_H_TwItem* cell = editableCell(entries[i]);
            cell != nullptr && enterInto(*cell, entries[i], true)) {
            last = i;
        }
    }

    // Whoever judges the selected rows at each report judges each row once so, and not all rows each time.
    QItemSelectionModel& selection = *table.selectionModel();
    const QItemSelection whole = selection.selection();
    const bool alone = entries.size() > 1;
    const auto select = [&](const QItemSelection& what) {
        const QSignalBlocker quiet(&selection);
        selection.select(what, QItemSelectionModel::ClearAndSelect);
    };
    bool narrowed = false;
    for (std::size_t i = 0; i < entries.size() && alive != nullptr; ++i) {
        MRL_H_TwItem* cell = editableCell(entries[i]);
        if (cell == nullptr || !enterInto(*cell, entries[i], false)) {
            continue;
        }
        MRL_H_TwCellAccess::row(*cell) = entries[i].row;
        const QModelIndex index = table.model()->index(entries[i].row, entries[i].column);
        if (alone && i != last) {
            select(QItemSelection(index, index));
        } else if (narrowed) {
            select(whole);
        }
        narrowed = alone && i != last;
        noteChange(*cell);
    }
    if (alive != nullptr && narrowed) {
        select(whole);
    }
}

void MRL_H_TableWidget::Private::enterFromEditor(const QModelIndex& index, const QString& text,
                                                 std::optional<int> id)
{
    std::vector<MRL_H_TwEntry> entries{{index.row(), index.column(), text, id}};
    if (multiEditing && table.selectionModel()->isSelected(index)) {
        const std::vector<int> rows = selectedRows();
        if (rows.size() > 1) {
            entries.clear();
            for (const int row : rows) {
                entries.push_back({row, index.column(), text, id});
            }
        }
    }
    keepSelectionOnLeave = entries.size() > 1;
    enter(entries);
}

std::vector<int> MRL_H_TableWidget::Private::selectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : table.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(row);
        }
    }
    if (!std::is_sorted(rows.begin(), rows.end())) {
        std::sort(rows.begin(), rows.end());
    }
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::vector<int> MRL_H_TableWidget::Private::shownColumns() const
{
    std::vector<int> columns;
    const QHeaderView* header = table.horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual) {
        if (const int column = header->logicalIndex(visual); !header->isSectionHidden(column)) {
            columns.push_back(column);
        }
    }
    return columns;
}
