#include <QHeaderView>
#include <QItemSelectionModel>
#include <QSignalBlocker>

#include <algorithm>
#include <numeric>

#include "hostlib/ui/table/number_text.h"
#include "hostlib/ui/table/table_private.h"

namespace {

/// Up to so many rows are moved one by one, each for one shift of the model's cells; more are sorted at once.
constexpr std::size_t fewRows = 6;

/// Sorts row numbers by keys, stably. Leaves `rows` alone when they are in order.
template <typename Key, typename Less>
void sortByKeys(std::vector<int>& rows, const std::vector<Key>& keys, Qt::SortOrder order, Less less)
{
    const auto before = [&](int a, int b) {
        const Key& left = keys[static_cast<std::size_t>(a)];
        const Key& right = keys[static_cast<std::size_t>(b)];
        return order == Qt::AscendingOrder ? less(left, right) : less(right, left);
    };
    if (!std::is_sorted(rows.begin(), rows.end(), before)) {
        std::stable_sort(rows.begin(), rows.end(), before);
    }
}

/// The first row that an order moves, the number of rows for none.
int firstMoved(const std::vector<int>& order)
{
    int row = 0;
    while (row < static_cast<int>(order.size()) && order[static_cast<std::size_t>(row)] == row) {
        ++row;
    }
    return row;
}

/// How many rows at the end stay where they are.
int lastUnmoved(const std::vector<int>& order)
{
    int count = 0;
    for (int row = static_cast<int>(order.size()) - 1;
         row >= 0 && order[static_cast<std::size_t>(row)] == row; --row) {
        ++count;
    }
    return count;
}

bool isIdentity(const std::vector<int>& order) { return firstMoved(order) == static_cast<int>(order.size()); }

/// Rows without a cell come last, as they stand.
bool itemLess(const QTableWidgetItem* a, const QTableWidgetItem* b)
{
    return a != nullptr && b != nullptr && *a < *b;
}

} // namespace

void MRL_H_TableWidget::Private::setSorting(bool on)
{
    if (on == sorting) {
        return;
    }
    sorting = on;
    QHeaderView* header = table.horizontalHeader();
    header->setSortIndicatorShown(on);
    // As in QTableView: a click on a header sorts in a sorted table, and selects the column in another one.
    if (on) {
        QObject::disconnect(header, SIGNAL(sectionPressed(int)), &table, SLOT(selectColumn(int)));
        QObject::disconnect(header, SIGNAL(sectionEntered(int)), &table, SLOT(_q_selectColumn(int)));
        QObject::connect(header, &QHeaderView::sortIndicatorChanged, &context,
                         [this](int column, Qt::SortOrder order) { sortBy(column, order); });
        sortBy(header->sortIndicatorSection(), header->sortIndicatorOrder());
    } else {
        QObject::disconnect(header, &QHeaderView::sortIndicatorChanged, &context, nullptr);
        QObject::connect(header, SIGNAL(sectionPressed(int)), &table, SLOT(selectColumn(int)),
                         Qt::UniqueConnection);
        QObject::connect(header, SIGNAL(sectionEntered(int)), &table, SLOT(_q_selectColumn(int)),
                         Qt::UniqueConnection);
    }
}

void MRL_H_TableWidget::Private::sortBy(int column, Qt::SortOrder order)
{
    {
        const QSignalBlocker noSecondSort(table.horizontalHeader());
        table.horizontalHeader()->setSortIndicator(column, order);
    }
    table.horizontalHeader()->viewport()->update();
    if (column != sortColumn || order != sortOrder) {
        noteAllUnsorted();
    }
    sortColumn = column;
    sortOrder = order;
    if (allUnsorted) {
        sortAll();
    } else if (!unsorted.empty()) {
        sortFew();
    }
}

