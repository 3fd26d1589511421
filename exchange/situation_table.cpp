#include "exchange/situation_table.h"

#include <algorithm>
#include <set>

#include "combine/decimal.h"

namespace mrl::exchange {

namespace {

CombinationRow rowOf(const combine::Combination& combination, const combine::Plan& plan)
{
    CombinationRow row;
    row.key = combine::keyText(combination.key);
    row.leading = combination.leading;
    row.expression = plan.expressions[static_cast<std::size_t>(combination.expression)];
    for (const combine::Share& share : combination.key) {
        row.factors.emplace_back(share.number, combine::decimalText(share.factor));
    }
    return row;
}

} // namespace

CombinationTable situationTable(const LCM_Situation& situation, const combine::Plan& plan,
                                std::function<void(const VisitCombination&)> tell)
{
    CombinationTable table{situation.name, situation.kind, plan.prepared.numbers, {}};
    std::sort(table.numbers.begin(), table.numbers.end());
    table.tell = [&plan, tell = std::move(tell)](const CombinationTable::Visit& visit) {
        std::set<combine::Key> told;
        tell([&](const combine::Combination& combination) {
            if (told.insert(combination.key).second) {
                visit(rowOf(combination, plan));
            }
        });
    };
    return table;
}

} // namespace mrl::exchange
