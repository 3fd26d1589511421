#include <gtest/gtest.h>

#include <QString>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "host/mrl_alib.h"
#include "host/mrl_lib.h"
#include "hostlib/data/cdb/project.h"
#include "tests/support/own_folder.h"

namespace {

constexpr char GUARD = '#';

/// A buffer that shows when something beyond the size that was named is written.
struct Guarded
{
    explicit Guarded(int named) : size(named), bytes(static_cast<std::size_t>(named) + 8, GUARD) {}

    bool intact() const { return std::string(bytes.end() - 8, bytes.end()) == std::string(8, GUARD); }
    /// The text as a caller reads it who knows that a full buffer has no closing zero.
    std::string text() const
    {
        const std::string all(bytes.begin(), bytes.begin() + size);
        return all.substr(0, all.find('\0'));
    }

    int size;
    std::vector<char> bytes;
};

class ProfileRead : public testing::Test
{
  protected:
    ProfileRead()
    {
        // TXT_CUT: byte 20 is the first of the two bytes of a character; TXT_EXACT: it is the second.
        std::ofstream(file) << "[ACTIONS]\nTXT_SHORT = γG,sup\nTXT_TWENTY = 01234567890123456789\n"
                               "TXT_LONG = 012345678901234567890123456789\nTXT_CUT = 0123456789012345678γ9\n"
                               "TXT_EXACT = 012345678901234567γ\nTXT_EMPTY =\nNUMBER = 42\n[EMPTY]\n";
    }
    ~ProfileRead() override { std::remove(file.c_str()); }

    int read(const char* section, const char* key, Guarded& buffer) const
    {
        int value = 0;
        return mrl_lib_profile_read(file.c_str(), section, key, 1, &value, buffer.bytes.data(), buffer.size,
                                    0);
    }
    std::string label(const char* key, int size = 20) const
    {
        Guarded buffer(size);
        EXPECT_GE(read("ACTIONS", key, buffer), 0);
        EXPECT_TRUE(buffer.intact()) << key;
        return buffer.text();
    }

    const std::string file = mrl::test::ownFolder() + "profile.ini";
};

} // namespace

TEST_F(ProfileRead, ShortTextComesWhole) { EXPECT_EQ(label("TXT_SHORT"), "γG,sup"); }

TEST_F(ProfileRead, TextOfExactlyTheSizeComesWholeWithoutAClosingZero)
{
    EXPECT_EQ(label("TXT_TWENTY"), "01234567890123456789");
    EXPECT_EQ(label("TXT_EXACT"), "012345678901234567γ");
}

TEST_F(ProfileRead, LongTextIsCutToTheSize) { EXPECT_EQ(label("TXT_LONG"), "01234567890123456789"); }

TEST_F(ProfileRead, TextIsCutAtAWholeCharacter) { EXPECT_EQ(label("TXT_CUT"), "0123456789012345678"); }

TEST_F(ProfileRead, BufferOfNoneOrOneByteIsNotOverrun)
{
    EXPECT_EQ(label("TXT_SHORT", 1), "");
    EXPECT_EQ(label("TXT_TWENTY", 1), "0");
    EXPECT_EQ(label("TXT_SHORT", 0), "");
}

TEST_F(ProfileRead, MissingEntryIsAnEmptyTextAndNoFailure)
{
    EXPECT_EQ(label("TXT_NONE"), "");
    EXPECT_EQ(label("TXT_EMPTY"), "");
    EXPECT_EQ(label("txt_short"), "") << "names are told apart by case";
}

TEST_F(ProfileRead, EmptyKeyTestsForTheSection)
{
    Guarded buffer(1024);
    EXPECT_GE(read("ACTIONS", "", buffer), 0);
    EXPECT_GE(read("EMPTY", "", buffer), 0);
    EXPECT_LT(read("NONE", "", buffer), 0);
    EXPECT_EQ(buffer.text(), "");
}