void MRL_H_TableWidget::Private::noteUnsorted(MRL_H_TwItem& cell)
{
    quint8& state = MRL_H_TwCellAccess::state(cell);
    if (allUnsorted || (state & MRL_H_TwCellAccess::Unsorted) != 0) {
        return;
    }
    if (unsorted.size() >= fewRows) {
        noteAllUnsorted();
        return;
    }
    state = static_cast<quint8>(state | MRL_H_TwCellAccess::Unsorted);
    unsorted.push_back(&cell);
}

void MRL_H_TableWidget::Private::forgetUnsorted(MRL_H_TwItem& cell)
{
    unsorted.erase(std::remove(unsorted.begin(), unsorted.end(), &cell), unsorted.end());
}

void MRL_H_TableWidget::Private::clearUnsorted()
{
    for (MRL_H_TwItem* cell : unsorted) {
        quint8& state = MRL_H_TwCellAccess::state(*cell);
        state = static_cast<quint8>(state & ~MRL_H_TwCellAccess::Unsorted);
    }
    unsorted.clear();
}

void MRL_H_TableWidget::Private::noteAllUnsorted()
{
    clearUnsorted();
    allUnsorted = true;
}

void MRL_H_TableWidget::Private::sortIfDue()
{
    if (!sorting || reports > 0 || table.signalsBlocked()) {
        return;
    }
    if (allUnsorted) {
        sortAll();
    } else if (!unsorted.empty()) {
        sortFew();
    }
}

void MRL_H_TableWidget::Private::sortAll()
{
    clearUnsorted();
    allUnsorted = false;
    const int rows = table.rowCount();
    if (sortColumn < 0 || sortColumn >= table.columnCount() || rows < 2) {
        return;
    }
    std::vector<int> order(static_cast<std::size_t>(rows));
    std::iota(order.begin(), order.end(), 0);
    std::vector<const QTableWidgetItem*> cells(order.size());
    bool allNumbers = true;
    bool allCells = true;
    for (int row = 0; row < rows; ++row) {
        const QTableWidgetItem* item = table.item(row, sortColumn);
        const MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(item);
        cells[static_cast<std::size_t>(row)] = item;
        allCells = allCells && cell != nullptr;
        allNumbers = allNumbers && MRL_H_TwSimpleLineEditItem::fromItem(item) != nullptr &&
                     MRL_H_TwCellAccess::column(*cell)->isNumber();
    }
    // Keys taken once: comparing through the cells would touch their memory at every comparison.
    if (allNumbers) {
        std::vector<double> keys(cells.size());
        std::transform(cells.begin(), cells.end(), keys.begin(), [](const QTableWidgetItem* item) {
            return MRL_H_TwCellAccess::number(*MRL_H_TwSimpleLineEditItem::fromItem(item));
        });
        sortByKeys(order, keys, sortOrder, mrl::table::numberLess);
    } else if (allCells) {
        std::vector<QString> keys(cells.size());
        std::transform(cells.begin(), cells.end(), keys.begin(), [](const QTableWidgetItem* item) {
            return MRL_H_TwCellAccess::text(*MRL_H_TwItem::fromItem(item));
        });
        sortByKeys(order, keys, sortOrder, [](const QString& a, const QString& b) { return a < b; });
    } else {
        const auto middle = std::stable_partition(order.begin(), order.end(), [&](int row) {
            return cells[static_cast<std::size_t>(row)] != nullptr;
        });
        std::vector<int> filled(order.begin(), middle);
        sortByKeys(filled, cells, sortOrder, itemLess);
        std::copy(filled.begin(), filled.end(), order.begin());
    }
    if (!isIdentity(order)) {
        permuteRows(order);
    }
}

void MRL_H_TableWidget::Private::movePersistent(const std::vector<int>& target)
{
    QAbstractItemModel& model = *table.model();
    const QModelIndexList from = MRL_H_TwModelAccess::persistent(model);
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& index : from) {
        to.append(index.row() < static_cast<int>(target.size())
                      ? model.index(target[static_cast<std::size_t>(index.row())], index.column())
                      : index);
    }
    MRL_H_TwModelAccess::changePersistent(model, from, to);
}

