#include "workbench/steps/changes_table.h"

#include <QHeaderView>

#include <algorithm>

namespace mrl::workbench {

ChangesModel::ChangesModel(const QString& before, const QString& after, QObject* parent)
    : RowsModel(parent), m_before(before), m_after(after)
{
}

void ChangesModel::show(std::vector<ShownChange> changes)
{
    beginResetModel();
    setRows(std::move(changes));
    endResetModel();
}

QVariant ChangesModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return QVariant();
    }
    const ShownChange& change = rowOf(index);
    switch (index.column()) {
    case Subject:
        return change.subject;
    case Value:
        return change.value;
    case Before:
        return change.before;
    case After:
        return change.after;
    default:
        return change.note;
    }
}

QString ChangesModel::caption(int column) const
{
    const QString captions[] = {tr("Record"), tr("Value"), m_before, m_after, tr("Note")};
    return captions[column];
}

ChangesTable::ChangesTable(const QString& before, const QString& after, QWidget* parent)
    : QTableView(parent), m_model(new ChangesModel(before, after, this))
{
    setObjectName(QStringLiteral("table_changes"));
    setAccessibleName(tr("Changes"));
    setModel(m_model);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setResizeContentsPrecision(100);
}

void ChangesTable::show(std::vector<ShownChange> changes)
{
    const bool hasNotes = std::any_of(changes.begin(), changes.end(),
                                      [](const ShownChange& change) { return !change.note.isEmpty(); });
    m_model->show(std::move(changes));
    setColumnHidden(ChangesModel::Note, !hasNotes);
    resizeColumnsToContents();
    for (const int column : {ChangesModel::Before, ChangesModel::After}) {
        setColumnWidth(column, std::min(columnWidth(column), fontMetrics().averageCharWidth() * 40));
    }
    horizontalHeader()->setStretchLastSection(true);
}

} // namespace mrl::workbench
