#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace mrl::cli {

/// What may stand in the place of the last word, for the completion of a shell. Made from the declared commands, so
/// it never lags behind them.
/// @param words of the command line behind the program's name; the last one is incomplete or empty
/// @return a line each: a word, or a tab behind it and what it means; ":projects" and ":files" ask the shell for
/// names of such files
std::vector<std::string> completions(CLI::App& program, const std::vector<std::string>& words);

} // namespace mrl::cli
