#include "workbench/summary_models.h"

#include <QFont>

#include "host/mrl_table.h"
#include "lcdata/action_code.h"
#include "lcdata/keys.h"
#include "lcdata/packed_text.h"
#include "model/rules/action_row.h"
#include "model/rules/loadcase_row.h"

namespace mrl::workbench {

namespace {

QString number(float value) { return mrl_h_getDimStringFromVal(static_cast<double>(value), -3, 2); }

QString factorText(const tagCDB_LC_ACT& record, int column)
{
    return number(column == ACT_COL_GAMA ? lcm_shown_gama(record.gama) : lcm_action_factor(record, column));
}

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

QVariant rightIf(bool right)
{
    return QVariant(right ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

} // namespace

ActionsModel::ActionsModel(QObject* parent) : QAbstractTableModel(parent) {}

void ActionsModel::show(std::vector<LCM_StoredAction> actions, std::vector<FactorColumn> factors)
{
    beginResetModel();
    m_actions = std::move(actions);
    m_factors = std::move(factors);
    endResetModel();
}

int ActionsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_actions.size());
}

int ActionsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : FirstFactor + static_cast<int>(m_factors.size());
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
        return factorText(action.record, m_factors[static_cast<std::size_t>(column - FirstFactor)].column);
    }
}

QVariant ActionsModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return rightIf(index.column() >= FirstFactor);
    if (role == Qt::DisplayRole)
        return text(m_actions[static_cast<std::size_t>(index.row())], index.column());
    return QVariant();
}

QVariant ActionsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Name:
        return tr("Action");
    case Title:
        return tr("Description");
    case Category:
        return tr("Category");
    case Superposition:
        return tr("Superposition");
    default:
        return m_factors[static_cast<std::size_t>(section - FirstFactor)].label;
    }
}

LoadCasesModel::LoadCasesModel(QObject* parent) : QAbstractTableModel(parent) {}

void LoadCasesModel::show(std::vector<LCM_StoredLoadCase> loadCases, std::vector<FactorColumn> factors,
                          int current)
{
    beginResetModel();
    m_loadCases = std::move(loadCases);
    m_factors = std::move(factors);
    m_current = current;
    endResetModel();
}

int LoadCasesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_loadCases.size());
}

int LoadCasesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : FirstFactor + static_cast<int>(m_factors.size());
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
    const auto& loadCase = m_loadCases[static_cast<std::size_t>(index.row())];
    const bool current = loadCase.number == m_current;
    switch (role) {
    case Qt::TextAlignmentRole:
        return rightIf(index.column() == Number || index.column() >= Dlx);
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

QVariant LoadCasesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
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

FindingsModel::FindingsModel(QObject* parent) : QAbstractTableModel(parent) {}

void FindingsModel::show(std::vector<CheckFinding> findings)
{
    beginResetModel();
    m_findings = std::move(findings);
    endResetModel();
}

int FindingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_findings.size());
}

int FindingsModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 2; }

QVariant FindingsModel::data(const QModelIndex& index, int role) const
{
    const auto& finding = m_findings[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return index.column() == 0 ? finding.where : finding.text;
    return QVariant();
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    return section == 0 ? tr("Where") : tr("Finding");
}

} // namespace mrl::workbench
