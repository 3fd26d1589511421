#include "cli/run.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace mrl::test {

namespace {

std::string quoted(const std::string& text)
{
    std::string result = "'";
    for (const char c : text) {
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return result + "'";
}

/// @param before commands of the shell that hold for the program too
Outcome run(const std::string& before, const std::string& outFile, const std::vector<std::string>& arguments)
{
    QTemporaryDir folder;
    const std::string errFile = folder.path().toStdString() + "/err";
    std::string command = before + quoted(MRL_LC);
    for (const std::string& argument : arguments) {
        command += " " + quoted(argument);
    }
    command += " </dev/null >" + quoted(outFile) + " 2>" + quoted(errFile);
    const int status = std::system(command.c_str());
    Outcome outcome;
    outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.err = contentOf(errFile);
    return outcome;
}

Outcome runAndRead(const std::string& before, const std::vector<std::string>& arguments)
{
    QTemporaryDir folder;
    const std::string outFile = folder.path().toStdString() + "/out";
    Outcome outcome = run(before, outFile, arguments);
    outcome.out = contentOf(outFile);
    return outcome;
}

} // namespace

std::string contentOf(const std::string& file)
{
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

Outcome mrlLcInto(const std::string& outFile, const std::vector<std::string>& arguments)
{
    return run({}, outFile, arguments);
}

Outcome mrlLcWithin(int kibibytes, const std::vector<std::string>& arguments)
{
    // The shell counts in blocks of 512 bytes. Without the trap a write would end the program.
    return runAndRead("trap '' XFSZ; ulimit -f " + std::to_string(2 * kibibytes) + "; ", arguments);
}

Outcome mrlLcWith(const std::string& variables, const std::vector<std::string>& arguments)
{
    return runAndRead(variables, arguments);
}

Outcome mrlLc(const std::vector<std::string>& arguments) { return runAndRead({}, arguments); }

} // namespace mrl::test
