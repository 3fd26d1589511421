#include "actions/action_paste.h"

#include "actions/actions_widget.h"
#include "actions/new_action.h"
#include "check/finding_text.h"
#include "host/mrl_table.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "model/working_model.h"
#include "rules/action_columns.h"
#include "rules/new_action_name.h"

namespace {

QString nameOf(const tagCDB_LC_ACT& action) { return lcm_code_name(lcm_action_code(action)); }

QString reasonOf(const LCM_Finding& finding) { return lcm_finding_text(finding); }

} // namespace

LCM_ActionPaste::LCM_ActionPaste(LCM_ActionsWidget& tab, Report report)
    : LCM_PasteHelp(tab, std::move(report)), m_actions(tab)
{
}

/// Names stand in the table in upper case.
QString LCM_ActionPaste::understand(int column, QString& text) const
{
    if (column == ACT_COL_ACTION) {
        text = text.trimmed().toUpper();
    }
    return {};
}

QHash<QString, LCM_NewAction> LCM_ActionPaste::freeActions() const
{
    QHash<QString, LCM_NewAction> found;
    const auto add = [&](const LCM_SubAction& entry, int parent, int child) {
        const QString name = nameOf(entry.record);
        if (entry.state == LCM_STATE_FREE && !found.contains(name)) {
            found.insert(name, {parent, child, lcm_title_text(entry.record.title), {}, {}});
        }
    };
    const std::vector<LCM_ActionEntry*>& parents = m_actions.workingModel()->actions;
    for (std::size_t i = 0; i < parents.size(); ++i) {
        add(*parents[i], static_cast<int>(i), -1);
        for (std::size_t k = 0; k < parents[i]->subActions.size(); ++k) {
            add(*parents[i]->subActions[k], static_cast<int>(i), static_cast<int>(k));
        }
    }
    return found;
}

std::optional<LCM_NewAction> LCM_ActionPaste::actionOf(const LCM_TypedName& typed,
                                                       const QHash<QString, LCM_NewAction>& free,
                                                       QSet<QString>& used, QString& reason) const
{
    const QString name = lcm_joined_name(typed);
    if (typed.action.isEmpty()) {
        reason = LCM_TabInterface::tr("The line names no action.");
    } else if (used.contains(name)) {
        reason = reasonOf(lcm_name_finding(LCM_Rule::NewNameAlreadyUsed));
    } else if (const auto known = free.constFind(name); known != free.constEnd()) {
        used.insert(name);
        return *known;
    } else if (const auto finding = lcm_check_whole_name(typed)) {
        reason = reasonOf(*finding);
    } else if (!m_actions.offersOwnActions()) {
        reason = LCM_TabInterface::tr("The design code has no action %1.").arg(name);
    } else {
        used.insert(name);
        return LCM_NewAction{-1, -1, {}, typed.action, typed.category};
    }
    return std::nullopt;
}

std::vector<MRL_H_NewRow> LCM_ActionPaste::makeRows(const std::vector<QStringList>& lines,
                                                    const std::vector<int>& columns)
{
    if (columns.empty() || columns.front() != ACT_COL_ACTION) {
        return {lines.size(),
                {-1, LCM_TabInterface::tr("A new action needs a name: paste from the first column on.")}};
    }
    const MRL_H_TableWidget& table = *m_actions.tableWidget();
    QSet<QString> used;
    for (int row = 0; row < table.rowCount(); ++row) {
        used.insert(rowName(row).trimmed());
    }
    const QHash<QString, LCM_NewAction> free = freeActions();
    std::vector<MRL_H_NewRow> rows;
    std::vector<LCM_NewAction> made;
    for (const QStringList& line : lines) {
        MRL_H_NewRow row;
        if (const auto action = actionOf(lcm_typed_name(line.value(0)), free, used, row.reason)) {
            row.row = table.rowCount() + static_cast<int>(made.size());
            made.push_back(*action);
        }
        rows.push_back(row);
    }
    m_actions.appendNewActions(made);
    return rows;
}
