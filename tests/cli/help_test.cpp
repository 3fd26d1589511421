#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <cstdlib>

#include "cli/run.h"

using mrl::test::contentOf;
using mrl::test::mrlLc;
using testing::HasSubstr;

namespace {

const std::vector<std::vector<std::string>> COMMANDS = {{"new"},
                                                        {"info"},
                                                        {"check"},
                                                        {"verify"},
                                                        {"export"},
                                                        {"import"},
                                                        {"diff"},
                                                        {"merge"},
                                                        {"apply"},
                                                        {"action", "list"},
                                                        {"action", "show"},
                                                        {"action", "create"},
                                                        {"action", "create-all"},
                                                        {"action", "set"},
                                                        {"action", "remove"},
                                                        {"case", "list"},
                                                        {"case", "show"},
                                                        {"case", "create"},
                                                        {"case", "init"},
                                                        {"case", "set"},
                                                        {"case", "remove"},
                                                        {"case", "renumber"},
                                                        {"case", "current"},
                                                        {"case", "set-current"},
                                                        {"combine"},
                                                        {"envelope"},
                                                        {"codes"},
                                                        {"code", "show"},
                                                        {"code", "check"},
                                                        {"code", "diff"},
                                                        {"code", "list"},
                                                        {"code", "new"},
                                                        {"recode"},
                                                        {"why"},
                                                        {"keys"},
                                                        {"get"},
                                                        {"put"},
                                                        {"del"}};

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

} // namespace

TEST(Help, EveryCommandAnswers)
{
    for (std::vector<std::string> command : COMMANDS) {
        command.push_back("--help");
        const auto run = mrlLc(command);
        EXPECT_EQ(run.code, 0) << joined(command);
        EXPECT_THAT(run.out, HasSubstr("Usage:")) << joined(command);
    }
}

TEST(Help, EveryCommandWithUnknownOptionIsWrongUsage)
{
    for (std::vector<std::string> command : COMMANDS) {
        command.push_back("--nonsense");
        const auto run = mrlLc(command);
        EXPECT_EQ(run.code, 2) << joined(command);
        EXPECT_NE(run.err, "") << joined(command);
        EXPECT_EQ(run.out, "") << joined(command);
    }
}

TEST(Help, EveryCommandButTheListOfCodesNeedsArguments)
{
    for (const std::vector<std::string>& command : COMMANDS) {
        EXPECT_EQ(mrlLc(command).code, joined(command) == "codes" || joined(command) == "code list" ? 0 : 2)
            << joined(command);
    }
}

TEST(Help, NoOrHalfACommandIsWrongUsage)
{
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{}, {"case"}, {"action"}, {"code"}, {"nonsense"}, {"case", "nonsense"}}) {
        EXPECT_EQ(mrlLc(command).code, 2) << joined(command);
    }
}

TEST(Help, WrongUsageNamesTheCommandAndWhatIsWrong)
{
    const auto said = [](const std::vector<std::string>& arguments) { return mrlLc(arguments).err; };
    const auto message = [](const std::string& command, const std::string& what) {
        return command + ": " + what + "\nRun '" + command + " --help' for more information.\n";
    };
    EXPECT_EQ(said({"nonsense"}), message("mrl-lc", "there is no command 'nonsense'"));
    EXPECT_EQ(said({"case", "nonsense", "p.cdb"}), message("mrl-lc case", "there is no command 'nonsense'"));
    EXPECT_EQ(said({"--nonsense"}), message("mrl-lc", "option --nonsense is not known here"));
    EXPECT_EQ(said({}), message("mrl-lc", "A subcommand is required"));
    EXPECT_EQ(said({"new", "p.cdb"}), message("mrl-lc new", "--code or --from is required"));
    EXPECT_EQ(said({"case", "show"}), message("mrl-lc case show", "FILE is required"));
}

TEST(Help, ChangingNothingIsWrongUsage)
{
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"action", "set", "p.cdb", "G"}, {"case", "set", "p.cdb", "1"}}) {
        const auto run = mrlLc(command);
        EXPECT_EQ(run.code, 2);
        EXPECT_THAT(run.err, HasSubstr("An option that says what to change is required")) << run.err;
    }
}

TEST(Help, ProgramTellsItsVersion)
{
    const auto run = mrlLc({"--version"});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Help, ManPageKnowsEveryCommand)
{
    const std::string man = contentOf(MRL_SOURCE "/cli/mrl-lc.1");
    for (const std::vector<std::string>& command : COMMANDS) {
        EXPECT_THAT(man, HasSubstr("mrl-lc " + joined(command) + "\\fR")) << joined(command);
    }
}

namespace {

/// What the completion offers for the last of some words.
std::string completed(const std::string& words, int last)
{
    QTemporaryDir folder;
    const std::string out = folder.path().toStdString() + "/out";
    const std::string command = "PATH=\"$(dirname '" MRL_LC "'):$PATH\" bash -c 'source \"" MRL_SOURCE
                                "/cli/completions/mrl-lc.bash\"; COMP_WORDS=(" +
                                words + "); COMP_CWORD=" + std::to_string(last) +
                                "; _mrl_lc; echo \"${COMPREPLY[@]}\"' >'" + out + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return contentOf(out);
}

} // namespace

TEST(Completion, KnowsEveryCommand)
{
    for (const std::vector<std::string>& command : COMMANDS) {
        std::vector<std::string> words{"--complete"};
        words.insert(words.end(), command.begin(), command.end());
        EXPECT_THAT(mrlLc(words).out, HasSubstr(command.back() + "\t")) << joined(command);
    }
}

TEST(Completion, KnowsWhatTheProjectAndItsCodeHold)
{
    const std::string file = MRL_SAMPLES "/frame.cdb";
    EXPECT_THAT(mrlLc({"--complete", "case", "set", file, "1", "--action", "Q_"}).out, HasSubstr("Q_B\n"));
    EXPECT_THAT(mrlLc({"--complete", "combine", file, "--situation", "p"}).out, HasSubstr("persistent\n"));
    EXPECT_EQ(mrlLc({"--complete", "why", file, "1", "Psi1"}).out, "Psi1\nPsi1s\n");
    EXPECT_EQ(mrlLc({"--complete", "case", "set", "none.cdb", "1", "--action", ""}).out, "");
    EXPECT_EQ(mrlLc({"--complete", "info", ""}).out, ":projects\n");
    EXPECT_EQ(mrlLc({"--complete", "import", "a.cdb", ""}).out, ":files\n");
    EXPECT_EQ(mrlLc({"--complete"}).out, "");
}

TEST(Completion, OffersCommandsOptionsAndWords)
{
    EXPECT_EQ(completed("mrl-lc ca", 1), "case\n");
    EXPECT_EQ(completed("mrl-lc case s", 2), "show set set-current\n");
    EXPECT_EQ(completed("mrl-lc case create p.cdb --a", 4), "--action\n");
    EXPECT_EQ(completed("mrl-lc new p.cdb --system pl", 4), "plane plate\n");
    EXPECT_EQ(completed("mrl-lc new p.cdb --code en", 4), "en1990 en1990-rail-bridges en1990-road-bridges\n");
    EXPECT_EQ(completed("mrl-lc code show sia", 3), "sia260\n");
}
