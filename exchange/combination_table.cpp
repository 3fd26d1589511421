#include "exchange/combination_table.h"

#include "exchange/xlsx_workbook.h"
#include "exchange/xlsx_writer.h"

namespace mrl::exchange {

namespace {

// "combination" and not "number" or "name", which would make a table of load cases or actions of it.
const Cells WORDS{"combination", "situation", "expression", "leading", "key"};
constexpr double WORD_WIDTH = 16.0;
constexpr double KEY_WIDTH = 48.0;
constexpr double FACTOR_WIDTH = 9.0;

} // namespace

Cells headingsOf(const CombinationTable& table)
{
    Cells headings = WORDS;
    for (const int number : table.numbers) {
        headings.push_back(std::to_string(number));
    }
    return headings;
}

Cells cellsOf(const CombinationTable& table, int position, const CombinationRow& row)
{
    Cells cells{std::to_string(position), table.situation, row.expression, row.leading, row.key};
    auto factor = row.factors.begin();
    for (const int number : table.numbers) {
        const bool acts = factor != row.factors.end() && factor->first == number;
        cells.push_back(acts ? factor->second : "0");
        factor += acts ? 1 : 0;
    }
    return cells;
}

bool isNumberColumn(std::size_t column) { return column == 0 || column >= WORDS.size(); }

Message writeSheet(const CombinationTable& table, WorkbookWriter& writer)
{
    const Cells headings = headingsOf(table);
    if (headings.size() > Workbook::MAX_COLUMNS) {
        return {QT_TRANSLATE_NOOP("Exchange", "a sheet of a workbook holds at most %1 columns"),
                {std::to_string(Workbook::MAX_COLUMNS)}};
    }
    std::vector<WorkbookColumn> columns;
    for (std::size_t i = 0; i < headings.size(); ++i) {
        const double width = headings[i] == "key" ? KEY_WIDTH : i < WORDS.size() ? WORD_WIDTH : FACTOR_WIDTH;
        columns.push_back({headings[i], width, isNumberColumn(i)});
    }
    writer.beginSheet("combinations", columns, true);
    int position = 0;
    table.tell([&](const CombinationRow& row) { writer.addRow(cellsOf(table, ++position, row)); });
    return {};
}

} // namespace mrl::exchange
