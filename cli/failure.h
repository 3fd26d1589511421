#pragma once

#include <string>

#include "cli/exit_code.h"

namespace mrl::cli {

/// Thrown by a command that cannot go on, and caught by main alone, which prints the text to standard error.
struct Failure
{
    ExitCode code;
    std::string text; ///< names the file that it is about
};

} // namespace mrl::cli
