// Runs over many responses: what a terminal shows meanwhile, and what memory they take.
#include <gmock/gmock.h>

#include <fcntl.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::mrlLc;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

class LongRun : public CliTest
{
  protected:
    LongRun()
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "G"});
        done({"case", "create", file, "2", "--action", "W"});
    }

    /// Responses with a text of this size beside the numbers of each.
    std::string responses(const std::string& name, int rows, std::size_t size) const
    {
        std::ofstream out(path(name));
        out << "name,set,1,2\n";
        const std::string set(size, 's');
        for (int row = 0; row < rows; ++row) {
            out << "R" << row << ',' << set << ",10," << row << '\n';
        }
        return path(name);
    }
    static std::vector<char*> pointersTo(std::vector<std::string>& arguments)
    {
        std::vector<char*> pointers;
        for (std::string& each : arguments) {
            pointers.push_back(each.data());
        }
        pointers.push_back(nullptr);
        return pointers;
    }
    /// Takes the place of a forked process. Its output goes nowhere.
    [[noreturn]] static void become(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), MRL_LC);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execv(MRL_LC, pointersTo(arguments).data());
        _exit(127);
    }
    /// What the program shows on a terminal, beside its output.
    static std::string shownOnTerminal(const std::vector<std::string>& arguments)
    {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            become(arguments);
        }
        std::string shown;
        char block[4096];
        for (ssize_t size; (size = read(terminal, block, sizeof block)) > 0;) {
            shown.append(block, static_cast<std::size_t>(size));
        }
        close(terminal);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << shown;
        return shown;
    }
    /// The most memory that the program had, in MiB.
    static long mostMemory(const std::vector<std::string>& arguments)
    {
        const pid_t child = fork();
        if (child == 0) {
            become(arguments);
        }
        int status = 0;
        rusage usage{};
        wait4(child, &status, 0, &usage);
        EXPECT_EQ(status, 0);
        return usage.ru_maxrss / 1024;
    }
};

} // namespace

TEST_F(LongRun, TellsOnATerminalHowFarItIs)
{
    const std::string many = responses("r.csv", 60000, 1);
    const std::vector<std::vector<std::string>> runs{
        {"envelope", file, many, "--situation", "persistent", "--csv"},
        {"combine", file, "--keep", many, "--json"}};
    for (const std::vector<std::string>& run : runs) {
        const std::string shown = shownOnTerminal(run);
        EXPECT_THAT(shown, HasSubstr(" responses, ")) << run.front();
        EXPECT_THAT(shown, HasSubstr(" %\x1b[K")) << run.front();
        EXPECT_THAT(shown, EndsWith("\r\x1b[K")) << "the line goes when the run ends";
        EXPECT_EQ(mrlLc(run).err, "") << "a file gets no progress";
    }
}

TEST_F(LongRun, TakesNoMoreMemoryForALargerFile)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer keeps what was freed";
#endif
    constexpr int SIZE = 1 << 16;
    const std::string small = responses("small.csv", 2, SIZE);
    const std::string large = responses("large.csv", 2048, SIZE); // 128 MiB
    for (const std::string command : {"envelope", "combine"}) {
        const auto memory = [&](const std::string& name) {
            return mostMemory(command == "envelope"
                                  ? std::vector<std::string>{command, file, name, "--situation", "persistent"}
                                  : std::vector<std::string>{command, file, "--keep", name});
        };
        EXPECT_LT(memory(large), memory(small) + 64) << command;
    }
}
