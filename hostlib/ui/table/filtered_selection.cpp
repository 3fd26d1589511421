#include "hostlib/ui/table/filtered_selection.h"

#include <QHeaderView>

namespace mrl::table {

namespace {

/// While it lives a header only notes the sizes of its sections. Otherwise it would compute the places of all
/// sections anew for each one that is hidden.
class QuietHeader
{
  public:
    explicit QuietHeader(QHeaderView& header) : m_header(header), m_before(header.updatesEnabled())
    {
        m_header.setUpdatesEnabled(false);
    }
    ~QuietHeader() { m_header.setUpdatesEnabled(m_before); }
    QuietHeader(const QuietHeader&) = delete;
    QuietHeader& operator=(const QuietHeader&) = delete;

  private:
    QHeaderView& m_header;
    bool m_before;
};

/// A selection of whole columns as the ranges that it stands for.
QItemSelection withWholeColumns(const QItemSelection& selection)
{
    QItemSelection whole;
    for (const QItemSelectionRange& range : selection) {
        const QAbstractItemModel* model = range.model();
        whole.select(model->index(0, range.left()), model->index(model->rowCount() - 1, range.right()));
    }
    return whole;
}

} // namespace

FilteredSelection::FilteredSelection(QTableWidget& table)
    : QItemSelectionModel(table.model(), &table), m_table(table)
{
}

void FilteredSelection::setFilter(const std::function<bool(int row)>& accepts)
{
    m_isFiltered = accepts != nullptr;
    {
        const QuietHeader quiet(*m_table.verticalHeader());
        for (int row = 0; row < m_table.rowCount(); ++row) {
            m_table.setRowHidden(row, m_isFiltered && !accepts(row));
        }
    }
    m_table.viewport()->update();
    if (m_isFiltered && hasSelection()) {
        select(selection(), QItemSelectionModel::ClearAndSelect);
    }
}

void FilteredSelection::select(const QItemSelection& selection, QItemSelectionModel::SelectionFlags command)
{
    if (!m_isFiltered) {
        QItemSelectionModel::select(selection, command);
        return;
    }
    const bool columns = command.testFlag(QItemSelectionModel::Columns);
    command.setFlag(QItemSelectionModel::Columns, false);
    QItemSelectionModel::select(shownPart(columns ? withWholeColumns(selection) : selection), command);
}

QItemSelection FilteredSelection::shownPart(const QItemSelection& selection) const
{
    QItemSelection shown;
    for (const QItemSelectionRange& range : selection) {
        int row = range.top();
        while (row <= range.bottom()) {
            const int first = row;
            while (row <= range.bottom() && !m_table.isRowHidden(row)) {
                ++row;
            }
            if (row > first) {
                shown.append(QItemSelectionRange(range.model()->index(first, range.left()),
                                                 range.model()->index(row - 1, range.right())));
            }
            ++row;
        }
    }
    return shown;
}

} // namespace mrl::table
