#pragma once

/// The words that the command line uses for the integers of the records.

#include <string>

namespace mrl::cli {

/// The name of an action word: "IMP" for 70, otherwise the code's text; empty for none.
std::string actionWordText(int word);

/// The name of an action code without the blanks that pad it.
std::string actionName(int code);

} // namespace mrl::cli
