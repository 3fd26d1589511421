#include "workbench/findings_model.h"

#include <QCoreApplication>

#include "check/finding_text.h"
#include "lcdata/values/action_code.h"

namespace mrl::workbench {

namespace {

/// "Action Q_A", "Load case 12".
QString whereOf(const LCM_Finding& finding)
{
    if (finding.subject == LCM_Subject::Project) {
        return QCoreApplication::translate("Workbench", "Design code");
    }
    return finding.subject == LCM_Subject::Action
               ? QCoreApplication::translate("Workbench", "Action %1").arg(lcm_code_name(finding.id))
               : QCoreApplication::translate("Workbench", "Load case %1").arg(finding.id);
}

} // namespace

FindingsModel::FindingsModel(QObject* parent) : RowsModel(parent) {}

void FindingsModel::show(LCM_Findings findings)
{
    beginResetModel();
    setRows(std::move(findings));
    endResetModel();
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return index.column() == 0 ? whereOf(rowOf(index)) : lcm_finding_text(rowOf(index));
    }
    const bool isOfLoadCase = rowOf(index).subject == LCM_Subject::LoadCase;
    return role == ROW_LOAD_CASE_ROLE && isOfLoadCase ? QVariant(rowOf(index).id) : QVariant();
}

QString FindingsModel::caption(int section) const { return section == 0 ? tr("Where") : tr("Finding"); }

} // namespace mrl::workbench
