#include "workbench/exchange/plan_model.h"

#include <QApplication>
#include <QBrush>
#include <QPalette>
#include <QStringList>

#include "check/finding_text.h"
#include "hostlib/ui/table/finding_marks.h"

namespace mrl::workbench {

namespace {

using exchange::Outcome;
using exchange::PlannedRow;

const QString BETWEEN = QStringLiteral("; ");

QString shown(const std::string& cell)
{
    return cell.empty() ? QString(QChar(0x2013)) : QString::fromStdString(cell);
}

/// "Gamu: 1.35 → 1.5" of a row that is changed, "title: Wind" of one that is added.
QString changesOf(const PlannedRow& row)
{
    QStringList texts;
    if (row.outcome != Outcome::Added && row.outcome != Outcome::Changed) {
        return {};
    }
    for (const exchange::Change& change : row.changes()) {
        const QString name = QString::fromLatin1(change.column->name);
        if (row.outcome == Outcome::Changed) {
            texts << QStringLiteral("%1: %2 %3 %4")
                         .arg(name, shown(change.before), QChar(0x2192), shown(change.after));
        } else if (!change.after.empty() && change.column->kind != exchange::Kind::Key) {
            texts << QStringLiteral("%1: %2").arg(name, QString::fromStdString(change.after));
        }
    }
    return texts.join(BETWEEN);
}

/// Why a row is refused, and what it loses.
QString remarksOf(const PlannedRow& row)
{
    QStringList texts;
    std::size_t finding = 0;
    for (const exchange::Reason& reason : row.reasons) {
        const bool isFinding =
            finding < row.findings.size() && reason.rule == lcm_rule_id(row.findings[finding].rule);
        const QString text =
            isFinding ? lcm_finding_text(row.findings[finding++]) : reason.message.translated();
        texts << QStringLiteral("%1 [%2]").arg(text, QString::fromStdString(reason.rule));
    }
    for (const exchange::Message& note : row.notes) {
        texts << note.translated();
    }
    return texts.join(BETWEEN);
}

/// The number of a load case stands ahead where the file names it otherwise.
QString rowName(const PlannedRow& row)
{
    const QString name = QString::fromStdString(row.name);
    const QString number = QString::number(row.id);
    return row.sheet == exchange::Sheet::Actions || row.id == 0 || name == number ? name
           : name.isEmpty()                                                       ? number
                            : QStringLiteral("%1  %2").arg(number, name);
}

} // namespace

PlanModel::PlanModel(QObject* parent) : QAbstractTableModel(parent) {}

void PlanModel::show(const exchange::Plan* plan, std::optional<Outcome> only)
{
    beginResetModel();
    m_plan = plan;
    m_rows.clear();
    for (std::size_t i = 0; plan != nullptr && i < plan->rows.size(); ++i) {
        if (!only || plan->rows[i].outcome == *only) {
            m_rows.push_back(i);
        }
    }
    endResetModel();
}

QString PlanModel::nameOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Added:
        return tr("added");
    case Outcome::Changed:
        return tr("changed");
    case Outcome::Unchanged:
        return tr("unchanged");
    case Outcome::Refused:
        break;
    }
    return tr("refused");
}

int PlanModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int PlanModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : COLUMNS; }

QString PlanModel::text(const PlannedRow& row, int column)
{
    switch (column) {
    case Result:
        return nameOf(row.outcome);
    case Line:
        return QString::number(row.line);
    case Kind:
        return row.sheet == exchange::Sheet::Actions ? tr("action") : tr("load case");
    case Name:
        return rowName(row);
    case Changes:
        return changesOf(row);
    default:
        return remarksOf(row);
    }
}

QVariant PlanModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const PlannedRow& row = m_plan->rows[m_rows[static_cast<std::size_t>(index.row())]];
    if (role == Qt::DisplayRole || (role == Qt::ToolTipRole && index.column() >= Changes)) {
        return text(row, index.column());
    }
    if (role == Qt::UserRole && index.column() == Line) {
        return row.line;
    }
    if (role == Qt::ForegroundRole && index.column() == Result && row.outcome == Outcome::Refused) {
        return QBrush(table::readableOn(QApplication::palette().color(QPalette::Base), Qt::darkRed));
    }
    return {};
}

QVariant PlanModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    const QString captions[COLUMNS] = {tr("Result"), tr("Line"),    tr("Kind"),
                                       tr("Name"),   tr("Changes"), tr("Reasons and losses")};
    return captions[section];
}

} // namespace mrl::workbench
