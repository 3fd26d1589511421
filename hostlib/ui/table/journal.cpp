#include "hostlib/ui/table/journal.h"

#include <algorithm>

#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/table_change.h"
#include "hostlib/ui/table/table_private.h"

MRL_H_TableChange::~MRL_H_TableChange() = default;
MRL_H_TableJournalListener::~MRL_H_TableJournalListener() = default;
MRL_H_TableJournal::~MRL_H_TableJournal() = default;

MRL_H_TableJournal& mrl_h_table_journal(MRL_H_TableWidget& table)
{
    MRL_H_TableWidget::Private& d = MRL_H_TableWidget::Private::of(table);
    if (!d.journal) {
        d.journal = std::make_unique<mrl::table::Journal>(table);
        d.order.setJournal(d.journal.get());
    }
    return *d.journal;
}

namespace mrl::table {

namespace {

bool onlySorted(const std::vector<RowEvent>& events)
{
    return std::all_of(events.begin(), events.end(), [](const RowEvent& event) {
        return event.kind == RowEvent::Kind::Permuted || event.kind == RowEvent::Kind::Moved;
    });
}

} // namespace

void Journal::note(MRL_H_TwItem& cell)
{
    quint16& noted = MRL_H_TwCellAccess::noted(cell);
    if (m_silent > 0 || noted == m_take || cell.tableWidget() != &m_table) {
        return;
    }
    noted = m_take;
    m_cells.emplace_back(&cell, MRL_H_TwCellAccess::Kept(cell));
}

void Journal::noteCame(int first, int count)
{
    if (m_silent > 0) {
        return;
    }
    RowEvent event{RowEvent::Kind::Came, {}, {}, {}};
    for (int row = first; row < first + count; ++row) {
        event.rows.push_back(row);
        event.anchors.push_back(m_table.item(row, 0));
    }
    m_events.push_back(std::move(event));
}

void Journal::noteWent(std::vector<int> rows, HeldCells held)
{
    if (m_silent > 0) {
        return;
    }
    RowEvent event{RowEvent::Kind::Went, std::move(rows), {}, std::move(held)};
    const auto columns = static_cast<std::size_t>(m_table.columnCount());
    for (std::size_t i = 0; i < event.held.size(); i += columns) {
        event.anchors.push_back(event.held[i].get());
    }
    m_events.push_back(std::move(event));
}

void Journal::notePermuted(const std::vector<int>& order)
{
    if (m_silent == 0) {
        m_events.push_back({RowEvent::Kind::Permuted, order, {}, {}});
    }
}

void Journal::noteMoved(int from, int to)
{
    if (m_silent == 0) {
        m_events.push_back({RowEvent::Kind::Moved, {from, to}, {}, {}});
    }
}

void Journal::noteBroken()
{
    if (m_silent > 0) {
        return;
    }
    const Silence silence(*this); // while the cells that it holds end
    m_events.clear();
    m_cells.clear();
    beginNextTake();
    if (m_listener) {
        m_listener->journalBroken();
    }
}

void Journal::beginNextTake()
{
    if (++m_take != 0) {
        return;
    }
    // The numbers begin anew, and no cell may bear one of the coming ones.
    m_take = 1;
    for (int row = 0; row < m_table.rowCount(); ++row) {
        for (int column = 0; column < m_table.columnCount(); ++column) {
            if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(m_table.item(row, column))) {
                MRL_H_TwCellAccess::noted(*cell) = 0;
            }
        }
    }
}

std::unique_ptr<MRL_H_TableChange> Journal::take()
{
    m_cells.erase(std::remove_if(m_cells.begin(), m_cells.end(),
                                 [](const auto& cell) { return cell.second.isThatOf(*cell.first); }),
                  m_cells.end());
    beginNextTake();
    const int before = m_arrangement;
    if (!m_events.empty()) {
        m_arrangement = newArrangement();
    }
    if (m_cells.empty() && onlySorted(m_events)) {
        m_events.clear();
        return nullptr;
    }
    m_cells.shrink_to_fit();
    auto change = std::make_unique<TableChange>(m_table, std::exchange(m_cells, {}),
                                                std::exchange(m_events, {}), before, m_arrangement);
    return change;
}

} // namespace mrl::table
