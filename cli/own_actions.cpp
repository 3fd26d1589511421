#include "cli/own_actions.h"

#include "cli/project_records.h"
#include "exchange/action_removal.h"
#include "exchange/decimals.h"
#include "exchange/import_plan.h"
#include "exchange/raw_records.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/partition.h"

namespace mrl::cli {

namespace {

/// The action as the row of a table, so that it is judged as an import judges it.
exchange::Table tableOf(const OwnAction& action)
{
    exchange::Table table;
    table.head.sheet = exchange::Sheet::Actions;
    exchange::Row row;
    const auto& columns = exchange::columnsOf(exchange::Sheet::Actions);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        table.head.columns.push_back(static_cast<int>(i));
        const auto value =
            columns[i].factor == nullptr ? std::nullopt : action.factors[columns[i].factor->id];
        row.cells.push_back(value ? exchange::numberText(*value) : std::string());
    }
    row.cells[exchange::ACTION_NAME] = action.name;
    row.cells[exchange::ACTION_TITLE] = action.title.value_or("");
    row.cells[exchange::ACTION_PARTITION] = lcm_word_of_id(LCM_PARTITIONS, action.partition);
    row.cells[exchange::ACTION_SUPERPOSITION] = lcm_word_of_id(LCM_SUPERPOSITIONS, action.superposition);
    table.rows.push_back(row);
    return table;
}

} // namespace

void createOwnAction(const OwnAction& action, const Project& project)
{
    const exchange::Plan plan = exchange::planOf(exchange::stateOf(project.db()), {tableOf(action)});
    const exchange::PlannedRow& row = plan.rows.front();
    if (row.outcome == exchange::Outcome::Refused) {
        project.refuse("action " + action.name + ": " + row.reasons.front().message.english() + " [" +
                       row.reasons.front().rule + "]");
    }
    if (!row.isNew) {
        project.refuse("action " + action.name + " is stored already");
    }
    if (!exchange::putRecord(project.db(), LC_KWH_ACTIONS, row.id, exchange::bytesOf(row.action->wanted))) {
        project.refuse("action " + action.name + " could not be written");
    }
}

void removeAction(const std::string& name, const Project& project)
{
    const LCM_StoredAction action = requireAction(project, name);
    if (const std::string reason = exchange::removeAction(project.db(), action, name); !reason.empty()) {
        project.refuse(reason);
    }
}

} // namespace mrl::cli
