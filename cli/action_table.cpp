#include "cli/action_table.h"

#include "cli/words.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"

namespace mrl::cli {

namespace {

std::string partitionText(const tagCDB_LC_ACT& record)
{
    return lcm_word_of_id(LCM_PARTITIONS, lcm_partition_id(record.partition));
}

std::string superpositionText(const tagCDB_LC_ACT& record)
{
    return lcm_word_of_id(LCM_SUPERPOSITIONS, lcm_superposition_id(record.partition));
}

} // namespace

Json actionJson(int code, const tagCDB_LC_ACT& record)
{
    Json out = {{"name", actionName(code)},
                {"code", code},
                {"title", lcm_title_text(record.title).toStdString()},
                {"partition", partitionText(record)},
                {"superposition", superpositionText(record)}};
    for (const LCM_Factor& factor : LCM_FACTORS) {
        out[factor.key] = jsonFactor(lcm_shown_factor(record, factor));
    }
    return out;
}

Table actionTable()
{
    std::vector<Table::Column> head{{"Name"}, {"Title"}, {"Partition"}, {"Superposition"}};
    for (const LCM_Factor& factor : LCM_FACTORS) {
        head.push_back({factor.key, Table::Align::Right});
    }
    return Table(head);
}

void addActionRow(Table& table, int code, const tagCDB_LC_ACT& record)
{
    std::vector<std::string> row{actionName(code), printable(lcm_title_text(record.title)),
                                 partitionText(record), superpositionText(record)};
    for (const LCM_Factor& factor : LCM_FACTORS) {
        row.push_back(factorText(lcm_shown_factor(record, factor)));
    }
    table.add(row);
}

} // namespace mrl::cli
