#include "workbench/designcode/recode_model.h"

#include "check/factor_origin.h"
#include "check/finding_text.h"
#include "lcdata/values/action_code.h"

namespace mrl::workbench {

namespace {

QString changesOf(const LCM_RecodeRow& row)
{
    QStringList changes;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float before = lcm_shown_factor(row.before, factor);
        const float after = lcm_shown_factor(row.after, factor);
        if (before != after) {
            changes << QStringLiteral("%1 %2 > %3")
                           .arg(QLatin1String(factor.key), lcm_factor_text(before), lcm_factor_text(after));
        }
    }
    return changes.join(QStringLiteral(", "));
}

QString droppedOf(const LCM_RecodeRow& row)
{
    QStringList names;
    for (const std::string& name : row.dropped) {
        names << QString::fromStdString(name);
    }
    return names.join(QStringLiteral(", "));
}

QString brokenOf(const LCM_RecodeRow& row)
{
    QStringList texts;
    for (const LCM_Finding& finding : row.broken) {
        texts << lcm_finding_text(finding);
    }
    return texts.join(QLatin1Char(' '));
}

QString loadCasesOf(const LCM_RecodeRow& row)
{
    QStringList numbers;
    for (const int number : row.loadCases) {
        numbers << QString::number(number);
    }
    return numbers.join(QStringLiteral(", "));
}

} // namespace

RecodeModel::RecodeModel(QObject* parent) : RowsModel(parent) {}

void RecodeModel::show(std::vector<LCM_RecodeRow> rows)
{
    beginResetModel();
    setRows(std::move(rows));
    endResetModel();
}

QString RecodeModel::text(const LCM_RecodeRow& row, int column) const
{
    switch (column) {
    case Action:
        return lcm_code_name(row.oldCode);
    case Becomes:
        return lcm_code_name(row.newCode);
    case What:
        switch (row.fate) {
        case LCM_RecodeFate::TakesDefault:
            return tr("takes the new default");
        case LCM_RecodeFate::KeepsValues:
            return tr("keeps its values");
        case LCM_RecodeFate::BecomesOwn:
            break;
        }
        return tr("stays as an own action");
    case Changes:
        return changesOf(row);
    case Dropped:
        return droppedOf(row);
    case Breaks:
        return brokenOf(row);
    default:
        return loadCasesOf(row);
    }
}

QVariant RecodeModel::data(const QModelIndex& index, int role) const
{
    // A narrow window cuts texts off.
    return role == Qt::DisplayRole || role == Qt::ToolTipRole ? text(rowOf(index), index.column())
                                                              : QVariant();
}

QString RecodeModel::caption(int section) const
{
    switch (section) {
    case Action:
        return tr("Action");
    case Becomes:
        return tr("Becomes");
    case What:
        return tr("What");
    case Changes:
        return tr("Changes");
    case Dropped:
        return tr("Lost on OK");
    case Breaks:
        return tr("Breaks");
    default:
        return tr("Load cases");
    }
}

} // namespace mrl::workbench
