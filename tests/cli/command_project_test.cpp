#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "cli/run.h"

using mrl::test::CliTest;
using mrl::test::contentOf;
using mrl::test::mrlLcWithin;
using mrl::test::Outcome;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class NewProject : public CliTest
{
  protected:
    /// The first two words of the system record: raw class and gravity.
    std::string systemWords() const { return done({"get", file, "10", "0", "--hex"}).out.substr(0, 22); }
};

} // namespace

TEST_F(NewProject, SpatialSystemHasClassZeroAndGravityDownZ)
{
    done({"new", file, "--code", "en1990"});
    EXPECT_EQ(systemWords(), "0 352 00000000fdffffff"); // -3
}

TEST_F(NewProject, PlaneSystemHasClassOneAndGravityDownY)
{
    done({"new", file, "--code", "en1990", "--system", "plane"});
    EXPECT_EQ(systemWords(), "0 352 01000000feffffff"); // -2
}

TEST_F(NewProject, PlateSystemHasRawClassTwenty)
{
    done({"new", file, "--code", "en1990", "--system", "plate", "--gravity", "+Z"});
    EXPECT_EQ(systemWords(), "0 352 1400000003000000");
    EXPECT_EQ(done({"info", file, "--json"}).json()["systemClass"], 3);
}

TEST_F(NewProject, EachDirectionOfGravityIsTaken)
{
    for (const char* axis : {"+X", "-X", "+Y", "-Y", "+Z", "-Z"}) {
        std::filesystem::remove(file);
        done({"new", file, "--code", "en1990", "--gravity", axis});
        EXPECT_EQ(done({"info", file, "--json"}).json()["gravity"], axis);
    }
}

TEST_F(NewProject, DefaultActionsAreTakenOverOnDemandOnly)
{
    done({"new", file, "--code", "en1990"});
    EXPECT_EQ(done({"info", file, "--json"}).json()["actions"], 0);
    const std::string other = path("q.cdb");
    done({"new", other, "--code", "en1990", "--default-actions"});
    EXPECT_EQ(done({"info", other, "--json"}).json()["actions"], 18);
}

TEST_F(NewProject, ExistingFileIsRefusedAndStays)
{
    std::ofstream(file) << "mine";
    EXPECT_THAT(fails(1, {"new", file, "--code", "en1990"}), HasSubstr(file));
    EXPECT_EQ(contentOf(file), "mine");
}

TEST_F(NewProject, UnknownDesignCodeLeavesNoFile)
{
    EXPECT_THAT(fails(3, {"new", file, "--code", "none"}), StartsWith("mrl-lc: none: "));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(NewProject, MalformedDesignCodeIsNamedWithLineAndReason)
{
    const std::string code = path("bad.ini");
    std::ofstream(code) << "[DESIGN CODE]\nlabel = x\nntcode = a\nidcode = 0\ncountry = 0\nyear = 0\n";
    EXPECT_EQ(fails(3, {"new", file, "--code", code}),
              "mrl-lc: " + code +
                  ":3:10: 'a' of entry 'ntcode' is no whole number: write digits alone, such as 2005\n");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(NewProject, MissingFolderIsAFileError)
{
    EXPECT_THAT(fails(3, {"new", path("none/p.cdb"), "--code", "en1990"}),
                HasSubstr("none/p.cdb: there is no such folder"));
}

TEST_F(NewProject, OneThatCannotBeFilledLeavesNeitherFileNorLog)
{
    // Actions of more bytes than the file may get: the empty project is made, its filling fails.
    const std::string code = path("own.ini");
    std::ofstream text(code);
    text << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n";
    for (int i = 0; i < 800; ++i) {
        text << "[ACTION A" << i << "]\ntitle = x\ncategory = Q\nsuperposition = COND\n";
    }
    text.close();
    for (const int kibibytes : {4, 36, 48}) {
        const Outcome run = mrlLcWithin(kibibytes, {"new", file, "--code", code, "--default-actions"});
        EXPECT_EQ(run.code, 3);
        EXPECT_THAT(run.err, StartsWith("mrl-lc: " + file + ": "));
        for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
            EXPECT_FALSE(std::filesystem::exists(file + ending)) << kibibytes << ending;
        }
    }
    done({"new", file, "--code", code, "--default-actions"});
}

TEST_F(NewProject, OwnDesignCodeFileIsFoundFromAnyFolder)
{
    const std::string code = path("own.ini");
    std::ofstream(code) << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n";
    const std::string relative =
        "./" + std::filesystem::relative(code, std::filesystem::current_path()).string();
    done({"new", file, "--code", relative});
    const auto info = done({"info", file, "--json"}).json();
    EXPECT_EQ(info["designCode"]["label"], "Own");
    EXPECT_EQ(std::filesystem::path(info["designCode"]["file"].get<std::string>()).is_absolute(), true);
}

TEST_F(NewProject, WordsThatAreNoneAreWrongUsage)
{
    fails(2, {"new", file});
    fails(2, {"new", file, "--code", "en1990", "--system", "round"});
    fails(2, {"new", file, "--code", "en1990", "--gravity", "Z"});
    EXPECT_FALSE(std::filesystem::exists(file));
}

namespace {

class Info : public CliTest
{
};

} // namespace

TEST_F(Info, TellsEverythingInJson)
{
    makeProject();
    done({"case", "create", file, "7", "--action", "G"});
    done({"case", "set-current", file, "7"});
    done({"put", file, "12", "9", "05000000"});
    const auto info = done({"info", file, "--json"}).json();
    EXPECT_EQ(info["file"], file);
    EXPECT_EQ(info["designCode"]["name"], "en1990");
    EXPECT_EQ(info["designCode"]["year"], 2002);
    EXPECT_TRUE(info["designCode"]["problem"].is_null());
    EXPECT_EQ(info["system"], "spatial");
    EXPECT_EQ(info["systemClass"], 0);
    EXPECT_EQ(info["gravity"], "-Z");
    EXPECT_EQ(info["actions"], 3);
    EXPECT_EQ(info["loadCases"], 1);
    EXPECT_EQ(info["foreignLoadCases"], 1);
    EXPECT_EQ(info["currentLoadCase"], 7);
}

TEST_F(Info, TellsPeopleTheSame)
{
    makeProject();
    const std::string out = done({"info", file}).out;
    EXPECT_THAT(out, HasSubstr("en1990, EN 1990 buildings"));
    EXPECT_THAT(out, HasSubstr("Actions:            3\n"));
    EXPECT_THAT(out, HasSubstr("Current load case:  none\n"));
}

TEST_F(Info, DesignCodeWhoseFileIsGoneComesFromTheProject)
{
    const std::string code = path("own.ini");
    std::ofstream(code) << "[DESIGN CODE]\nlabel = Own\nntcode = 0\nidcode = 0\ncountry = 0\nyear = 1\n";
    done({"new", file, "--code", code});
    std::filesystem::remove(code);
    const auto info = done({"info", file, "--json"}).json();
    EXPECT_EQ(info["designCode"]["problem"], nullptr);
    EXPECT_EQ(info["designCode"]["label"], "Own");
    EXPECT_EQ(info["designCode"]["kept"]["state"], "file-absent");
    EXPECT_THAT(done({"info", file}).out, HasSubstr("the copy in the project holds"));
}
