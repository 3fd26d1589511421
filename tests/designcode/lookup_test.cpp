#include <gmock/gmock.h>

#include <chrono>
#include <climits>
#include <filesystem>
#include <fstream>

#include "designcode/reader_sample.h"
#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "hostlib/data/cdb/project.h"
#include "tests/support/own_folder.h"

using mrl::test::READER_SAMPLE;
using mrl::test::sampleWith;

namespace {

constexpr int CODE_G = 0x20202047;
constexpr int CODE_U1 = 0x20203155;

/// Two projects in memory: one with the sample design code, one without any.
class DesignCodeLookup : public testing::Test
{
  protected:
    DesignCodeLookup()
    {
        write(READER_SAMPLE);
        EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", file));
    }
    ~DesignCodeLookup() override
    {
        mrl::cdb::close(db);
        mrl::cdb::close(bare);
        std::filesystem::remove(file);
    }

    /// Writes the design-code file with a time of its own, however coarse the clock of the file system is.
    void write(const std::string& text)
    {
        static int writes = 0;
        std::ofstream(file) << text;
        std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() +
                                                   std::chrono::seconds(++writes));
    }

    void put(int code, int kind, float gamu) const
    {
        tagCDB_LC_ACT record{};
        record.kind = kind;
        record.gamu = gamu;
        EXPECT_TRUE(mrl::cdb::append(db, 14, code, &record, sizeof record));
    }

    const std::string file = mrl::test::ownFolder() + "lookup.ini";
    const int db = mrl::cdb::openMemory().db;
    const int bare = mrl::cdb::openMemory().db;
};

} // namespace

TEST_F(DesignCodeLookup, SwitchMakesTheDatabaseCurrentAndActivatesItsCode)
{
    EXPECT_EQ(mrl_dlib_ini_switch(db), 0);
    EXPECT_EQ(mrl_cdb_status(-1), db);
    EXPECT_EQ(mrl_dlib_cdb_get_idcode(), 2);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 2002);
    EXPECT_EQ(mrl_dlib_cdb_get_ntcode(), 0);
    EXPECT_EQ(mrl_dlib_cdb_get_dcntry(), 0);
}

TEST_F(DesignCodeLookup, SwitchToAProjectWithoutCodeMakesItCurrentAndFails)
{
    mrl_dlib_ini_switch(db);
    EXPECT_LT(mrl_dlib_ini_switch(bare), 0);
    EXPECT_EQ(mrl_cdb_status(-1), bare);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 0);
    tagCDB_LC_ACT record{};
    EXPECT_LT(mrl_dlib_lcact_info(0, &record), 0);
    EXPECT_LT(mrl_dlib_lcact_info(-1, &record), 0);
}

TEST_F(DesignCodeLookup, SwitchToAnIndexThatIsNotOpenChangesNothing)
{
    mrl_dlib_ini_switch(db);
    EXPECT_LT(mrl_dlib_ini_switch(-7), 0);
    EXPECT_EQ(mrl_cdb_status(-1), db);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 2002);
}

TEST_F(DesignCodeLookup, ActiveCodeFollowsTheCurrentDatabase)
{
    mrl_dlib_ini_switch(db);
    mrl_cdb_use(bare, 0);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 0);
    mrl_cdb_use(db, 0);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 2002);
}

TEST_F(DesignCodeLookup, ClosingTheCurrentDatabaseDeactivatesItsCode)
{
    mrl_dlib_ini_switch(db);
    mrl::cdb::close(db);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 0);
}

TEST_F(DesignCodeLookup, ChangedFileIsReadAnewAtTheNextSwitch)
{
    mrl_dlib_ini_switch(db);
    write(sampleWith("2002", "2010"));
    EXPECT_EQ(mrl_dlib_ini_switch(db), 0);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 2010);
}

TEST_F(DesignCodeLookup, FileThatBecameMalformedFailsAndHeals)
{
    write("[DESIGN CODE");
    EXPECT_LT(mrl_dlib_ini_switch(db), 0);
    EXPECT_EQ(mrl::designcode::ofDatabase(db).reason,
              file + ":1: the section's name has no closing ']': write [NAME]");
    write(READER_SAMPLE);
    EXPECT_EQ(mrl_dlib_ini_switch(db), 0);
}

TEST_F(DesignCodeLookup, NamedCodeThatIsNotThereHasAReason)
{
    EXPECT_TRUE(mrl::cdb::setFact(db, "designcode", "none"));
    EXPECT_LT(mrl_dlib_ini_switch(db), 0);
    EXPECT_EQ(mrl::designcode::ofDatabase(db).reason, "the design code 'none' is not on the search path");
    EXPECT_EQ(mrl::designcode::ofDatabase(bare).reason, "the project names no design code");
}

TEST_F(DesignCodeLookup, OneFileIsParsedOnceForAllProjects)
{
    EXPECT_TRUE(mrl::cdb::setFact(bare, "designcode", file));
    EXPECT_EQ(mrl::designcode::ofDatabase(db).code, mrl::designcode::ofDatabase(bare).code);
}

