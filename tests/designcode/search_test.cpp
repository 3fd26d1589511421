#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <fstream>

#include "hostlib/data/designcode/designcode.h"

namespace {

/// Two folders of the user's ahead of the shipped codes.
class DesignCodeSearch : public testing::Test
{
  protected:
    DesignCodeSearch() : old(qgetenv("MRL_DESIGNCODE_PATH"))
    {
        qputenv("MRL_DESIGNCODE_PATH",
                "/nowhere:" + first.path().toLocal8Bit() + "::" + second.path().toLocal8Bit());
    }
    ~DesignCodeSearch() override { qputenv("MRL_DESIGNCODE_PATH", old); }

    static std::string put(const QTemporaryDir& folder, const char* name)
    {
        const std::string file = folder.path().toStdString() + "/" + name;
        std::ofstream(file) << "; a design code\n";
        return file;
    }

    const QByteArray old;
    const QTemporaryDir first;
    const QTemporaryDir second;
};

} // namespace

TEST_F(DesignCodeSearch, FirstFolderWins)
{
    const std::string winner = put(first, "mine.ini");
    put(second, "mine.ini");
    EXPECT_EQ(mrl::designcode::find("mine"), winner);
    int times = 0;
    for (const auto& found : mrl::designcode::list()) {
        times += found.name == "mine" ? 1 : 0;
        EXPECT_TRUE(found.name != "mine" || found.file == winner);
    }
    EXPECT_EQ(times, 1);
}

TEST_F(DesignCodeSearch, LaterFolderIsReached)
{
    const std::string file = put(second, "later.ini");
    EXPECT_EQ(mrl::designcode::find("later"), file);
}

TEST_F(DesignCodeSearch, FoldersThatAreNotThereAreLeftOut)
{
    const auto folders = mrl::designcode::searchPath();
    ASSERT_GE(folders.size(), 2u);
    EXPECT_EQ(folders[0], first.path().toStdString());
    EXPECT_EQ(folders[1], second.path().toStdString());
}

TEST_F(DesignCodeSearch, CodesBesideTheProgramAreFoundBehindThem)
{
    EXPECT_TRUE(mrl::designcode::find("en1990").has_value());
}

TEST_F(DesignCodeSearch, OtherFilesAreNoCodes)
{
    put(first, "notes.txt");
    for (const auto& found : mrl::designcode::list()) {
        EXPECT_NE(found.name, "notes");
    }
}
