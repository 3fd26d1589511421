#include "workbench/actions_model.h"

#include "lcdata/values/action_code.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"

namespace mrl::workbench {

namespace {

QString partitionName(int id)
{
    if (lcm_is_load_group(id)) {
        return ActionsModel::tr("variable, group %1").arg(lcm_load_group(id));
    }
    switch (id) {
    case LC_CATEGORY_PERMANENT:
        return ActionsModel::tr("permanent");
    case LC_CATEGORY_PRESTRESS:
        return ActionsModel::tr("prestress");
    case LC_CATEGORY_VARIABLE:
        return ActionsModel::tr("variable");
    case LC_CATEGORY_ACCIDENTAL:
        return ActionsModel::tr("accidental");
    case LC_CATEGORY_EARTHQUAKE:
        return ActionsModel::tr("earthquake");
    default:
        return QString::number(id);
    }
}

QString superpositionName(int id) { return QString::fromStdString(lcm_word_of_id(LCM_SUPERPOSITIONS, id)); }

} // namespace

ActionsModel::ActionsModel(QObject* parent) : RowsModel(parent) {}

void ActionsModel::show(std::vector<LCM_StoredAction> actions, std::vector<FactorColumn> factors,
                        FactorOrigins origins)
{
    beginResetModel();
    setRows(std::move(actions));
    m_factors = std::move(factors);
    m_origins = std::move(origins);
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
        return partitionName(lcm_partition_id(action.record.partition));
    case Superposition:
        return superpositionName(lcm_superposition_id(action.record.partition));
    default:
        return number(lcm_shown_factor(action.record, lcm_factor(factorAt(column).id)));
    }
}

const FactorColumn& ActionsModel::factorAt(int column) const
{
    return m_factors.at(static_cast<std::size_t>(column - FirstFactor));
}

QVariant ActionsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return alignment(index.column() >= FirstFactor);
    }
    if (role == Qt::DisplayRole) {
        return text(rowOf(index), index.column());
    }
    return index.column() < FirstFactor
               ? QVariant()
               : originData(m_origins, rowOf(index).code, factorAt(index.column()).id, role);
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
        return factorAt(section).label;
    }
}

} // namespace mrl::workbench
