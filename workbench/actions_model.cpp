#include "workbench/actions_model.h"

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "rules/action_row.h"

namespace mrl::workbench {

namespace {

QString categoryName(int partition)
{
    const int group = partition >> 8;
    switch ((partition >> 4) & 0xF) {
    case 1:
        return ActionsModel::tr("permanent");
    case 2:
        return ActionsModel::tr("prestress");
    case 3:
        return group > 0 ? ActionsModel::tr("variable, group %1").arg(group) : ActionsModel::tr("variable");
    case 4:
        return ActionsModel::tr("accidental");
    case 5:
        return ActionsModel::tr("earthquake");
    default:
        return QString::number(partition >> 4);
    }
}

QString superpositionName(int partition)
{
    static const char* const NAMES[] = {"PERM", "COND", "EXCL", "UNSI", "USEX",
                                        "ALEX", "EXEX", "PERC", "PERC"};
    const unsigned code = static_cast<unsigned>(partition) & 0xFu;
    return code < std::size(NAMES) ? QString::fromLatin1(NAMES[code]) : QString::number(code);
}

} // namespace

ActionsModel::ActionsModel(QObject* parent) : RowsModel(parent) {}

void ActionsModel::show(std::vector<LCM_StoredAction> actions, std::vector<FactorColumn> factors)
{
    beginResetModel();
    setRows(std::move(actions));
    m_factors = std::move(factors);
    endResetModel();
}

QString ActionsModel::text(const LCM_StoredAction& action, int column) const
{
    switch (column) {
    case Name:
        return lcm_code_name(action.code);
    case Title:
        return lcm_title_text(action.record.title);
    case Category:
        return categoryName(action.record.partition);
    case Superposition:
        return superpositionName(action.record.partition);
    default:
        return number(lcm_shown_factor(
            action.record,
            *lcm_factor_of_column(m_factors[static_cast<std::size_t>(column - FirstFactor)].column)));
    }
}

QVariant ActionsModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole) {
        return alignment(index.column() >= FirstFactor);
    }
    return role == Qt::DisplayRole ? text(rowOf(index), index.column()) : QVariant();
}

QString ActionsModel::caption(int section) const
{
    switch (section) {
    case Name:
        return tr("Action");
    case Title:
        return tr("Description");
    case Category:
        return tr("Partition");
    case Superposition:
        return tr("Superposition");
    default:
        return m_factors[static_cast<std::size_t>(section - FirstFactor)].label;
    }
}

} // namespace mrl::workbench
