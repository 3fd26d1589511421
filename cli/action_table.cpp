#include "cli/action_table.h"

#include "cli/words.h"
#include "lcdata/packed_text.h"
#include "model/rules/action_row.h"

namespace mrl::cli {

namespace {

std::string partitionText(const tagCDB_LC_ACT& record)
{
    return wordOf(partitionIds(), lcm_partition_id(record.partition));
}

std::string superpositionText(const tagCDB_LC_ACT& record)
{
    return wordOf(superpositionIds(), lcm_superposition_id(record.partition));
}

/// As the dialog shows it.
float shownFactor(const tagCDB_LC_ACT& record, const LCM_ActionFactor& factor)
{
    const float value = record.*factor.field;
    return factor.column == ACT_COL_GAMA ? lcm_shown_gama(value) : value;
}

} // namespace

Json actionJson(int code, const tagCDB_LC_ACT& record)
{
    Json out = {{"name", actionName(code)},
                {"code", code},
                {"title", lcm_title_text(record.title).toStdString()},
                {"partition", partitionText(record)},
                {"superposition", superpositionText(record)}};
    for (const LCM_ActionFactor& factor : LCM_ACTION_FACTORS) {
        out[factor.key] = jsonFactor(shownFactor(record, factor));
    }
    return out;
}

Table actionTable()
{
    std::vector<Table::Column> head{{"Name"}, {"Title"}, {"Partition"}, {"Superposition"}};
    for (const LCM_ActionFactor& factor : LCM_ACTION_FACTORS) {
        head.push_back({factor.key, Table::Align::Right});
    }
    return Table(head);
}

void addActionRow(Table& table, int code, const tagCDB_LC_ACT& record)
{
    std::vector<std::string> row{actionName(code), printable(lcm_title_text(record.title)),
                                 partitionText(record), superpositionText(record)};
    for (const LCM_ActionFactor& factor : LCM_ACTION_FACTORS) {
        row.push_back(factorText(shownFactor(record, factor)));
    }
    table.add(row);
}

} // namespace mrl::cli