TEST_F(DesignCodeLookup, IndexZeroIsTheAvailabilityWithPartitionZero)
{
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT record;
    record.partition = 5;
    EXPECT_GE(mrl_dlib_lcact_info(0, &record), 0);
    EXPECT_EQ(record.partition, 0);
    EXPECT_EQ(record.gamu, 1.0f);
    EXPECT_EQ(record.psi1s, 0.0f);
}

TEST_F(DesignCodeLookup, NegativeIndexesEnumerateInTheOrderOfTheFile)
{
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT record{};
    EXPECT_GE(mrl_dlib_lcact_info(-1, &record), 0);
    EXPECT_EQ(record.gamu, 1.35f);
    EXPECT_GE(mrl_dlib_lcact_info(-3, &record), 0);
    EXPECT_EQ(record.partition, 0x132);
    EXPECT_LT(mrl_dlib_lcact_info(-4, &record), 0);
    EXPECT_EQ(record.partition, 0x132) << "a failing call leaves the record as it was";
    EXPECT_LT(mrl_dlib_lcact_info(INT_MIN, &record), 0);
}

TEST_F(DesignCodeLookup, PositiveValueIsACodeOrAnOldNumber)
{
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT record{};
    EXPECT_GE(mrl_dlib_lcact_info(CODE_G, &record), 0);
    EXPECT_EQ(record.gamu, 1.35f);
    EXPECT_GE(mrl_dlib_lcact_info(7, &record), 0);
    EXPECT_EQ(record.gamu, 1.5f);
    EXPECT_GE(mrl_dlib_lcact_info(3, &record), 0);
    EXPECT_EQ(record.gamu, 1.35f);
    EXPECT_LT(mrl_dlib_lcact_info(70, &record), 0);
    EXPECT_EQ(record.gamu, 1.35f);
}

TEST_F(DesignCodeLookup, DefaultActionWinsOverTheStoredOne)
{
    put(CODE_G, 1, 9.0f);
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT record{};
    EXPECT_GE(mrl_dlib_lcact_info(CODE_G, &record), 0);
    EXPECT_EQ(record.gamu, 1.35f);
}

TEST_F(DesignCodeLookup, OwnActionIsTheFirstDefinitionAtItsKey)
{
    put(CODE_U1, 2, 2.0f);
    put(CODE_U1, 1, 3.0f);
    put(CODE_U1, 1, 4.0f);
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT record{};
    EXPECT_GE(mrl_dlib_lcact_info(CODE_U1, &record), 0);
    EXPECT_EQ(record.gamu, 3.0f);
}

TEST_F(DesignCodeLookup, KeyWithoutADefinitionIsNoAction)
{
    put(CODE_U1, 2, 2.0f);
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT record{};
    record.gamu = 8.0f;
    EXPECT_LT(mrl_dlib_lcact_info(CODE_U1, &record), 0);
    EXPECT_EQ(record.gamu, 8.0f);
}

TEST_F(DesignCodeLookup, NumericKeysAreNeverActions)
{
    put(500, 1, 2.0f);
    put(0x2020201F, 1, 2.0f);
    mrl_dlib_ini_switch(db);
    tagCDB_LC_ACT record{};
    EXPECT_LT(mrl_dlib_lcact_info(500, &record), 0);
    EXPECT_LT(mrl_dlib_lcact_info(0x2020201F, &record), 0);
}

TEST_F(DesignCodeLookup, OwnActionOfAnotherProjectIsNotFound)
{
    put(CODE_U1, 1, 3.0f);
    EXPECT_TRUE(mrl::cdb::setFact(bare, "designcode", file));
    mrl_dlib_ini_switch(bare);
    tagCDB_LC_ACT record{};
    EXPECT_LT(mrl_dlib_lcact_info(CODE_U1, &record), 0);
}

TEST_F(DesignCodeLookup, ActionWordIsWhatItWas)
{
    mrl_cdb_use(bare, 0);
    for (const int word : {0, 70, -1, CODE_G, INT_MIN}) {
        EXPECT_EQ(mrl_dlib_lftype_enum(word), word);
    }
}

TEST_F(DesignCodeLookup, CombinationValuesComeWhereTheCodeHasThem)
{
    mrl_dlib_ini_switch(db);
    float value = -1.0f;
    EXPECT_GT(mrl_dlib_boxed_value("COMBINATIONS", "KFI", value), 0);
    EXPECT_EQ(value, 1.1f);
    EXPECT_GT(mrl_dlib_boxed_value("COMBINATIONS", "XSI", value), 0);
    EXPECT_EQ(value, 0.85f);
    EXPECT_LE(mrl_dlib_boxed_value("COMBINATIONS", "PSI", value), 0);
    EXPECT_LE(mrl_dlib_boxed_value("ACTIONS", "KFI", value), 0);
    EXPECT_EQ(value, 0.85f) << "a failing call leaves the value as it was";
    mrl_dlib_ini_switch(bare);
    EXPECT_LE(mrl_dlib_boxed_value("COMBINATIONS", "KFI", value), 0);
}

TEST_F(DesignCodeLookup, FactMayCarryTheEnding)
{
    EXPECT_TRUE(mrl::cdb::setFact(bare, "designcode", "en1990.ini"));
    EXPECT_EQ(mrl_dlib_ini_switch(bare), 0);
    EXPECT_EQ(mrl_dlib_cdb_get_dcyear(), 2002);
}