void MRL_H_TableWidget::Private::permuteRows(const std::vector<int>& order)
{
    QAbstractItemModel& model = *table.model();
    const int columns = table.columnCount();
    emit model.layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    {
        const QSignalBlocker quiet(&model);
        std::vector<int> target(order.size());
        for (std::size_t i = 0; i < order.size(); ++i) {
            target[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
        }
        // All out and all in again, row by row: along the cycles of the permutation each row would be met at
        // a place far from the last, and the walk through memory cost more than all the rest.
        const int first = firstMoved(order);
        const int end = static_cast<int>(order.size()) - lastUnmoved(order);
        std::vector<QTableWidgetItem*> cells;
        cells.reserve(static_cast<std::size_t>(end - first) * static_cast<std::size_t>(columns));
        for (int row = first; row < end; ++row) {
            for (int column = 0; column < columns; ++column) {
                cells.push_back(table.takeItem(row, column));
            }
        }
        for (int row = first; row < end; ++row) {
            const auto from = static_cast<std::size_t>(order[static_cast<std::size_t>(row)] - first);
            QTableWidgetItem* const* moved = &cells[from * static_cast<std::size_t>(columns)];
            for (int column = 0; column < columns; ++column, ++moved) {
                if (*moved != nullptr) {
                    table.setItem(row, column, *moved);
                }
                if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(*moved)) {
                    MRL_H_TwCellAccess::row(*cell) = row;
                }
            }
        }

        movePersistent(target);
    }
    emit model.layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void MRL_H_TableWidget::Private::sortFew()
{
    std::vector<std::pair<int, QTableWidgetItem*>> wrong; // row and cell, in the order of the rows
    for (MRL_H_TwItem* cell : unsorted) {
        if (const int row = rowOf(*cell); row >= 0) {
            wrong.emplace_back(row, cell);
        }
    }
    clearUnsorted();
    std::sort(wrong.begin(), wrong.end());
    const auto before = [this](const QTableWidgetItem* a, const QTableWidgetItem* b) {
        return sortOrder == Qt::AscendingOrder ? *a < *b : *b < *a;
    };

    // Where each belongs among the rows that stand right. Equal ones keep the order in which they stand.
    const int right = table.rowCount() - static_cast<int>(wrong.size());
    const auto rowOfRight = [&wrong](int place) {
        for (const auto& entry : wrong) {
            place += entry.first <= place ? 1 : 0;
        }
        return place;
    };
    struct Move
    {
        int place; ///< how many of the rows that stand right come before
        int row;
        QTableWidgetItem* cell;
    };
    std::vector<Move> moves;
    for (const auto& [row, cell] : wrong) {
        int low = 0;
        int high = right;
        while (low < high) {
            const int middle = (low + high) / 2;
            const int other = rowOfRight(middle);
            const QTableWidgetItem* item = table.item(other, sortColumn);
            if (item == nullptr) {
                noteAllUnsorted();
                sortAll();
                return;
            }
            const bool first = before(item, cell) || (other < row && !before(cell, item));
            (first ? low : high) = first ? middle + 1 : middle;
        }
        moves.push_back({low, row, cell});
    }
    std::stable_sort(moves.begin(), moves.end(), [&](const Move& a, const Move& b) {
        return a.place != b.place ? a.place < b.place : before(a.cell, b.cell);
    });
    bool stands = true;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        stands = stands && moves[i].row == moves[i].place + static_cast<int>(i);
    }
    if (stands) {
        return;
    }

    QAbstractItemModel& model = *table.model();
    emit model.layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        // Rows that have not been moved yet still stand anywhere between.
        int to = moves[i].place + static_cast<int>(i);
        std::vector<int> waiting;
        for (std::size_t j = i + 1; j < moves.size(); ++j) {
            waiting.push_back(moves[j].row - (moves[j].row > moves[i].row ? 1 : 0));
        }
        std::sort(waiting.begin(), waiting.end());
        for (const int row : waiting) {
            to += row < to ? 1 : 0;
        }
        const int from = moves[i].row;
        moveRow(from, to);
        for (std::size_t j = i + 1; j < moves.size(); ++j) {
            int& row = moves[j].row;
            row -= row > from ? 1 : 0;
            row += row >= to ? 1 : 0;
        }
    }
    emit model.layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void MRL_H_TableWidget::Private::moveRow(int from, int to)
{
    if (from == to) {
        return;
    }
    QAbstractItemModel& model = *table.model();
    const QSignalBlocker quiet(&model);
    const int inserted = to > from ? to + 1 : to;
    model.insertRows(inserted, 1);
    const int source = from + (inserted <= from ? 1 : 0);
    for (int c = 0; c < table.columnCount(); ++c) {
        QTableWidgetItem* item = table.takeItem(source, c);
        if (item != nullptr) {
            table.setItem(inserted, c, item);
        }
        if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(item)) {
            MRL_H_TwCellAccess::row(*cell) = to;
        }
    }
    QModelIndexList old;
    QModelIndexList fresh;
    for (const QModelIndex& index : MRL_H_TwModelAccess::persistent(model)) {
        if (index.row() == source) {
            old.append(index);
            fresh.append(model.index(inserted, index.column()));
        }
    }
    MRL_H_TwModelAccess::changePersistent(model, old, fresh);
    model.removeRows(source, 1);
}