TEST_F(ProfileRead, MissingSectionLeavesAnEmptyText)
{
    Guarded buffer(20);
    EXPECT_LT(read("NONE", "TXT_SHORT", buffer), 0);
    EXPECT_EQ(buffer.text(), "");
    EXPECT_TRUE(buffer.intact());
}

TEST_F(ProfileRead, MissingFileLeavesAnEmptyText)
{
    for (const char* missing : {"", "/nowhere/none.ini", "/tmp"}) {
        Guarded buffer(20);
        int value = 5;
        EXPECT_LT(
            mrl_lib_profile_read(missing, "ACTIONS", "TXT_SHORT", 1, &value, buffer.bytes.data(), 20, 0), 0);
        EXPECT_EQ(buffer.text(), "");
        EXPECT_EQ(value, 0);
    }
}

TEST_F(ProfileRead, MalformedFileIsNoFile)
{
    std::ofstream(file, std::ios::app) << "neither entry nor section\n";
    Guarded buffer(20);
    EXPECT_LT(read("ACTIONS", "TXT_SHORT", buffer), 0);
    EXPECT_EQ(buffer.text(), "");
}

TEST_F(ProfileRead, WholeNumberComesAsValue)
{
    int value = -1;
    char text[8];
    EXPECT_GE(mrl_lib_profile_read(file.c_str(), "ACTIONS", "NUMBER", 1, &value, text, 8, 0), 0);
    EXPECT_EQ(value, 42);
    EXPECT_STREQ(text, "42");
    EXPECT_GE(mrl_lib_profile_read(file.c_str(), "ACTIONS", "TXT_SHORT", 1, &value, text, 8, 0), 0);
    EXPECT_EQ(value, 0);
}

namespace {

class DesignCodeFile : public testing::Test
{
  protected:
    ~DesignCodeFile() override { mrl::cdb::close(db); }

    const int db = mrl::cdb::openMemory().db;
};

} // namespace

TEST_F(DesignCodeFile, PathComesWithItsClosingZero)
{
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "en1990"));
    char buffer[1024];
    ASSERT_TRUE(mrl_lib_designcode_file(db, buffer, 1024));
    const std::string path = buffer;
    EXPECT_EQ(path.substr(path.rfind('/')), "/en1990.ini");
    EXPECT_TRUE(std::ifstream(path).good());
}

TEST_F(DesignCodeFile, PathThatJustFitsIsGivenAndALongerOneIsNot)
{
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "en1990"));
    char path[1024];
    ASSERT_TRUE(mrl_lib_designcode_file(db, path, 1024));
    const int length = static_cast<int>(std::strlen(path));

    Guarded fits(length + 1);
    EXPECT_TRUE(mrl_lib_designcode_file(db, fits.bytes.data(), fits.size));
    EXPECT_EQ(fits.text(), path);
    EXPECT_TRUE(fits.intact());

    Guarded small(length);
    EXPECT_FALSE(mrl_lib_designcode_file(db, small.bytes.data(), small.size));
    EXPECT_EQ(small.text(), "");
    EXPECT_TRUE(small.intact());
}

TEST_F(DesignCodeFile, FailureLeavesAnEmptyText)
{
    Guarded buffer(16);
    EXPECT_FALSE(mrl_lib_designcode_file(db, buffer.bytes.data(), buffer.size)) << "names none";
    EXPECT_EQ(buffer.text(), "");
    EXPECT_FALSE(mrl_lib_designcode_file(-5, buffer.bytes.data(), buffer.size)) << "not open";
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "none"));
    EXPECT_FALSE(mrl_lib_designcode_file(db, buffer.bytes.data(), buffer.size)) << "not there";
    EXPECT_FALSE(mrl_lib_designcode_file(db, buffer.bytes.data(), 0));
}

TEST_F(DesignCodeFile, LabelIsThatOfTheNamedCode)
{
    EXPECT_EQ(MRL_A_Normen::getNormLabelText(db), "");
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "sia260"));
    EXPECT_TRUE(MRL_A_Normen::getNormLabelText(db).startsWith("SIA 260"));
}
