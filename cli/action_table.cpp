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

} // namespace

Json actionJson(int code, const tagCDB_LC_ACT& record)
{
    return {{"name", actionName(code)},
            {"code", code},
            {"title", lcm_title_text(record.title).toStdString()},
            {"partition", partitionText(record)},
            {"superposition", superpositionText(record)},
            {"Gamu", jsonFactor(record.gamu)},
            {"Gamf", jsonFactor(record.gamf)},
            {"Gama", jsonFactor(lcm_shown_gama(record.gama))},
            {"Psi0", jsonFactor(record.psi0)},
            {"Psi1", jsonFactor(record.psi1)},
            {"Psi2", jsonFactor(record.psi2)},
            {"Psi1s", jsonFactor(record.psi1s)}};
}

Table actionTable()
{
    const auto right = Table::Align::Right;
    return Table({{"Name"},
                  {"Title"},
                  {"Partition"},
                  {"Superposition"},
                  {"Gamu", right},
                  {"Gamf", right},
                  {"Gama", right},
                  {"Psi0", right},
                  {"Psi1", right},
                  {"Psi2", right},
                  {"Psi1s", right}});
}

void addActionRow(Table& table, int code, const tagCDB_LC_ACT& record)
{
    table.add({actionName(code), printable(lcm_title_text(record.title)), partitionText(record),
               superpositionText(record), factorText(record.gamu), factorText(record.gamf),
               factorText(lcm_shown_gama(record.gama)), factorText(record.psi0), factorText(record.psi1),
               factorText(record.psi2), factorText(record.psi1s)});
}

} // namespace mrl::cli
