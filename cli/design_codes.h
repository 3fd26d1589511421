#pragma once

#include <string>

#include "cli/output.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::cli {

/// The design code of a name or path. Throws Failure, with file, line and reason, when it cannot be read.
designcode::DesignCode readDesignCode(const std::string& name);

/// Name, file, label and the four numbers.
Json identityJson(const designcode::DesignCode& code);

/// The warnings of a design code, as objects with `line` and `text`.
Json warningsJson(const designcode::DesignCode& code);

/// Prints the warnings, a line each: "warning: FILE:LINE: TEXT".
void printWarnings(const designcode::DesignCode& code);

} // namespace mrl::cli
