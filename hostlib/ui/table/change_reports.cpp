#include "hostlib/ui/table/change_reports.h"

#include <QHeaderView>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/cell_rows.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/table_private.h"

namespace mrl::table {

namespace {

/// The reports of the table that a cell stands in under its own column, null for any other cell.
ChangeReports* reportsOf(const MRL_H_TwItem& cell)
{
    const MRL_H_TwColumn* column = MRL_H_TwCellAccess::column(cell);
    const bool atHome =
        cell.tableWidget() != nullptr && column != nullptr && column->table == cell.tableWidget();
    return atHome ? &MRL_H_TableWidget::Private::of(*column->table).changes : nullptr;
}

void repaintTableOf(const MRL_H_TwItem& cell)
{
    if (cell.tableWidget() != nullptr) {
        cell.tableWidget()->viewport()->update();
    }
}

} // namespace

ChangeReports::ChangeReports(MRL_H_TableWidget& table, RowOrder& order) : m_table(table), m_order(order) {}

void ChangeReports::tellValue(MRL_H_TwItem& cell)
{
    if (ChangeReports* reports = reportsOf(cell)) {
        reports->noteChange(cell);
    } else {
        repaintTableOf(cell);
    }
}

void ChangeReports::tellLooks(const MRL_H_TwItem& cell)
{
    if (ChangeReports* reports = reportsOf(cell)) {
        reports->noteLooks();
    } else {
        repaintTableOf(cell);
    }
}

void ChangeReports::noteChange(MRL_H_TwItem& cell)
{
    const int column = MRL_H_TwCellAccess::column(cell)->position;
    if (column == m_order.column()) {
        m_order.noteUnsorted(cell);
    }
    if (m_table.signalsBlocked()) {
        m_valuesDirty = true;
        noteLooks();
        return;
    }
    const int row = rowOf(m_table, cell);
    if (row >= 0) {
        report(row, column, &cell);
    }
}

void ChangeReports::noteLooks()
{
    if (m_table.signalsBlocked()) {
        m_looksDirty = true;
        catchUpLater();
    } else {
        repaint();
    }
}

/// A row's mark follows its cells.
void ChangeReports::repaint()
{
    m_table.viewport()->update();
    if (MRL_H_TableWidget::Private::of(m_table).marks.areOn()) {
        m_table.verticalHeader()->viewport()->update();
    }
}

/// Signals can also be blocked without this library's blocker, which calls catchUp() itself.
void ChangeReports::catchUpLater()
{
    if (m_catchUpPosted) {
        return;
    }
    m_catchUpPosted = true;
    QMetaObject::invokeMethod(
        &m_context,
        [this] {
            m_catchUpPosted = false;
            catchUp();
        },
        Qt::QueuedConnection);
}

void ChangeReports::noteColumnFlags(const MRL_H_TwColumn& column)
{
    for (int row = 0; row < m_table.rowCount(); ++row) {
        if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(m_table.item(row, column.position))) {
            MRL_H_TwCellAccess::applyFlags(*cell);
        }
    }
    noteLooks();
}

void ChangeReports::noteComboTexts(const MRL_H_TwColumn& column, const QSet<int>& ids)
{
    const ReportScope scope(*this);
    const QPointer<MRL_H_TableWidget> alive(&m_table);
    for (int row = 0; alive != nullptr && row < m_table.rowCount(); ++row) {
        auto* cell = MRL_H_TwSimpleComboBoxItem::fromItem(m_table.item(row, column.position));
        if (cell == nullptr || MRL_H_TwCellAccess::column(*cell) != &column ||
            !ids.contains(cell->getCurrentId())) {
            continue;
        }
        MRL_H_TwCellAccess::row(*cell) = row;
        noteChange(*cell);
    }
}

void ChangeReports::report(int row, int column, QTableWidgetItem* item)
{
    const ReportScope scope(*this);
    const QPointer<MRL_H_TableWidget> alive(&m_table);
    const QModelIndex index = m_table.model()->index(row, column);
    emit m_table.model()->dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    if (alive != nullptr) {
        emitChanged(item, row, column);
    }
}

void ChangeReports::emitChanged(QTableWidgetItem* item, int row, int column)
{
    const QPointer<MRL_H_TableWidget> alive(&m_table);
    emit m_table.itemChanged(item);
    if (alive != nullptr) {
        emit alive->cellChanged(row, column);
    }
}

void ChangeReports::noteModelChange(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
    if (topLeft != bottomRight) {
        return;
    }
    QTableWidgetItem* item = m_table.item(topLeft.row(), topLeft.column());
    const bool isSortColumn = topLeft.column() == m_order.column();
    if (MRL_H_TwItem::fromItem(item) != nullptr) {
        // Put here by setItem, or reported by its table, which knows whether it is out of order.
        if (isSortColumn && m_running == 0) {
            m_order.noteAllUnsorted();
        }
        return;
    }
    if (isSortColumn) {
        m_order.noteAllUnsorted();
    }
    if (item != nullptr && !m_table.signalsBlocked()) {
        const ReportScope scope(*this); // a plain item: told as QTableWidget tells it
        emitChanged(item, topLeft.row(), topLeft.column());
    }
}

void ChangeReports::catchUp()
{
    if (m_table.signalsBlocked()) {
        return;
    }
    if (m_valuesDirty && m_table.rowCount() > 0 && m_table.columnCount() > 0) {
        const QAbstractItemModel* model = m_table.model();
        emit m_table.model()->dataChanged(model->index(0, 0),
                                          model->index(m_table.rowCount() - 1, m_table.columnCount() - 1));
    } else if (m_looksDirty) {
        repaint();
    }
    m_valuesDirty = false;
    m_looksDirty = false;
    sortIfDue();
}

void ChangeReports::sortIfDue()
{
    if (m_order.isOn() && m_running == 0 && !m_table.signalsBlocked()) {
        m_order.sort();
    }
}

ReportScope::ReportScope(ChangeReports& reports) : m_table(&reports.m_table), m_reports(reports)
{
    ++m_reports.m_running;
}

ReportScope::~ReportScope()
{
    if (m_table.isNull()) {
        return;
    }
    --m_reports.m_running;
    m_reports.sortIfDue();
}

} // namespace mrl::table
