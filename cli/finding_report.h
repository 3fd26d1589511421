#pragma once

#include <string>

#include "cli/exit_code.h"
#include "rules/finding.h"

namespace mrl::cli {

/// Prints the findings for a person, in their language, or as JSON, in English.
/// @return Refused when there is a finding
ExitCode report(const LCM_Findings& findings, const std::string& file, bool json);

} // namespace mrl::cli
