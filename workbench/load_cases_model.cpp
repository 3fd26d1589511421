#include "workbench/load_cases_model.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "rules/load_case_row.h"

namespace mrl::workbench {

namespace {

/// Paler than text, and still easy to read.
QBrush subdued()
{
    const QPalette palette = QApplication::palette();
    const QColor& text = palette.color(QPalette::Text);
    const QColor& base = palette.color(QPalette::Base);
    const auto mix = [](int a, int b) { return (3 * a + 2 * b) / 5; };
    return QColor(mix(text.red(), base.red()), mix(text.green(), base.green()),
                  mix(text.blue(), base.blue()));
}

QString nameOfAction(int word)
{
    if (word == LC_ACTION_NONE) {
        return LoadCasesModel::tr("none");
    }
    if (word == LC_ACTION_IMPERFECTION) {
        return QStringLiteral("IMP");
    }
    return lcm_word_name(word);
}

/// Bold in the row of the current load case.
QVariant fontOf(bool isCurrent, const QVariant& slanted)
{
    if (!isCurrent) {
        return slanted;
    }
    auto font = slanted.value<QFont>();
    font.setBold(true);
    return font;
}

} // namespace

LoadCasesModel::LoadCasesModel(QObject* parent) : RowsModel(parent) {}

void LoadCasesModel::show(std::vector<LCM_StoredLoadCase> loadCases, std::vector<FactorColumn> factors,
                          int current, const std::vector<LCM_StoredAction>& actions, FactorOrigins origins)
{
    beginResetModel();
    setRows(std::move(loadCases));
    m_factors = std::move(factors);
    m_current = current;
    m_origins = std::move(origins);
    m_actions.clear();
    for (const LCM_StoredAction& action : actions) {
        m_actions.emplace(action.code, action.record);
    }
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
        return nameOfAction(loadCase.record.action);
    case Dlx:
        return number(loadCase.record.dlx);
    case Dly:
        return number(loadCase.record.dly);
    case Dlz:
        return number(loadCase.record.dlz);
    default:
        const tagCDB_LC_ACT* action = actionOf(loadCase, column);
        const LCM_FactorId factor = factorAt(column).id;
        return number(action ? lcm_shown_factor(*action, lcm_factor(factor))
                             : lcm_stored_factors(loadCase.record)[factor]);
    }
}

const FactorColumn& LoadCasesModel::factorAt(int column) const
{
    return m_factors.at(static_cast<std::size_t>(column - FirstFactor));
}

const tagCDB_LC_ACT* LoadCasesModel::actionOf(const LCM_StoredLoadCase& loadCase, int column) const
{
    // As in the manager: factors that its record holds beside an action count for nothing.
    if (column < FirstFactor) {
        return nullptr;
    }
    const auto found = m_actions.find(loadCase.record.action);
    return found == m_actions.end() ? nullptr : &found->second;
}

QVariant LoadCasesModel::origin(const QModelIndex& index, int role) const
{
    const auto& loadCase = rowOf(index);
    return actionOf(loadCase, index.column())
               ? originData(m_origins, loadCase.record.action, factorAt(index.column()).id, role)
               : QVariant();
}

QVariant LoadCasesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const auto& loadCase = rowOf(index);
    const bool current = loadCase.number == m_current;
    switch (role) {
    case Qt::TextAlignmentRole:
        return alignment(index.column() == Number || index.column() >= Dlx);
    case ROW_LOAD_CASE_ROLE:
        return loadCase.number;
    case Qt::DisplayRole:
        return text(loadCase, index.column());
    case Qt::ToolTipRole:
        if (actionOf(loadCase, index.column())) {
            const QString origin = this->origin(index, role).toString();
            return tr("Factor of the action %1").arg(nameOfAction(loadCase.record.action)) +
                   (origin.isEmpty() ? QString() : QLatin1Char('\n') + origin);
        }
        if (index.column() == Title) { // a narrow window cuts it off
            return text(loadCase, Title);
        }
        return current ? tr("The current load case") : QVariant();
    case Qt::ForegroundRole:
        return actionOf(loadCase, index.column()) ? QVariant(subdued()) : QVariant();
    case Qt::FontRole:
        return fontOf(current, origin(index, role));
    case Qt::AccessibleDescriptionRole:
        return origin(index, role);
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
        return factorAt(section).label;
    }
}

} // namespace mrl::workbench
