#pragma once

#include <QString>

#include "actions/command_log.h"

/// The name of a command for a list of steps. @param column heading of the first cell of an entry, empty for a
/// command that isn't one. @param rows how many rows it changed or added
QString lcm_command_name(LCM_Command command, const QString& column, int rows);
