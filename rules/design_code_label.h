#pragma once

#include <QString>

#include <optional>

#include "lcdata/actions.h"
#include "lcdata/values/factors.h"

/// The design-code file of a database; nothing when the database names none.
std::optional<QString> lcm_design_code_file(int db);

/// The label of a factor, without white space around it and with single blanks within. At most 20 bytes of
/// the file. @param key "Gamu" to "Psi1s", in upper or lower case. @return an empty text when the file has none
QString lcm_design_code_label(const QString& file, const QString& key);

/// Which factors have a column in the tables: those that the design code has, but a safety factor only where
/// its label isn't "none".
LCM_PerFactor<bool> lcm_factor_columns(const MRL_LC_Action_Info& info, const QString& file);
