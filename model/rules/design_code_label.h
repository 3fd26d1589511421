#pragma once

#include <QString>

#include <optional>

/// The design-code file of a database; nothing when the database names none.
std::optional<QString> lcm_design_code_file(int db);

/// The label of a factor, without white space around it and with single blanks within. At most 20 bytes of
/// the file. @param upperKey "GAMU" to "PSI1S". @return an empty text when the file has none
QString lcm_design_code_label(const QString& file, const QString& upperKey);
