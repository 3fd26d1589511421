#pragma once

#include <QString>

#include <optional>

#include "workbench/managers.h"

namespace mrl::workbench {

/// What the program was started with.
struct CommandLine
{
    QString project;                ///< the file to open; empty for none
    std::optional<Manager> manager; ///< the manager to open on it
};

/// Whether somebody asks for help or the version, which is answered without a display.
bool asksAboutTheProgram(int argc, char** argv);

/// Reads the command line. Answers --help and --version, and tells on standard error what it can't follow.
/// @param line [out] as it was when the program is to end
/// @return nothing when the program is to run, else the code that it ends with: 0, and 2 for wrong usage
std::optional<int> readCommandLine(const QStringList& arguments, CommandLine& line);

} // namespace mrl::workbench
