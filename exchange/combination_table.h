#pragma once

/// Combinations of a situation as rows of a file, whoever found them.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "exchange/sheet.h"

namespace mrl::exchange {

class WorkbookWriter;

struct CombinationRow
{
    std::string key;                                  ///< "1.35*1+1.5*11"
    std::string leading;                              ///< empty: nobody
    std::string expression;                           ///< empty: the situation has one, without a name
    std::vector<std::pair<int, std::string>> factors; ///< by load case, ascending; those of 0 are left out
};

struct CombinationTable
{
    using Visit = std::function<void(const CombinationRow&)>;

    std::string situation;
    std::string kind;                       ///< one of LCM_SITUATION_KINDS
    std::vector<int> numbers;               ///< load cases that take part, ascending
    std::function<void(const Visit&)> tell; ///< tells all rows, the same ones each time
};

/// The headings of a table of combinations: a column for each load case behind those of the words.
Cells headingsOf(const CombinationTable& table);
/// The texts of a row. @param position from 1
Cells cellsOf(const CombinationTable& table, int position, const CombinationRow& row);
/// Whether a column holds numbers.
bool isNumberColumn(std::size_t column);

/// Writes the sheet "combinations". @return what is wrong; empty when it was written
Message writeSheet(const CombinationTable& table, WorkbookWriter& writer);

} // namespace mrl::exchange
