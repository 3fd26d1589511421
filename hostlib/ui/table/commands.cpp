#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>

#include <algorithm>

#include "hostlib/ui/table/tab_separated.h"
#include "hostlib/ui/table/table_private.h"

namespace {

/// A value as fill down passes it on: all digits of a number, not only the shown ones.
MRL_H_TwEntry entryFrom(const MRL_H_TwItem& cell)
{
    constexpr int allDigits = 9; // of a number in single precision
    MRL_H_TwEntry entry;
    entry.text = MRL_H_TwCellAccess::text(cell);
    if (const auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(&cell)) {
        entry.id = combo->getCurrentId();
    }
    const auto* number = MRL_H_TwSimpleLineEditItem::fromItem(&cell);
    const auto kind = MRL_H_TwCellAccess::column(cell)->kind;
    if (number != nullptr && kind == MRL_H_TwColumn::Kind::Factor && !entry.text.isEmpty()) {
        entry.text = QString::number(number->getVal(nullptr), 'g', allDigits);
    }
    return entry;
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

} // namespace

std::vector<int> MRL_H_TableWidget::Private::selectedColumns() const
{
    std::vector<int> columns;
    const QItemSelection selection = table.selectionModel()->selection();
    for (const int column : shownColumns()) {
        if (std::any_of(selection.begin(), selection.end(), [column](const QItemSelectionRange& range) {
                return range.left() <= column && column <= range.right();
            })) {
            columns.push_back(column);
        }
    }
    return columns;
}

void MRL_H_TableWidget::Private::copy(bool withHeaders) const
{
    const std::vector<int> rows = selectedRows();
    const std::vector<int> columns = selectedColumns();
    if (rows.empty() || columns.empty()) {
        return;
    }
    std::vector<QStringList> block(rows.size());
    for (QStringList& line : block) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            line.append(QString());
        }
    }
    for (const QItemSelectionRange& range : table.selectionModel()->selection()) {
        auto line =
            static_cast<std::size_t>(std::lower_bound(rows.begin(), rows.end(), range.top()) - rows.begin());
        for (int row = range.top(); row <= range.bottom(); ++row, ++line) {
            for (std::size_t i = 0; i < columns.size(); ++i) {
                if (range.left() <= columns[i] && columns[i] <= range.right()) {
                    if (const QTableWidgetItem* item = table.item(row, columns[i])) {
                        block[line][static_cast<int>(i)] = item->text();
                    }
                }
            }
        }
    }
    if (withHeaders) {
        QStringList captions;
        for (const int column : columns) {
            captions.append(table.model()->headerData(column, Qt::Horizontal).toString());
        }
        block.insert(block.begin(), captions);
    }
    QApplication::clipboard()->setText(mrl::table::toTabSeparated(block));
}

void MRL_H_TableWidget::copySelection() { d->copy(false); }

void MRL_H_TableWidget::copySelectionWithHeaders() { d->copy(true); }

void MRL_H_TableWidget::pasteClipboard()
{
    const std::vector<QStringList> block = mrl::table::fromTabSeparated(QApplication::clipboard()->text());
    std::vector<int> rows = d->selectedRows();
    std::vector<int> columns = d->selectedColumns();
    if ((rows.empty() || columns.empty()) && currentIndex().isValid()) {
        rows = {currentRow()};
        columns = {currentColumn()};
    }
    if (block.empty() || rows.empty() || columns.empty()) {
        return;
    }

    std::vector<int> allRows;
    for (int row = rows.front(); row < rowCount(); ++row) {
        if (!isRowHidden(row)) {
            allRows.push_back(row);
        }
    }
    std::vector<int> allColumns = d->shownColumns();
    const auto width = static_cast<std::size_t>(
        std::max_element(block.begin(), block.end(), [](const auto& a, const auto& b) {
            return a.size() < b.size();
        })->size());
    // Columns go as they are shown, which need not be their order in the model.
    std::vector<int> shownPlaces(allColumns.size());
    std::vector<int> selectedPlaces;
    for (std::size_t i = 0; i < allColumns.size(); ++i) {
        shownPlaces[i] = static_cast<int>(i);
        if (std::find(columns.begin(), columns.end(), allColumns[i]) != columns.end()) {
            selectedPlaces.push_back(static_cast<int>(i));
        }
    }
    if (selectedPlaces.empty()) {
        return;
    }
    const std::vector<int> toRows = targets(allRows, rows, block.size());
    const std::vector<int> toPlaces = targets(shownPlaces, selectedPlaces, width);

    QItemSelection pasted;
    std::vector<MRL_H_TwEntry> entries;
    for (std::size_t r = 0; r < toRows.size(); ++r) {
        const QStringList& line = block[r % block.size()];
        for (std::size_t c = 0; c < toPlaces.size(); ++c) {
            const int field = static_cast<int>(c % width);
            const int column = allColumns[static_cast<std::size_t>(toPlaces[c])];
            if (field < line.size()) {
                entries.push_back({toRows[r], column, line.at(field), std::nullopt});
            }
        }
    }
    if (toRows != rows || toPlaces != selectedPlaces) {
        for (const int place : toPlaces) {
            const int column = allColumns[static_cast<std::size_t>(place)];
            pasted.select(model()->index(toRows.front(), column), model()->index(toRows.back(), column));
        }
        selectionModel()->select(pasted, QItemSelectionModel::ClearAndSelect);
    }
    d->enter(entries);
}

void MRL_H_TableWidget::fillDown()
{
    const std::vector<int> rows = d->selectedRows();
    std::vector<MRL_H_TwEntry> entries;
    std::vector<std::pair<int, MRL_H_TwEntry>> sources;
    for (const int column : d->selectedColumns()) {
        if (!rows.empty()) {
            if (const MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(item(rows.front(), column))) {
                sources.emplace_back(column, entryFrom(*cell));
            }
        }
    }
    for (std::size_t r = 1; r < rows.size(); ++r) {
        for (const auto& [column, source] : sources) {
            entries.push_back(source);
            entries.back().row = rows[r];
            entries.back().column = column;
        }
    }
    d->enter(entries);
}

void MRL_H_TableWidget::fitColumns() { resizeColumnsToContents(); }
