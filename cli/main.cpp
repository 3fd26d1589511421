#include <CLI/CLI.hpp>
#include <QString>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <new>
#include <sstream>
#include <unistd.h>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/completion.h"
#include "cli/failure.h"
#include "cli/output.h"

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

constexpr auto NO_MEMORY = "mrl-lc: there is no memory left\n";

/// Needs no memory itself.
void tellPlainly(const char* message)
{
    static_cast<void>(!::write(STDERR_FILENO, message, std::strlen(message)));
}

/// Where an exception finds nobody to catch it. What was not committed is taken back by the next one who opens the
/// project.
[[noreturn]] void endWithoutAbort()
{
    tellPlainly(NO_MEMORY); // nothing else is thrown where nobody catches
    _exit(static_cast<int>(ExitCode::File));
}

/// Ahead of all objects of the program, since the parser's need memory.
__attribute__((constructor(101))) void neverAbort() { std::set_terminate(endWithoutAbort); }

void tell(const std::string& message)
{
    std::fprintf(stderr, "mrl-lc: %s\n", mrl::cli::printableLines(message).c_str());
}

int run(Command& command)
{
    try {
        return static_cast<int>(command.run());
    } catch (const mrl::cli::Failure& failure) {
        tell(failure.text);
        return static_cast<int>(failure.code);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        tell(error.what());
        return static_cast<int>(ExitCode::File);
    }
}

/// The names of files and all texts are UTF-8, as the projects hold them.
/// @return the number of the first argument that isn't; 0 when all are
int firstForeignArgument(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (QString::fromUtf8(argv[i]).toStdString() != argv[i]) {
            return i;
        }
    }
    return 0;
}

/// Prints help, version, or what is wrong with the arguments.
int exitOfParser(const CLI::App& app, const CLI::ParseError& error)
{
    std::ostringstream out;
    std::ostringstream err;
    const int code = app.exit(error, out, err);
    std::cout << out.str() << std::flush;
    std::cerr << mrl::cli::printableLines(err.str());
    if (code != 0) {
        return static_cast<int>(ExitCode::Usage);
    }
    return static_cast<int>(std::cout ? ExitCode::Done : ExitCode::File);
}

/// Answers the completion of a shell, see the mrl-lc.bash, .zsh and .fish.
int complete(CLI::App& app, const std::vector<std::string>& words)
{
    for (const std::string& line : mrl::cli::completions(app, words)) {
        const std::size_t tab = line.find('\t');
        std::cout << mrl::cli::printableLines(line.substr(0, tab));
        if (tab != std::string::npos) {
            std::cout << '\t' << mrl::cli::printableLines(line.substr(tab + 1));
        }
        std::cout << '\n';
    }
    return static_cast<int>(ExitCode::Done);
}

int runProgram(int argc, char** argv)
{
    if (const int foreign = firstForeignArgument(argc, argv); foreign != 0) {
        tell("argument " + std::to_string(foreign) + " is not UTF-8: '" + argv[foreign] + "'");
        return static_cast<int>(ExitCode::Usage);
    }
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
    if (argc > 1 && std::strcmp(argv[1], "--complete") == 0) {
        return complete(app, {argv + 2, argv + argc});
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return exitOfParser(app, error);
    }
    return run(*chosen);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return runProgram(argc, argv);
    } catch (const std::bad_alloc&) {
        tellPlainly(NO_MEMORY);
        return static_cast<int>(ExitCode::File);
    }
}
