#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "cli/run.h"
#include "hostlib/data/cdb/project.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using mrl::test::mrlLc;
using mrl::test::mrlLcInto;
using mrl::test::mrlLcWith;
using testing::HasSubstr;

namespace {

class BadFiles : public CliTest
{
  protected:
    /// One command of each kind on a file: reading ones first, then writing ones.
    static std::vector<std::vector<std::string>> commandsOn(const std::string& file)
    {
        return {{"info", file},
                {"check", file},
                {"verify", file},
                {"keys", file},
                {"get", file, "10", "0"},
                {"action", "list", file},
                {"action", "show", file, "G"},
                {"case", "list", file},
                {"case", "show", file, "1"},
                {"case", "current", file},
                {"action", "create", file, "G"},
                {"action", "create-all", file},
                {"action", "set", file, "G", "--gamu", "1"},
                {"case", "create", file, "1"},
                {"case", "init", file, "1"},
                {"case", "set", file, "1", "--title", "x"},
                {"case", "remove", file, "1"},
                {"case", "set-current", file, "1"},
                {"put", file, "1", "1", "01"},
                {"del", file, "1", "1"}};
    }

    void allFail(const std::string& name) const
    {
        for (const auto& command : commandsOn(name)) {
            const auto run = mrlLc(command);
            EXPECT_EQ(run.code, 3) << command[0];
            EXPECT_THAT(run.err, HasSubstr(name)) << command[0];
            EXPECT_EQ(run.out, "") << command[0];
        }
    }
};

} // namespace

TEST_F(BadFiles, MissingFileIsNamedByEveryCommand)
{
    allFail(path("none.cdb"));
    EXPECT_FALSE(std::filesystem::exists(path("none.cdb")));
}

TEST_F(BadFiles, FileThatIsNoProjectIsRefusedAndStays)
{
    const std::string text = path("text.cdb");
    std::ofstream(text) << "This is no project, but a text that somebody wrote.";
    allFail(text);
    EXPECT_EQ(contentOf(text), "This is no project, but a text that somebody wrote.");
}

TEST_F(BadFiles, DamagedProjectIsRefusedAndStays)
{
    makeProject();
    std::string bytes = contentOf(file);
    bytes[bytes.size() - 40] =
        static_cast<char>(bytes[bytes.size() - 40] ^ 1); // inside the last page's records
    for (std::size_t i = 4096; i < bytes.size(); i += 61) {
        bytes[i] = static_cast<char>(bytes[i] ^ 0x55);
    }
    const std::string damaged = path("damaged.cdb");
    std::ofstream(damaged, std::ios::binary) << bytes;
    allFail(damaged);
    EXPECT_EQ(contentOf(damaged), bytes);
}

TEST_F(BadFiles, FolderIsNoProject) { allFail(path("")); }

TEST_F(BadFiles, ProjectThatAnotherProcessWritesIsReported)
{
    makeProject();
    const mrl::cdb::Opened other = mrl::cdb::open(file);
    ASSERT_TRUE(other);
    const mrl::cdb::Transaction lock(other.db);
    ASSERT_TRUE(lock.state());
    const auto run = mrlLc({"case", "create", file, "1"});
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.err, HasSubstr(file));
    mrl::cdb::close(other.db);
}

TEST_F(BadFiles, FullStandardOutputIsAFileError)
{
    makeProject();
    for (const std::vector<std::string>& command : {std::vector<std::string>{"info", file},
                                                    {"action", "list", file, "--json"},
                                                    {"case", "list", file},
                                                    {"codes"}}) {
        const auto run = mrlLcInto("/dev/full", command);
        EXPECT_EQ(run.code, 3) << command[0];
        EXPECT_THAT(run.err, HasSubstr("standard output: ")) << command[0];
    }
}

TEST_F(BadFiles, CaseWhoseNumberCannotBeToldIsNotCreated)
{
    makeProject();
    EXPECT_EQ(mrlLcInto("/dev/full", {"case", "create", file, "5"}).code, 3);
    EXPECT_EQ(fails(1, {"case", "show", file, "5"}), "mrl-lc: " + file + ": there is no load case 5\n");
}

TEST_F(BadFiles, EmptyNameIsToldAsSuch)
{
    for (const auto& command : commandsOn("")) {
        EXPECT_EQ(fails(3, command), "mrl-lc: \"\": a file needs a name\n") << command[0];
    }
    EXPECT_EQ(fails(3, {"new", "", "--code", "en1990"}), "mrl-lc: \"\": a file needs a name\n");
}

