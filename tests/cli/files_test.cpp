#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "cli/run.h"
#include "hostlib/data/cdb/project.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using mrl::test::mrlLc;
using mrl::test::mrlLcInto;
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
