#include "workbench/combinations/terms_model.h"

#include <QLocale>

#include "combine/decimal.h"
#include "report/readable.h"

namespace mrl::workbench {

namespace {

constexpr int DIGITS = 6;

QString decimal(double number) { return QLocale().toString(number, 'g', DIGITS); }

/// "KFI*Gamu*Psi0 = 1*1.5*0.7"; a plain number alone.
QString originText(const combine::Origin& origin)
{
    const QString term = QString::fromStdString(origin.term);
    return origin.term == origin.values
               ? term
               : term + QStringLiteral(" = ") + QString::fromStdString(origin.values);
}

} // namespace

TermsModel::TermsModel(QObject* parent) : RowsModel(parent) {}

void TermsModel::show(std::vector<TermRow> terms)
{
    beginResetModel();
    setRows(std::move(terms));
    endResetModel();
}

QVariant TermsModel::text(const TermRow& row, int column)
{
    switch (column) {
    case LoadCase:
        return row.origin.number;
    case Action:
        return QString::fromStdString(row.origin.action);
    case Role:
        return report::roleName(row.origin.role);
    case Factor:
        return QString::fromStdString(combine::decimalText(row.origin.factor));
    case Origin:
        return originText(row.origin);
    case Response:
        return decimal(row.response);
    default:
        return decimal(row.contribution());
    }
}

QVariant TermsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const TermRow& row = rowOf(index);
    const int column = index.column();
    const bool isRight = column == LoadCase || column == Factor || column >= Response;
    if (role == Qt::TextAlignmentRole) {
        return alignment(isRight);
    }
    if (role == Qt::UserRole && isRight) {
        return column == LoadCase   ? QVariant(row.origin.number)
               : column == Factor   ? QVariant(row.origin.factor)
               : column == Response ? QVariant(row.response)
                                    : QVariant(row.contribution());
    }
    return role == Qt::DisplayRole ? text(row, column) : QVariant();
}

QString TermsModel::caption(int section) const
{
    switch (section) {
    case LoadCase:
        return tr("Load case");
    case Action:
        return tr("Action");
    case Role:
        return tr("Acts as");
    case Factor:
        return tr("Factor");
    case Origin:
        return tr("Where it comes from");
    case Response:
        return tr("Response");
    default:
        return tr("Contribution");
    }
}

} // namespace mrl::workbench
