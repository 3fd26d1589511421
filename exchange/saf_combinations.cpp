#include "exchange/saf_combinations.h"

#include <algorithm>

namespace mrl::exchange {

namespace {

constexpr std::size_t MOST_TERMS = 99;
constexpr double WIDTH = 16.0;
constexpr double WIDE = 40.0;

std::string categoryOf(const std::string& kind)
{
    return kind == "ultimate" || kind == "seismic" ? "ULS (Ultimate Limit State)"
           : kind == "accidental"                  ? "ALS (Accidental Limit State)"
                                                   : "SLS (Serviceability Limit State)";
}

std::vector<WorkbookColumn> columnsFor(std::size_t terms)
{
    std::vector<WorkbookColumn> columns{
        {"Name", WIDTH}, {"Description", WIDE}, {"Category", WIDE}, {"National standard", WIDTH}};
    for (std::size_t i = 1; i <= terms; ++i) {
        const std::string number = " " + std::to_string(i);
        columns.push_back({"Load Factor" + number, WIDTH, true});
        columns.push_back({"Multiplier" + number, WIDTH, true});
        columns.push_back({"Load Case name" + number, WIDTH});
    }
    columns.push_back({"Id", WIDE});
    columns.push_back({"Type", WIDTH});
    return columns;
}

} // namespace

Message writeSafCombinations(const CombinationTable& table,
                             const std::function<std::string(const std::string&)>& idOf,
                             WorkbookWriter& writer)
{
    std::size_t terms = 1;
    table.tell([&](const CombinationRow& row) { terms = std::max(terms, row.factors.size()); });
    if (terms > MOST_TERMS) {
        return {
            QT_TRANSLATE_NOOP("Exchange", "a combination has %1 load cases, and one of SAF holds at most %2"),
            {std::to_string(terms), std::to_string(MOST_TERMS)}};
    }
    writer.beginSheet("StructuralLoadCombination", columnsFor(terms), false);
    int position = 0;
    table.tell([&](const CombinationRow& row) {
        const std::string expression = row.expression.empty() ? "" : " / " + row.expression;
        Cells cells{"COM" + std::to_string(++position), table.situation + expression + ": " + row.key,
                    categoryOf(table.kind), ""};
        for (std::size_t i = 0; i < terms; ++i) {
            const bool acts = i < row.factors.size();
            cells.push_back(acts ? row.factors[i].second : "");
            cells.push_back(acts ? "1" : "");
            cells.push_back(acts ? "LC" + std::to_string(row.factors[i].first) : "");
        }
        cells.push_back(idOf("combination " + table.situation + " " + row.key));
        cells.push_back("Linear");
        writer.addRow(cells);
    });
    return {};
}

} // namespace mrl::exchange
