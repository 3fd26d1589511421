#pragma once

namespace mrl::cli {

/// What the program says to a script.
enum class ExitCode : int {
    Done = 0,
    Refused = 1, ///< findings, or the project's state forbids what was asked
    Usage = 2,   ///< wrong usage
    File = 3     ///< a file could not be read or written
};

} // namespace mrl::cli