void MRL_H_TableWidget::Private::dropRows(const std::vector<int>& kept, const std::vector<int>& gone)
{
    QAbstractItemModel& model = *table.model();
    const int columns = table.columnCount();
    emit model.layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    {
        const QSignalBlocker quiet(&model);
        std::vector<int> target(kept.size() + gone.size());
        for (std::size_t i = 0; i < gone.size(); ++i) {
            target[static_cast<std::size_t>(gone[i])] = static_cast<int>(kept.size() + i);
            for (int c = 0; c < columns; ++c) {
                delete table.takeItem(gone[i], c);
            }
        }
        for (std::size_t i = 0; i < kept.size(); ++i) {
            target[static_cast<std::size_t>(kept[i])] = static_cast<int>(i);
            for (int c = 0; c < columns && kept[i] != static_cast<int>(i); ++c) {
                QTableWidgetItem* moved = table.takeItem(kept[i], c);
                if (moved != nullptr) {
                    table.setItem(static_cast<int>(i), c, moved);
                }
                if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(moved)) {
                    MRL_H_TwCellAccess::row(*cell) = static_cast<int>(i);
                }
            }
        }
        movePersistent(target);
    }
    emit model.layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void MRL_H_TableWidget::removeRows(const std::set<int>& rows)
{
    std::vector<int> kept;
    kept.reserve(static_cast<std::size_t>(rowCount()));
    std::vector<int> gone;
    for (int row = 0; row < rowCount(); ++row) {
        (rows.count(row) != 0 ? gone : kept).push_back(row);
    }
    if (gone.empty()) {
        return;
    }
    // A selection that goes with its rows is not worth moving: every second row makes a range of its own.
    const std::vector<int> selected = d->selectedRows();
    const bool selectionGoes =
        !selected.empty() &&
        std::all_of(selected.begin(), selected.end(), [&](int row) { return rows.count(row) != 0; });
    if (selectionGoes) {
        const QSignalBlocker quiet(selectionModel());
        selectionModel()->clearSelection();
    }
    // The rows that stay close up over those that go, which then are the last ones and empty.
    if (!kept.empty() && kept.back() > gone.front()) {
        d->dropRows(kept, gone);
    }
    model()->removeRows(static_cast<int>(kept.size()), static_cast<int>(gone.size()));
    if (selectionGoes) {
        emit selectionModel()->selectionChanged({}, {});
    }
}
