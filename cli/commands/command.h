#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/exit_code.h"

namespace mrl::cli {

class Arguments;

/// One subcommand: declares its arguments, and runs once they are parsed.
class Command
{
  public:
    Command() = default;
    virtual ~Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    virtual std::string name() const = 0;
    virtual std::string description() const = 0;
    virtual void declare(Arguments& args) = 0;

    /// @return Done or Refused. Throws Failure when it cannot go on.
    virtual ExitCode run() = 0;
};

/// Commands behind a word of their own, such as "action list"; the word is empty for those without.
struct CommandGroup
{
    std::string name;
    std::string description;
    std::vector<std::unique_ptr<Command>> commands;
};

} // namespace mrl::cli