TEST_F(BadFiles, NameThatIsNotUtf8GivesAMessage)
{
    makeProject();
    const std::string name = path("b\xff.cdb");
    std::filesystem::copy_file(file, name);
    for (const auto& command : commandsOn(name)) {
        EXPECT_THAT(fails(2, command), HasSubstr("is not UTF-8: ")) << command[0];
    }
    EXPECT_THAT(fails(2, {"info", name, "--json"}), HasSubstr("argument 2 is not UTF-8"));
    EXPECT_EQ(contentOf(name), contentOf(file));
}

TEST_F(BadFiles, WhatATerminalWouldObeyIsShownHarmlessly)
{
    makeProject();
    const std::string name = path("\x1b[31mp\x07\xc2\x9b.cdb");
    std::filesystem::copy_file(file, name);
    done({"case", "create", name, "2", "--title", "a\x1b]0;x\x07\xc2\x9b\xe2\x80\xae z"});
    for (auto command : commandsOn(name)) {
        for (const bool json : {false, true}) {
            if (json && command[0] != "info" && command[0] != "check" && command[1] != "list") {
                continue;
            }
            if (json) {
                command.emplace_back("--json");
            }
            const auto run = mrlLc(command);
            for (const char* bad : {"\x1b", "\x07", "\x7f", "\xc2\x9b", "\xe2\x80\xae"}) {
                EXPECT_THAT(run.out + run.err, testing::Not(HasSubstr(bad))) << command[0];
            }
        }
    }
    EXPECT_EQ(done({"info", name, "--json"}).json()["file"], name);
    EXPECT_EQ(done({"case", "show", name, "2", "--json"}).json()["title"],
              "a\x1b]0;x\x07\xc2\x9b\xe2\x80\xae z");
    EXPECT_THAT(fails(3, {"info", path("\x1b[2J")}), testing::Not(HasSubstr("\x1b")));
    EXPECT_THAT(fails(2, {"\x1b[2J"}), testing::Not(HasSubstr("\x1b")));
}

/// What a foreign program has stored need not be UTF-8.
TEST_F(BadFiles, FactThatIsNotUtf8IsShownInJson)
{
    makeProject();
    const int db = mrl::cdb::open(file).db;
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "b\xff\x1b[31m.ini"));
    mrl::cdb::close(db);
    EXPECT_EQ(done({"info", file, "--json"}).json()["designCode"]["name"], "b\xef\xbf\xbd\x1b[31m.ini");
    EXPECT_THAT(done({"info", file}).out, testing::Not(HasSubstr("\x1b")));
}

/// A relative path in a project counts from the project, whoever opens it from wherever.
TEST_F(BadFiles, DesignCodeOfAProjectDoesNotDependOnTheCurrentFolder)
{
    makeProject();
    const int db = mrl::cdb::open(file).db;
    ASSERT_TRUE(mrl::cdb::setFact(db, "designcode", "./x.ini"));
    mrl::cdb::close(db);
    std::filesystem::create_directory(path("elsewhere"));
    std::filesystem::copy_file(MRL_SOURCE "/designcodes/en1990.ini", path("elsewhere/x.ini"));
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(path("elsewhere"));
    const auto problem = done({"info", "../p.cdb", "--json"}).json()["designCode"]["problem"];
    std::filesystem::copy_file("x.ini", "../x.ini");
    const auto found = done({"info", "../p.cdb", "--json"}).json()["designCode"]["problem"];
    std::filesystem::current_path(before);
    EXPECT_EQ(problem, "the design code './x.ini' is not there, seen from the project's folder");
    EXPECT_TRUE(found.is_null());
}

TEST_F(BadFiles, ProjectOnANetworkFolderIsReadAndNotWritten)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer wants to be loaded first";
#endif
    makeProject();
    const std::string before = contentOf(file);
    const std::string nfs = "MRL_FILE_SYSTEM=0x6969 LD_PRELOAD=" MRL_FAILING_CALLS " ";
    for (const auto& command : commandsOn(file)) {
        const auto run = mrlLcWith(nfs, command);
        EXPECT_EQ(run.err.find("it lies on a network folder") != std::string::npos, run.code == 3)
            << command[0];
    }
    EXPECT_EQ(mrlLcWith(nfs, {"info", file}).code, 0);
    EXPECT_EQ(mrlLcWith(nfs, {"case", "create", file}).code, 3);
    EXPECT_EQ(mrlLcWith(nfs, {"new", path("b.cdb"), "--code", "en1990"}).code, 3);
    EXPECT_FALSE(std::filesystem::exists(path("b.cdb")));
    EXPECT_EQ(contentOf(file), before);
}

TEST_F(BadFiles, NothingIsLeftBesideTheProject)
{
    makeProject();
    done({"case", "list", file});
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path(""))) {
        ++files;
        EXPECT_EQ(entry.path().string(), file);
    }
    EXPECT_EQ(files, 1);
}
