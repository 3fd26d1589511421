#pragma once

/// The words that the command line uses for the integers of the records.

#include <QString>
#include <map>
#include <optional>
#include <string>

namespace mrl::cli {

/// "G", "P", "Q", "Q_1" to "Q_5", "A" and "E" with their partition ids.
const std::map<std::string, int>& partitionIds();

/// "PERM" to "PERC" with their superposition ids.
const std::map<std::string, int>& superpositionIds();

/// The word of an id, the id itself in digits when it has none.
std::string wordOf(const std::map<std::string, int>& ids, int id);

/// "+X", "-X" and so on with the signed axis.
const std::map<std::string, int>& gravityAxes();

/// "spatial", "plane" and "plate" with the raw system class that a new project gets.
const std::map<std::string, int>& rawSystemClasses();

/// The name of a system class: 0, 1 or 3.
std::string systemName(int systemClass);

/// The name of an action word: "IMP" for 70, otherwise the code's text; empty for none.
std::string actionWordText(int word);

/// The name of an action code without the blanks that pad it.
std::string actionName(int code);

} // namespace mrl::cli
