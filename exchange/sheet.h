#pragma once

/// The neutral table that every format reads and writes: texts under headings that stay the same.

#include <string>
#include <string_view>
#include <vector>

#include "exchange/message.h"
#include "lcdata/values/factors.h"

namespace mrl::exchange {

enum class Sheet { Actions, LoadCases };

/// What a column holds. Numbers have a point as decimal sign, however a format writes them.
enum class Kind {
    Key,    ///< number of a load case or name of an action; a table without it is no table
    Text,   ///< any text: a title
    Word,   ///< one of a few words, or a name
    Number, ///< empty: unchanged
    Factor  ///< a safety or combination factor. Of a load case, empty: it follows its action
};

struct Column
{
    const char* name; ///< the heading that is written, see docs/exchange.md
    Kind kind;
    const char* otherNames = "";            ///< other headings that are understood, with '|' between them
    const LCM_Factor* factor = nullptr;     ///< of a Factor
    float tagCDB_LC_CTRL::*value = nullptr; ///< of a Number

    bool isNumeric() const { return kind == Kind::Number || kind == Kind::Factor; }
};

/// The places of the columns ahead of the numbers.
enum ActionPlace : std::size_t { ACTION_NAME, ACTION_TITLE, ACTION_PARTITION, ACTION_SUPERPOSITION };
enum LoadCasePlace : std::size_t { CASE_NUMBER, CASE_TITLE, CASE_ACTION };

/// The columns of a sheet in the order in which they are written.
const std::vector<Column>& columnsOf(Sheet sheet);

/// "actions" or "loadcases".
const char* nameOf(Sheet sheet);

/// The place of a heading among columnsOf(); -1 for one that means nothing here. Case, blanks, dots, hyphens
/// and underscores don't matter; English and German are understood.
int columnOfHeading(Sheet sheet, std::string_view heading);

/// The texts of a row in UTF-8.
using Cells = std::vector<std::string>;

/// What the rows of a table have in common.
struct TableHead
{
    Sheet sheet = Sheet::LoadCases;
    std::vector<int> columns; ///< each by its place among columnsOf(); those that the file lacks are left out
    bool picksNumbers = false; ///< a load case without a number takes the next free one
};

struct Row
{
    int line = 0;               ///< of the file, from 1
    Cells cells;                ///< in the order of TableHead::columns
    std::vector<Message> notes; ///< what the format had to cure
    std::string
        like; ///< of a new action: the one of the design code whose factors it takes; empty: by its category
};

struct Table
{
    TableHead head;
    std::vector<Row> rows;
};

} // namespace mrl::exchange
