// What the commands of a table do to its rows and cells.

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QSignalBlocker>

#include <algorithm>

#include "hostlib/ui/table/assisted_paste.h"
#include "hostlib/ui/table/cell_block.h"
#include "hostlib/ui/table/row_moves.h"
#include "hostlib/ui/table/selection.h"
#include "hostlib/ui/table/tab_separated.h"
#include "hostlib/ui/table/table_private.h"
#include "hostlib/ui/table/text_search.h"
#include "hostlib/ui/table/view_headers.h"

using mrl::table::Captions;

void MRL_H_TableWidget::Private::copy(const std::vector<QStringList>& block, Captions captions) const
{
    if (block.empty()) {
        return;
    }
    if (copiesHtml) {
        mrl::table::copyToClipboard(block, captions);
    } else {
        QApplication::clipboard()->setText(mrl::table::toTabSeparated(block));
    }
}

void MRL_H_TableWidget::copySelection()
{
    d->copy(mrl::table::selectedBlock(*this, Captions::Leave), Captions::Leave);
}

void MRL_H_TableWidget::copySelectionWithHeaders()
{
    d->copy(mrl::table::selectedBlock(*this, Captions::Copy), Captions::Copy);
}

void MRL_H_TableWidget::setHtmlCopyEnabled(bool on) { d->copiesHtml = on; }

void MRL_H_TableWidget::pasteClipboard()
{
    const std::vector<QStringList> lines = mrl::table::fromTabSeparated(QApplication::clipboard()->text());
    if (lines.empty()) {
        return;
    }
    if (d->pasteHelper != nullptr) {
        mrl::table::AssistedPaste(*this, d->entry, *d->pasteHelper).run(lines);
        return;
    }
    const mrl::table::Paste paste = mrl::table::plannedPaste(*this, lines);
    d->entry.enter(paste.entries, MRL_H_TableJournalListener::Entry::Pasted, paste.cells);
}

void MRL_H_TableWidget::fillDown()
{
    d->entry.enter(mrl::table::plannedFillDown(*this), MRL_H_TableJournalListener::Entry::FilledDown);
}

void MRL_H_TableWidget::fitColumns() { resizeColumnsToContents(); }

void MRL_H_TableWidget::showColumnFitted(int column) { d->fit.show(*this, column); }

void MRL_H_TableWidget::setRowFilter(const std::function<bool(int row)>& accepts)
{
    d->selection->setFilter(accepts);
}

int MRL_H_TableWidget::hiddenRowCount() const { return verticalHeader()->hiddenSectionCount(); }

QModelIndex MRL_H_TableWidget::findText(const QString& text, const QModelIndex& from, Search search) const
{
    return mrl::table::findText(*this, text, from, search);
}

void MRL_H_TableWidget::setFindingMarks(int id, int role)
{
    d->marks.set(getColumnNumber(id), role);
    if (auto* header = dynamic_cast<RowHeader*>(verticalHeader())) {
        header->setMarkedRows([this](int row) { return d->marks.isInvalid(row); });
        header->viewport()->update();
    }
    viewport()->update();
}

void MRL_H_TableWidget::removeRows(const std::set<int>& rows)
{
    const std::vector<int> gone(rows.lower_bound(0), rows.lower_bound(rowCount()));
    if (gone.empty()) {
        return;
    }
    // A selection that goes with its rows is not worth moving: every second row makes a range of its own.
    const std::vector<int> selected = mrl::table::selectedRows(*this);
    const bool selectionGoes =
        !selected.empty() &&
        std::all_of(selected.begin(), selected.end(), [&](int row) { return rows.count(row) != 0; });
    if (selectionGoes) {
        const QSignalBlocker quiet(selectionModel());
        selectionModel()->clearSelection();
    }
    mrl::table::HeldCells cells = d->takeRows(gone);
    if (d->journal) {
        d->journal->noteWent(gone, std::move(cells));
    }
    if (selectionGoes) {
        emit selectionModel()->selectionChanged({}, {});
    }
}

void MRL_H_TableWidget::setSortingEnabled(bool on)
{
    if (on == d->order.isOn()) {
        return;
    }
    d->order.setOn(on);
    QHeaderView* header = horizontalHeader();
    header->setSortIndicatorShown(on);
    // As in QTableView: a click on a header sorts in a sorted table, and selects the column in another one.
    if (on) {
        disconnect(header, SIGNAL(sectionPressed(int)), this, SLOT(selectColumn(int)));
        disconnect(header, SIGNAL(sectionEntered(int)), this, SLOT(_q_selectColumn(int)));
        connect(header, &QHeaderView::sortIndicatorChanged, &d->context,
                [this](int column, Qt::SortOrder order) { sortByColumn(column, order); });
        sortByColumn(header->sortIndicatorSection(), header->sortIndicatorOrder());
    } else {
        disconnect(header, &QHeaderView::sortIndicatorChanged, &d->context, nullptr);
        connect(header, SIGNAL(sectionPressed(int)), this, SLOT(selectColumn(int)), Qt::UniqueConnection);
        connect(header, SIGNAL(sectionEntered(int)), this, SLOT(_q_selectColumn(int)), Qt::UniqueConnection);
    }
}

bool MRL_H_TableWidget::isSortingEnabled() const { return d->order.isOn(); }

void MRL_H_TableWidget::sortByColumn(int column, Qt::SortOrder order)
{
    {
        const QSignalBlocker noSecondSort(horizontalHeader());
        horizontalHeader()->setSortIndicator(column, order);
    }
    horizontalHeader()->viewport()->update();
    d->order.setOrder(column, order);
    d->order.sort();
}

void MRL_H_TableWidget::sortItems(int column, Qt::SortOrder order) { sortByColumn(column, order); }
