#pragma once

/// How actions are printed, for people and as JSON.

#include "cli/output.h"
#include "lcdata/values/records.h"

namespace mrl::cli {

/// The fields of an action that --json prints. `Gama` is the value that the dialog shows.
Json actionJson(int code, const tagCDB_LC_ACT& record);

/// The head and the rows of the table that people get.
Table actionTable();
void addActionRow(Table& table, int code, const tagCDB_LC_ACT& record);

} // namespace mrl::cli
