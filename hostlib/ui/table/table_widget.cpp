#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/cell_rows.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/table_private.h"
#include "hostlib/ui/table/view_headers.h"

namespace {

/// Fills an empty row. @param makers the header of each column, null where cells have no maker
void fillRow(MRL_H_TableWidget& table, int row, const std::vector<MRL_H_TwHeaderItem*>& makers,
             mrl::table::RowOrder& order, const mrl::table::Journal* journal)
{
    for (int column = 0; column < static_cast<int>(makers.size()); ++column) {
        MRL_H_TwHeaderItem* maker = makers[static_cast<std::size_t>(column)];
        if (maker == nullptr) {
            continue;
        }
        MRL_H_TwItem* cell = maker->createEmptyItem();
        MRL_H_TwCellAccess::row(*cell) = row;
        if (journal != nullptr) {
            journal->noteNew(*cell);
        }
        table.setItem(row, column, cell);
        if (column == order.column()) {
            order.noteUnsorted(*cell);
        }
    }
}

} // namespace

MRL_QT_TableWidget::MRL_QT_TableWidget(QWidget* parent, const char* name)
    : MRL_QT_TableWidget(0, 0, parent, name)
{
}

MRL_QT_TableWidget::MRL_QT_TableWidget(int rows, int columns, QWidget* parent, const char* name)
    : QTableWidget(rows, columns, parent)
{
    setObjectName(QString::fromLatin1(name));
    setHorizontalHeader(new ColumnHeader(this));
    setVerticalHeader(new RowHeader(this));
    // Heights that follow the contents cost seconds with a hundred thousand rows.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setWordWrap(false);
}

MRL_QT_TableWidget::~MRL_QT_TableWidget() = default;

void MRL_QT_TableWidget::activateSearchEnabled(bool on) { m_search = on; }

void MRL_QT_TableWidget::setResetContextMenuOnCreation(bool on) { m_resetMenu = on; }

void MRL_QT_TableWidget::keyboardSearch(const QString& search)
{
    if (m_search) {
        QTableWidget::keyboardSearch(search);
    }
}

MRL_H_TableWidget::MRL_H_TableWidget(QWidget* parent, const char* name)
    : MRL_H_TableWidget(0, 0, parent, name)
{
}

MRL_H_TableWidget::MRL_H_TableWidget(int rows, int columns, QWidget* parent, const char* name)
    : MRL_QT_TableWidget(rows, columns, parent, name), d(std::make_unique<Private>(*this))
{
    setItemDelegate(new MRL_H_DelegateItem(this));
}

MRL_H_TableWidget::~MRL_H_TableWidget()
{
    // The cells go with the model, after this; they must not look for the private half then.
    for (int column = 0; column < columnCount(); ++column) {
        if (MRL_H_TwHeaderItem* item = d->columns.header(column)) {
            item->column()->table = nullptr;
        }
    }
}

void MRL_H_TableWidget::setHorizontalHeaderItem(int column, QTableWidgetItem* item)
{
    QTableWidget::setHorizontalHeaderItem(column, item);
    if (auto* headerItem = dynamic_cast<MRL_H_TwHeaderItem*>(item)) {
        headerItem->column()->table = this;
    }
    d->columns.renumber();
}

QTableWidgetItem* MRL_H_TableWidget::itemOnColId(int row, int id) const
{
    const int column = getColumnNumber(id);
    return column < 0 ? nullptr : item(row, column);
}

QTableWidgetItem* MRL_H_TableWidget::horizontalHeaderItemOnColId(int id) const
{
    const int column = getColumnNumber(id);
    return column < 0 ? nullptr : horizontalHeaderItem(column);
}

int MRL_H_TableWidget::getColumnNumber(int id) const { return d->columns.positionOf(id); }

int MRL_H_TableWidget::getColumnId(int column) const { return d->columns.idAt(column); }

void MRL_H_TableWidget::appendNewRows(int count, CreateType type)
{
    if (count <= 0) {
        return;
    }
    const int first = rowCount();
    {
        const QScopedValueRollback<bool> appending(d->appending, type == CreateCells);
        setRowCount(first + count);
    }
    if (type == CreateNone) {
        return; // the rows' empty places have made the journal give up
    }
    // The cells are new and the rows stand empty so far: nobody needs to be told of each one.
    const QSignalBlocker quiet(model());
    std::vector<MRL_H_TwHeaderItem*> makers;
    for (int column = 0; column < columnCount(); ++column) {
        makers.push_back(d->columns.header(column));
    }
    // Row by row, as they are filled, moved and removed later: the cells of a row lie together in memory.
    for (int row = first; row < first + count; ++row) {
        fillRow(*this, row, makers, d->order, d->journal.get());
    }
    if (d->journal) {
        d->journal->noteCame(first, count);
    }
    viewport()->update();
}

int MRL_H_TableWidget::rowOf(const QTableWidgetItem* item) const
{
    const MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(item);
    if (item == nullptr || item->tableWidget() != this) {
        return -1;
    }
    const MRL_H_TwColumn* column = cell != nullptr ? MRL_H_TwCellAccess::column(*cell) : nullptr;
    return column != nullptr && column->table == this ? mrl::table::rowOf(*this, *cell) : row(item);
}

void MRL_H_TableWidget::setMultiEditingEnabled(bool on) { d->entry.setMultiEditing(on); }

bool MRL_H_TableWidget::isMultiEditingEnabled() const { return d->entry.isMultiEditing(); }

void MRL_H_TableWidget::setContextmenueEnabled_new_del(bool on) { d->contextMenu.setNewDeleteEntries(on); }

MRL_QT_Menu* MRL_H_TableWidget::getContextMenu() { return d->contextMenu.menu(); }

int MRL_H_TableWidget::sizeHintForColumn(int column) const
{
    const bool ours = d->columns.header(column) != nullptr && itemDelegateForColumn(column) == nullptr &&
                      qobject_cast<MRL_H_DelegateItem*>(itemDelegate()) != nullptr;
    // An open editor may want more room than its cell.
    if (!ours || state() == EditingState) {
        return MRL_QT_TableWidget::sizeHintForColumn(column);
    }
    ensurePolished();
    const auto width = d->fit.widthOf(*this, column);
    return width.has_value() ? *width : MRL_QT_TableWidget::sizeHintForColumn(column);
}
