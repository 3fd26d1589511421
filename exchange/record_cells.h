#pragma once

/// The cells of a record in all columns of its sheet, and the record that cells mean without any other.

#include <optional>
#include <string>

#include "exchange/sheet.h"
#include "lcdata/values/records.h"

namespace mrl::exchange {

/// @param cells [out] is written whole; its strings are used again
void cellsOf(int code, const tagCDB_LC_ACT& action, Cells& cells);
void cellsOf(int number, const tagCDB_LC_CTRL& loadCase, Cells& cells);

template <class Record>
Cells cellsOf(int id, const Record& record)
{
    Cells cells;
    cellsOf(id, record, cells);
    return cells;
}

/// The name of an action word: empty for none, IMP for an imperfection, digits for an old number.
std::string actionWordText(int word);
/// The word of such a name; a name is taken in upper case.
int actionWordOf(const std::string& name);

/// What the cells of all columns say about a new record. Nothing when one of them can't be understood.
std::optional<tagCDB_LC_ACT> actionOf(const Cells& cells);
std::optional<tagCDB_LC_CTRL> loadCaseOf(const Cells& cells);

/// The title of a record in UTF-8.
std::string titleText(const std::uint32_t (&field)[LC_TITLE_WORDS]);

} // namespace mrl::exchange
