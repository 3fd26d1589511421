#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>

#include "hostlib/ui/table/table_private.h"
#include "hostlib/ui/table/view_headers.h"

namespace {

/// Ids further apart than this are looked up by a search; the tables of the managers have ids from 100 on.
constexpr int longestIdRange = 1 << 16;

} // namespace

MRL_QT_TableWidget::MRL_QT_TableWidget(QWidget* parent, const char* name)
    : MRL_QT_TableWidget(0, 0, parent, name)
{
}

MRL_QT_TableWidget::MRL_QT_TableWidget(int rows, int columns, QWidget* parent, const char* name)
    : QTableWidget(rows, columns, parent)
{
    setObjectName(QString::fromLatin1(name));
    setHorizontalHeader(new ColumnHeader(this)); // child of this
    setVerticalHeader(new RowHeader(this));      // child of this
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
    setItemDelegate(new MRL_H_DelegateItem(this)); // child of this
}

MRL_H_TableWidget::~MRL_H_TableWidget()
{
    // The cells go with the model, after this; they must not look for the private half then.
    for (int column = 0; column < columnCount(); ++column) {
        if (MRL_H_TwHeaderItem* item = d->header(column)) {
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
    d->renumberColumns();
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

int MRL_H_TableWidget::getColumnNumber(int id) const
{
    if (id < d->firstId) {
        return -1;
    }
    const auto place = static_cast<std::size_t>(id) - static_cast<std::size_t>(d->firstId);
    return place < d->positionOfId.size() ? d->positionOfId[place] : -1;
}

int MRL_H_TableWidget::getColumnId(int column) const
{
    return column >= 0 && static_cast<std::size_t>(column) < d->columnIds.size()
               ? d->columnIds[static_cast<std::size_t>(column)]
               : -1;
}

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
        return;
    }
    // The cells are new and the rows stand empty so far: nobody needs to be told of each one.
    const QSignalBlocker quiet(model());
    std::vector<MRL_H_TwHeaderItem*> makers;
    for (int column = 0; column < columnCount(); ++column) {
        makers.push_back(d->header(column));
    }
    // Row by row, as they are filled, moved and removed later: the cells of a row lie together in memory.
    for (int row = first; row < first + count; ++row) {
        for (int column = 0; column < static_cast<int>(makers.size()); ++column) {
            MRL_H_TwHeaderItem* maker = makers[static_cast<std::size_t>(column)];
            if (maker == nullptr) {
                continue;
            }
            MRL_H_TwItem* cell = maker->createEmptyItem();
            MRL_H_TwCellAccess::row(*cell) = row;
            setItem(row, column, cell);
            if (column == d->sortColumn) {
                d->noteUnsorted(*cell);
            }
        }
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
    return column != nullptr && column->table == this ? d->rowOf(*cell) : row(item);
}

void MRL_H_TableWidget::setMultiEditingEnabled(bool on) { d->multiEditing = on; }

bool MRL_H_TableWidget::isMultiEditingEnabled() const { return d->multiEditing; }

void MRL_H_TableWidget::setContextmenueEnabled_new_del(bool on) { d->newDeleteEntries = on; }

void MRL_H_TableWidget::setSortingEnabled(bool on) { d->setSorting(on); }

bool MRL_H_TableWidget::isSortingEnabled() const { return d->sorting; }

void MRL_H_TableWidget::sortByColumn(int column, Qt::SortOrder order) { d->sortBy(column, order); }

void MRL_H_TableWidget::sortItems(int column, Qt::SortOrder order) { d->sortBy(column, order); }

// ---- columns

MRL_H_TwHeaderItem* MRL_H_TableWidget::Private::header(int column) const
{
    return dynamic_cast<MRL_H_TwHeaderItem*>(table.horizontalHeaderItem(column));
}

void MRL_H_TableWidget::Private::renumberColumns()
{
    columnIds.assign(static_cast<std::size_t>(table.columnCount()), -1);
    positionOfId.clear();
    int lowest = 0;
    int highest = -1;
    for (int column = 0; column < table.columnCount(); ++column) {
        const MRL_H_TwHeaderItem* item = header(column);
        if (item == nullptr) {
            continue;
        }
        item->column()->position = column;
        columnIds[static_cast<std::size_t>(column)] = item->id();
        lowest = highest < lowest ? item->id() : std::min(lowest, item->id());
        highest = std::max(highest, item->id());
    }
    Q_ASSERT(highest - lowest < longestIdRange);
    firstId = lowest;
    if (highest >= lowest) {
        positionOfId.assign(static_cast<std::size_t>(highest - lowest) + 1, -1);
    }
    for (int column = table.columnCount() - 1; column >= 0; --column) {
        if (header(column) != nullptr) {
            positionOfId[static_cast<std::size_t>(columnIds[static_cast<std::size_t>(column)] - firstId)] =
                column;
        }
    }
}

void MRL_H_TableWidget::Private::applyColumnFlags(const MRL_H_TwColumn& column)
{
    for (int row = 0; row < table.rowCount(); ++row) {
        if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(table.item(row, column.position))) {
            MRL_H_TwCellAccess::applyFlags(*cell);
        }
    }
    noteLooks();
}

void MRL_H_TableWidget::Private::comboTextsChanged(const MRL_H_TwColumn& column, const QSet<int>& ids)
{
    const MRL_H_TwReportScope scope(*this);
    const QPointer<MRL_H_TableWidget> alive(&table);
    for (int row = 0; alive != nullptr && row < table.rowCount(); ++row) {
        auto* cell = MRL_H_TwSimpleComboBoxItem::fromItem(table.item(row, column.position));
        if (cell == nullptr || MRL_H_TwCellAccess::column(*cell) != &column ||
            !ids.contains(cell->getCurrentId())) {
            continue;
        }
        MRL_H_TwCellAccess::row(*cell) = row;
        noteChange(*cell);
    }
}
