#include "hostlib/ui/table/table_change.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include <algorithm>
#include <numeric>

#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/row_moves.h"
#include "hostlib/ui/table/table_private.h"

namespace mrl::table {

namespace {

MRL_H_TableWidget::Private& privateOf(MRL_H_TableWidget& table)
{
    return MRL_H_TableWidget::Private::of(table);
}

std::vector<int> inverse(const std::vector<int>& order)
{
    std::vector<int> back(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        back[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
    }
    return back;
}

/// The order that brings the last rows to these positions. @param rows ascending
std::vector<int> lastRowsTo(const std::vector<int>& rows, int count)
{
    std::vector<int> order;
    order.reserve(static_cast<std::size_t>(count));
    int staying = 0;
    int last = count - static_cast<int>(rows.size());
    auto next = rows.begin();
    for (int row = 0; row < count; ++row) {
        const bool isLast = next != rows.end() && *next == row;
        order.push_back(isLast ? last++ : staying++);
        next += isLast ? 1 : 0;
    }
    return order;
}

} // namespace

TableChange::TableChange(MRL_H_TableWidget& table, Cells cells, std::vector<RowEvent> events, int before,
                         int after)
    : m_table(&table), m_cells(std::move(cells)), m_events(std::move(events)), m_before(before),
      m_after(after)
{
}

TableChange::~TableChange()
{
    if (m_table) {
        const Journal::Silence silence(*privateOf(*m_table).journal);
        m_events.clear();
    }
}

void TableChange::turn(int from, int to, Direction direction)
{
    if (!m_table) {
        return;
    }
    Journal& journal = *privateOf(*m_table).journal;
    const bool arranged = journal.arrangement() == from;
    {
        const Journal::Silence silence(journal);
        const QSignalBlocker quiet(m_table.data());
        swapCells(arranged);
        if (direction == Direction::Back) {
            std::for_each(m_events.rbegin(), m_events.rend(),
                          [&](RowEvent& event) { turnEvent(event, direction, arranged); });
        } else {
            std::for_each(m_events.begin(), m_events.end(),
                          [&](RowEvent& event) { turnEvent(event, direction, arranged); });
        }
        if (!arranged && !m_events.empty()) {
            privateOf(*m_table).order.noteAllUnsorted();
        }
        if (!arranged && privateOf(*m_table).order.isOn()) {
            privateOf(*m_table).order.sort();
        }
    }
    journal.setArrangement(arranged ? to : journal.newArrangement());
    tellView();
}

void TableChange::swapCells(bool arranged)
{
    RowOrder& order = privateOf(*m_table).order;
    for (auto& [cell, kept] : m_cells) {
        kept.swapWith(*cell);
        // Where the rows are arranged as they were, they are put back to their places one by one.
        if (!arranged && MRL_H_TwCellAccess::column(*cell)->position == order.column()) {
            order.noteUnsorted(*cell);
        }
    }
}

void TableChange::turnEvent(RowEvent& event, Direction direction, bool arranged)
{
    const bool back = direction == Direction::Back;
    switch (event.kind) {
    case RowEvent::Kind::Came:
        return back ? takeOut(event, arranged) : putBack(event, arranged);
    case RowEvent::Kind::Went:
        return back ? putBack(event, arranged) : takeOut(event, arranged);
    case RowEvent::Kind::Permuted:
        if (arranged) {
            permuteRows(*m_table, back ? inverse(event.rows) : event.rows);
        }
        return;
    case RowEvent::Kind::Moved:
        if (arranged) {
            const LayoutChange change(*m_table->model());
            moveRow(*m_table, event.rows[back ? 1 : 0], event.rows[back ? 0 : 1]);
        }
        return;
    }
}

void TableChange::takeOut(RowEvent& event, bool arranged)
{
    std::vector<int> rows = event.rows;
    if (!arranged) {
        std::transform(event.anchors.begin(), event.anchors.end(), rows.begin(),
                       [this](const QTableWidgetItem* anchor) { return m_table->rowOf(anchor); });
        // The cells are held in the order of the rows that they are taken out of.
        std::vector<std::size_t> order(rows.size());
        std::iota(order.begin(), order.end(), 0U);
        std::sort(order.begin(), order.end(), [&](auto a, auto b) { return rows[a] < rows[b]; });
        std::vector<QTableWidgetItem*> anchors(order.size());
        std::transform(order.begin(), order.end(), anchors.begin(),
                       [&](std::size_t i) { return event.anchors[i]; });
        event.anchors = std::move(anchors);
        std::sort(rows.begin(), rows.end());
    }
    event.held = privateOf(*m_table).takeRows(rows);
}

void TableChange::putBack(RowEvent& event, bool arranged)
{
    privateOf(*m_table).putRows(std::exchange(event.held, {}));
    if (arranged) {
        permuteRows(*m_table, lastRowsTo(event.rows, m_table->rowCount()));
    }
}

void TableChange::tellView()
{
    const QAbstractItemModel* model = m_table->model();
    if (model->rowCount() > 0 && model->columnCount() > 0) {
        emit m_table->model()->dataChanged(model->index(0, 0),
                                           model->index(model->rowCount() - 1, model->columnCount() - 1));
    }
    m_table->verticalHeader()->viewport()->update();
}

std::set<int> TableChange::rows() const
{
    std::set<int> rows;
    const auto add = [&](const QTableWidgetItem* cell) {
        const int row = cell != nullptr ? m_table->rowOf(cell) : -1;
        if (row >= 0) {
            rows.insert(row);
        }
    };
    for (const auto& cell : m_cells) {
        add(cell.first);
    }
    for (const RowEvent& event : m_events) {
        if (event.held.empty()) {
            std::for_each(event.anchors.begin(), event.anchors.end(), add);
        }
    }
    return rows;
}

std::size_t TableChange::bytes() const
{
    constexpr std::size_t CELL = sizeof(MRL_H_TwSimpleLineEditItem) + sizeof(void*);
    std::size_t bytes = m_cells.capacity() * sizeof(Cells::value_type);
    for (const auto& cell : m_cells) {
        bytes += cell.second.bytes();
    }
    for (const RowEvent& event : m_events) {
        bytes += sizeof event + event.rows.size() * sizeof(int) + event.anchors.size() * sizeof(void*) +
                 event.held.size() * CELL;
    }
    return bytes;
}

} // namespace mrl::table
