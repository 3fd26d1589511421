#include "workbench/combinations/situations_model.h"

#include "report/readable.h"

namespace mrl::workbench {

SituationsModel::SituationsModel(QObject* parent) : RowsModel(parent) {}

void SituationsModel::show(const ProjectCombinations& combinations)
{
    std::vector<SituationRow> rows;
    rows.reserve(combinations.situations.size());
    for (const ProjectCombinations::Planned& each : combinations.situations) {
        rows.push_back({QString::fromStdString(each.situation.name), report::situationTitle(each.situation),
                        QString::fromStdString(each.situation.clause),
                        report::situationFormula(each.situation), report::situationRemarks(each.situation),
                        report::readableCount(each.count)});
    }
    beginResetModel();
    setRows(std::move(rows));
    endResetModel();
}

QVariant SituationsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const SituationRow& row = rowOf(index);
    if (role == Qt::TextAlignmentRole) {
        return alignment(index.column() == Count);
    }
    if (role == Qt::ToolTipRole) {
        return row.remarks.isEmpty() ? row.name : row.name + QLatin1Char('\n') + row.remarks;
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (index.column()) {
    case Title:
        return row.title;
    case Clause:
        return row.clause;
    case Formula:
        return row.formula;
    default:
        return row.count;
    }
}

QString SituationsModel::caption(int section) const
{
    switch (section) {
    case Title:
        return tr("Situation");
    case Clause:
        return tr("Clause");
    case Formula:
        return tr("Expression");
    default:
        return tr("Combinations");
    }
}

} // namespace mrl::workbench
