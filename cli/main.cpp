#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/failure.h"

namespace {

using mrl::cli::Arguments;
using mrl::cli::Command;
using mrl::cli::CommandGroup;
using mrl::cli::ExitCode;

constexpr auto FOOTER =
    "Exit status: 0 done, 1 findings or refused, 2 wrong usage, 3 a file could not be read or "
    "written.\nSee the man page mrl-lc(1).";

/// Declares a command below an app; parsing its arguments chooses it.
void declare(CLI::App& parent, Command& command, Command*& chosen)
{
    CLI::App* app = parent.add_subcommand(command.name(), command.description());
    Arguments args(*app);
    command.declare(args);
    app->final_callback([&command, &chosen] { chosen = &command; });
}

void declare(CLI::App& app, const CommandGroup& group, Command*& chosen)
{
    CLI::App* parent = &app;
    if (!group.name.empty()) {
        parent = app.add_subcommand(group.name, group.description);
        parent->require_subcommand(1);
    }
    for (const auto& command : group.commands) {
        declare(*parent, *command, chosen);
    }
}

/// The innermost command that was recognised.
const CLI::App& innermost(const CLI::App& app)
{
    const auto parsed = app.get_subcommands();
    return parsed.empty() ? app : innermost(*parsed.back());
}

/// What is wrong with the arguments. The parser asks for a command where it doesn't know the word that stands
/// there.
std::string wrongUsage(const CLI::App& command, const std::vector<std::string>& rest, const CLI::Error& error)
{
    const bool wantsCommand = command.get_require_subcommand_min() > 0;
    if (!wantsCommand || rest.empty()) {
        return error.what();
    }
    return rest.front().rfind('-', 0) == 0 ? "option " + rest.front() + " is not known here"
                                           : "there is no command '" + rest.front() + "'";
}

std::string usageMessage(const CLI::App* app, const CLI::Error& error)
{
    const CLI::App& command = innermost(*app);
    std::string name = command.get_name();
    for (const CLI::App* parent = command.get_parent(); parent != nullptr; parent = parent->get_parent()) {
        name = parent->get_name() + " " + name;
    }
    return name + ": " + wrongUsage(command, app->remaining(true), error) + "\nRun '" + name +
           " --help' for more information.\n";
}

int run(Command& command)
{
    try {
        return static_cast<int>(command.run());
    } catch (const mrl::cli::Failure& failure) {
        std::fprintf(stderr, "mrl-lc: %s\n", failure.text.c_str());
        return static_cast<int>(failure.code);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mrl-lc: %s\n", error.what());
        return static_cast<int>(ExitCode::File);
    }
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Actions and load cases of a structural project, from the command line", "mrl-lc");
    app.require_subcommand(1);
    app.footer(FOOTER);
    app.failure_message(usageMessage);
    app.set_version_flag("--version", MRL_VERSION);
    const std::vector<CommandGroup> groups = mrl::cli::allCommands();
    Command* chosen = nullptr;
    for (const CommandGroup& group : groups) {
        declare(app, group, chosen);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : static_cast<int>(ExitCode::Usage);
    }
    return run(*chosen);
}
