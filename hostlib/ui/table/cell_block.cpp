#include "hostlib/ui/table/cell_block.h"

#include <QItemSelectionModel>

#include <algorithm>
#include <numeric>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/selection.h"

namespace mrl::table {

namespace {

/// A value as fill down passes it on: all digits of a number, not only the shown ones.
Entry entryFrom(const MRL_H_TwItem& cell)
{
    constexpr int ALL_DIGITS = 9; // of a number in single precision
    Entry entry;
    entry.text = MRL_H_TwCellAccess::text(cell);
    if (const auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(&cell)) {
        entry.id = combo->getCurrentId();
    }
    const auto* number = MRL_H_TwSimpleLineEditItem::fromItem(&cell);
    const auto kind = MRL_H_TwCellAccess::column(cell)->kind;
    if (number != nullptr && kind == MRL_H_TwColumn::Kind::Factor && !entry.text.isEmpty()) {
        entry.text = QString::number(number->getVal(nullptr), 'g', ALL_DIGITS);
    }
    return entry;
}

QStringList captionsOf(const QTableWidget& table, const std::vector<int>& columns)
{
    QStringList captions;
    for (const int column : columns) {
        captions.append(table.model()->headerData(column, Qt::Horizontal).toString());
    }
    return captions;
}

/// Puts the texts of a selected row into its line.
void copyRow(const QTableWidget& table, const QItemSelectionRange& range, int row,
             const std::vector<int>& columns, QStringList& line)
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (range.left() <= columns[i] && columns[i] <= range.right()) {
            if (const QTableWidgetItem* item = table.item(row, columns[i])) {
                line[static_cast<int>(i)] = item->text();
            }
        }
    }
}

/// The places that a block of so many takes, from the first selected one on: all selected ones where it fits
/// into them several times.
std::vector<int> targets(const std::vector<int>& all, const std::vector<int>& selected, std::size_t size)
{
    if (selected.size() > size && selected.size() % size == 0) {
        return selected;
    }
    const auto first = std::lower_bound(all.begin(), all.end(), selected.front());
    const auto count = std::min(size, static_cast<std::size_t>(all.end() - first));
    return {first, first + static_cast<std::ptrdiff_t>(count)};
}

std::vector<int> shownRowsFrom(const QTableWidget& table, int first)
{
    std::vector<int> rows;
    for (int row = first; row < table.rowCount(); ++row) {
        if (!table.isRowHidden(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

/// The places of some columns among the shown ones, ascending.
std::vector<int> placesOf(const std::vector<int>& columns, const std::vector<int>& shown)
{
    std::vector<int> places;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (std::find(columns.begin(), columns.end(), shown[i]) != columns.end()) {
            places.push_back(static_cast<int>(i));
        }
    }
    return places;
}

/// The columns that a block of a width takes from the selected ones on, as they stand on the screen.
std::vector<int> targetColumns(const QTableWidget& table, const std::vector<int>& selected, std::size_t width)
{
    const std::vector<int> shown = shownColumns(table);
    const std::vector<int> selectedPlaces = placesOf(selected, shown);
    if (selectedPlaces.empty()) {
        return {};
    }
    std::vector<int> places(shown.size());
    std::iota(places.begin(), places.end(), 0);
    std::vector<int> columns = targets(places, selectedPlaces, width);
    std::transform(columns.begin(), columns.end(), columns.begin(),
                   [&shown](int place) { return shown[static_cast<std::size_t>(place)]; });
    return columns;
}

std::size_t widthOf(const std::vector<QStringList>& lines)
{
    return static_cast<std::size_t>(
        std::max_element(lines.begin(), lines.end(), [](const auto& a, const auto& b) {
            return a.size() < b.size();
        })->size());
}

QItemSelection rectangle(const QTableWidget& table, const std::vector<int>& rows,
                         const std::vector<int>& columns)
{
    QItemSelection cells;
    for (const int column : columns) {
        cells.select(table.model()->index(rows.front(), column), table.model()->index(rows.back(), column));
    }
    return cells;
}

std::vector<Entry> entriesOf(const std::vector<QStringList>& lines, const std::vector<int>& rows,
                             const std::vector<int>& columns)
{
    const std::size_t width = widthOf(lines);
    std::vector<Entry> entries;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const QStringList& line = lines[r % lines.size()];
        for (std::size_t c = 0; c < columns.size(); ++c) {
            const int field = static_cast<int>(c % width);
            if (field < line.size()) {
                entries.push_back({rows[r], columns[c], line.at(field), std::nullopt});
            }
        }
    }
    return entries;
}

} // namespace

std::vector<QStringList> selectedBlock(const QTableWidget& table, Captions captions)
{
    const std::vector<int> rows = selectedRows(table);
    const std::vector<int> columns = selectedColumns(table);
    if (rows.empty() || columns.empty()) {
        return {};
    }
    QStringList empty;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        empty.append(QString());
    }
    std::vector<QStringList> block(rows.size(), empty);
    for (const QItemSelectionRange& range : table.selectionModel()->selection()) {
        auto line =
            static_cast<std::size_t>(std::lower_bound(rows.begin(), rows.end(), range.top()) - rows.begin());
        for (int row = range.top(); row <= range.bottom(); ++row, ++line) {
            copyRow(table, range, row, columns, block[line]);
        }
    }
    if (captions == Captions::Copy) {
        block.insert(block.begin(), captionsOf(table, columns));
    }
    return block;
}

Paste plannedPaste(const QTableWidget& table, const std::vector<QStringList>& lines)
{
    std::vector<int> rows = selectedRows(table);
    std::vector<int> columns = selectedColumns(table);
    if ((rows.empty() || columns.empty()) && table.currentIndex().isValid()) {
        rows = {table.currentRow()};
        columns = {table.currentColumn()};
    }
    if (rows.empty() || columns.empty()) {
        return {};
    }
    const std::vector<int> toRows = targets(shownRowsFrom(table, rows.front()), rows, lines.size());
    const std::vector<int> toColumns = targetColumns(table, columns, widthOf(lines));
    if (toRows.empty() || toColumns.empty()) {
        return {};
    }
    Paste paste{entriesOf(lines, toRows, toColumns), toRows, toColumns, {}};
    if (toRows != rows || toColumns != columns) {
        paste.cells = rectangle(table, toRows, toColumns);
    }
    return paste;
}

std::vector<Entry> plannedFillDown(const QTableWidget& table)
{
    const std::vector<int> rows = selectedRows(table);
    if (rows.empty()) {
        return {};
    }
    std::vector<Entry> sources;
    for (const int column : selectedColumns(table)) {
        if (const MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(table.item(rows.front(), column))) {
            sources.push_back(entryFrom(*cell));
            sources.back().column = column;
        }
    }
    std::vector<Entry> entries;
    for (std::size_t r = 1; r < rows.size(); ++r) {
        for (const Entry& source : sources) {
            entries.push_back(source);
            entries.back().row = rows[r];
        }
    }
    return entries;
}

} // namespace mrl::table
