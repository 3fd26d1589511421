#include "workbench/combinations/combination_list_model.h"

#include "combine/decimal.h"
#include "combine/enumerate.h"

namespace mrl::workbench {

CombinationListModel::CombinationListModel(QObject* parent) : RowsModel(parent) {}

void CombinationListModel::show(const ProjectCombinations::Planned* planned)
{
    std::vector<CombinationRow> rows;
    if (planned != nullptr) {
        combine::enumerate(planned->plan, MOST, [&](const combine::Combination& each) {
            const std::string& name = planned->plan.expressions[static_cast<std::size_t>(each.expression)];
            rows.push_back({QString::fromStdString(each.leading), QString::fromStdString(name),
                            QString::fromStdString(combine::keyText(each.key))});
            return true;
        });
    }
    beginResetModel();
    setRows(std::move(rows));
    endResetModel();
}

QVariant CombinationListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return alignment(false);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const CombinationRow& row = rowOf(index);
    return index.column() == Key ? row.key : index.column() == Leading ? row.leading : row.expression;
}

QString CombinationListModel::caption(int section) const
{
    return section == Key ? tr("Combination") : section == Leading ? tr("Leading") : tr("Expression");
}

} // namespace mrl::workbench
