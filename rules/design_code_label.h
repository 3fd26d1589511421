#pragma once

#include <QString>

#include <array>
#include <optional>

#include "lcdata/actions.h"
#include "rules/load_case_columns.h"

/// The design-code file of a database; nothing when the database names none.
std::optional<QString> lcm_design_code_file(int db);

/// The label of a factor, without white space around it and with single blanks within. At most 20 bytes of
/// the file. @param upperKey "GAMU" to "PSI1S". @return an empty text when the file has none
QString lcm_design_code_label(const QString& file, const QString& upperKey);

/// Which factors have a column in the tables, by column id from LC_COL_GAMU on: those that the design code
/// has, but a safety factor only where its label isn't "none".
std::array<bool, LC_FACTOR_COUNT> lcm_factor_columns(const MRL_LC_Action_Info& info, const QString& file);
