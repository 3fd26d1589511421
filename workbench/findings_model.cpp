#include "workbench/findings_model.h"

namespace mrl::workbench {

FindingsModel::FindingsModel(QObject* parent) : RowsModel(parent) {}

void FindingsModel::show(std::vector<CheckFinding> findings)
{
    beginResetModel();
    setRows(std::move(findings));
    endResetModel();
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return index.column() == 0 ? rowOf(index).where : rowOf(index).text;
    }
    return QVariant();
}

QString FindingsModel::caption(int section) const { return section == 0 ? tr("Where") : tr("Finding"); }

} // namespace mrl::workbench
