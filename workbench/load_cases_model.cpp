#include "workbench/load_cases_model.h"

#include <QFont>

#include "lcdata/action_code.h"
#include "lcdata/keys.h"
#include "lcdata/packed_text.h"
#include "model/rules/loadcase_row.h"

namespace mrl::workbench {

namespace {

QString actionOf(int word)
{
    if (word == LC_ACTION_NONE)
        return LoadCasesModel::tr("none");
    if (word == LC_ACTION_IMPERFECTION)
        return QStringLiteral("IMP");
    return lcm_word_name(word);
}

QVariant boldFont()
{
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

LoadCasesModel::LoadCasesModel(QObject* parent) : RowsModel(parent) {}

void LoadCasesModel::show(std::vector<LCM_StoredLoadCase> loadCases, std::vector<FactorColumn> factors,
                          int current)
{
    beginResetModel();
    setRows(std::move(loadCases));
    m_factors = std::move(factors);
    m_current = current;
    endResetModel();
}

QString LoadCasesModel::text(const LCM_StoredLoadCase& loadCase, int column) const
{
    switch (column) {
    case Number:
        return QString::number(loadCase.number);
    case Title:
        return lcm_title_text(loadCase.record.title);
    case Action:
        return actionOf(loadCase.record.action);
    case Dlx:
        return number(loadCase.record.dlx);
    case Dly:
        return number(loadCase.record.dly);
    case Dlz:
        return number(loadCase.record.dlz);
    default:
        return number(lcm_stored_factors(
            loadCase.record)[m_factors[static_cast<std::size_t>(column - FirstFactor)].column]);
    }
}

QVariant LoadCasesModel::data(const QModelIndex& index, int role) const
{
    const auto& loadCase = rowOf(index);
    const bool current = loadCase.number == m_current;
    switch (role) {
    case Qt::TextAlignmentRole:
        return alignment(index.column() == Number || index.column() >= Dlx);
    case Qt::DisplayRole:
        return text(loadCase, index.column());
    case Qt::ToolTipRole:
        return current ? tr("The current load case") : QVariant();
    case Qt::FontRole:
        return current ? boldFont() : QVariant();
    default:
        return QVariant();
    }
}

QString LoadCasesModel::caption(int section) const
{
    switch (section) {
    case Number:
        return tr("Number");
    case Title:
        return tr("Title");
    case Action:
        return tr("Action");
    case Dlx:
        return QStringLiteral("DLX");
    case Dly:
        return QStringLiteral("DLY");
    case Dlz:
        return QStringLiteral("DLZ");
    default:
        return m_factors[static_cast<std::size_t>(section - FirstFactor)].label;
    }
}

} // namespace mrl::workbench
