#pragma once

/// Design codes as commands name and print them.

#include <string>

#include "cli/output.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::cli {

/// The design code of a name or path. Throws Failure, with file, line and reason, when it cannot be read.
designcode::DesignCode readDesignCode(const std::string& name);

/// Name, file, label and the four numbers.
Json identityJson(const designcode::DesignCode& code);

/// The warnings of a design code by line, as objects with `line`, `rule` and `text`: those of its file, and
/// what the rules of the dialog find wrong with its limits and default actions.
Json warningsJson(const designcode::DesignCode& code);

/// Prints the warnings, a line each: "warning: FILE:LINE: TEXT".
void printWarnings(const designcode::DesignCode& code);

} // namespace mrl::cli
