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

} // namespace

std::string contentOf(const std::string& file)
{
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

Outcome mrlLcInto(const std::string& outFile, const std::vector<std::string>& arguments)
{
    QTemporaryDir folder;
    const std::string errFile = folder.path().toStdString() + "/err";
    std::string command = quoted(MRL_LC);
    for (const std::string& argument : arguments) {
        command += " " + quoted(argument);
    }
    command += " </dev/null >" + quoted(outFile) + " 2>" + quoted(errFile);
    const int status = std::system(command.c_str());
    Outcome run;
    run.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.err = contentOf(errFile);
    return run;
}

Outcome mrlLc(const std::vector<std::string>& arguments)
{
    QTemporaryDir folder;
    const std::string outFile = folder.path().toStdString() + "/out";
    Outcome run = mrlLcInto(outFile, arguments);
    run.out = contentOf(outFile);
    return run;
}

} // namespace mrl::test
